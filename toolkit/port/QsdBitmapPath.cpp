#include "toolkit/port/QsdBitmapPath_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double MostStretched = 1e9; ///< beyond it an arc has as many points as there may be

QsdRealPoint real(const QsdPoint& point)
{
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

} // namespace

double QsdBitmapPath::scale() const
{
    double x11, x12, x21, x22, x0, y0;
    _transformer.getValues(x11, x12, x21, x22, x0, y0);
    const double scale = std::sqrt(std::fabs(x11 * x22 - x12 * x21));
    return std::isfinite(scale) ? scale : 0;
}

double QsdBitmapPath::stretch() const
{
    double x11, x12, x21, x22, x0, y0;
    _transformer.getValues(x11, x12, x21, x22, x0, y0);
    const double stretch = std::max(std::hypot(x11, x21), std::hypot(x12, x22));
    return std::isfinite(stretch) ? std::min(stretch, MostStretched) : 1;
}

QsdRealPoint QsdBitmapPath::mapped(QsdRealPoint point) const
{
    _transformer.transform(point.x, point.y);
    const double shift = _anchor == PixelCenter ? 0.5 : 0;
    return {point.x + shift, point.y + shift};
}

void QsdBitmapPath::add(QsdRealPoint point)
{
    _chains.back().push_back(mapped(point));
}

void QsdBitmapPath::addPoints(unsigned long count, const QsdPoint* points)
{
    begin();
    for (unsigned long i = 0; i < count; ++i) {
        add(real(points[i]));
    }
}

void QsdBitmapPath::addSteps(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas)
{
    begin();
    QsdRealPoint at = real(origin);
    add(at);
    for (unsigned long i = 0; i + 1 < count; ++i) {
        at = {at.x + deltas[i].dx, at.y + deltas[i].dy};
        add(at);
    }
}

void QsdBitmapPath::addRectangle(const QsdRect& rect)
{
    const auto right = static_cast<double>(rect.right());
    const auto bottom = static_cast<double>(rect.bottom());
    begin();
    add({static_cast<double>(rect.x), static_cast<double>(rect.y)});
    add({right, static_cast<double>(rect.y)});
    add({right, bottom});
    add({static_cast<double>(rect.x), bottom});
}

void QsdBitmapPath::addArc(const QsdRect& rect, float start, float range)
{
    const double radiusX = rect.width / 2.0;
    const double radiusY = rect.height / 2.0;
    // Cut up in its size on the bitmap, so that it is round there.
    const double size = std::max(stretch(), 1.0);
    begin();
    for (const QsdRealPoint& point : QsdFlattenArc({0, 0}, radiusX * size, radiusY * size, static_cast<double>(start),
                                                   static_cast<double>(range))) {
        add({rect.x + radiusX + point.x / size, rect.y + radiusY + point.y / size});
    }
}

void QsdBitmapPath::addCurves(unsigned long count, const QsdPoint* points, bool closed)
{
    if (count < 2) {
        return;
    }
    begin();
    add(real(points[0]));
    QsdChain& chain = _chains.back();
    const auto curve = [&](const QsdPoint& control1, const QsdPoint& control2, const QsdPoint& end) {
        QsdFlattenCurve(chain, mapped(real(control1)), mapped(real(control2)), mapped(real(end)));
    };
    unsigned long i = 1;
    for (; count - i >= 3; i += 3) {
        curve(points[i], points[i + 1], points[i + 2]);
    }
    const unsigned long left = count - i;
    if (count == 2) {
        add(real(points[1])); // there and, closed, back
    } else if (closed) {
        if (left != 0) {
            curve(points[i], points[i + left - 1], points[0]);
        }
    } else if (left == 1) {
        add(real(points[i]));
    } else if (left == 2) {
        curve(points[i], points[i], points[i + 1]);
    }
}
