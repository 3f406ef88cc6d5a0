// Lines and areas.
#include "ps/print/QsdPSShapeReach_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double MiterLimit = 10; ///< the language's first

/// How far beyond its corner, in parts of half the line's width, the mitre of two lines reaches. A sharper mitre than
/// the limit is cut off.
double miter(const QsdPoint& before, const QsdPoint& corner, const QsdPoint& after)
{
    const double ax = static_cast<double>(before.x) - corner.x;
    const double ay = static_cast<double>(before.y) - corner.y;
    const double bx = static_cast<double>(after.x) - corner.x;
    const double by = static_cast<double>(after.y) - corner.y;
    const double lengths = std::hypot(ax, ay) * std::hypot(bx, by);
    if (lengths == 0) {
        return 1;
    }
    // Half the angle between them, from the cosine of the whole.
    const double sine = std::sqrt(std::max(0.0, (1 - (ax * bx + ay * by) / lengths) / 2));
    return sine * MiterLimit < 1 ? 1 : 1 / sine;
}

/// The point that a step leads to, kept within the coordinate space.
QsdPoint stepped(const QsdPoint& from, const QsdDeltaPoint& step)
{
    const auto kept = [](std::int64_t value) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                                  std::numeric_limits<std::int32_t>::max()));
    };
    return {kept(std::int64_t{from.x} + step.dx), kept(std::int64_t{from.y} + step.dy)};
}

/// The box of a path, each of whose points reaches beyond itself as lines do there.
class PathBox {
public:
    explicit PathBox(bool linesZoom) : _linesZoom(linesZoom) {}

    void add(const QsdPoint& point, double margin)
    {
        const double inner = _linesZoom ? margin : 0;
        box.add(point.x - inner, point.y - inner);
        box.add(point.x + inner, point.y + inner);
        outer = std::max(outer, _linesZoom ? 0 : margin);
    }

    QsdPSExtent box;
    double outer = 0; ///< beyond the box, in points

private:
    bool _linesZoom;
};

double halfLineWidth(const QsdPalette& palette)
{
    return palette.lineWidth() == 0 ? 0.5 : palette.lineWidth() / 2.0;
}

} // namespace

QsdPSShapeReach::QsdPSShapeReach(QsdPSPageReach& page, const QsdPalette& palette, QsdPSUse use, bool linesZoom)
    : _page(page), _palette(palette), _halfLine(use == QsdPSUse::Stroke ? halfLineWidth(palette) : 0),
      _linesZoom(linesZoom)
{
}

void QsdPSShapeReach::add(double x1, double y1, double x2, double y2)
{
    const double inner = _linesZoom ? _halfLine : 0;
    const QsdPSExtent box{std::min(x1, x2) - inner, std::min(y1, y2) - inner, std::max(x1, x2) + inner,
                          std::max(y1, y2) + inner};
    _page.add(box, _linesZoom ? 0 : _halfLine);
}

void QsdPSShapeReach::line(const QsdPoint& from, const QsdPoint& to)
{
    add(from.x, from.y, to.x, to.y);
}

void QsdPSShapeReach::box(const QsdRect& rect)
{
    add(rect.x, rect.y, static_cast<double>(rect.x) + rect.width, static_cast<double>(rect.y) + rect.height);
}

void QsdPSShapeReach::path(unsigned long count, const QsdPoint* points, bool closed)
{
    PathBox path(_linesZoom);
    const double farthest = _halfLine * MiterLimit;
    for (unsigned long i = 0; i < count; ++i) {
        const QsdPoint& point = points[i];
        const QsdPSExtent around{point.x - farthest, point.y - farthest, point.x + farthest, point.y + farthest};
        // Mitres take long to compute; few corners are so far out that theirs matters.
        if (_linesZoom && (_page.holds(around) || path.box.contains(around))) {
            continue;
        }
        const bool isCorner = _halfLine != 0 && (closed || (i != 0 && i + 1 != count));
        path.add(point, isCorner ? _halfLine * miter(points[(i + count - 1) % count], point, points[(i + 1) % count])
                                 : _halfLine);
    }
    _page.add(path.box, path.outer);
}

void QsdPSShapeReach::steps(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas)
{
    PathBox path(_linesZoom);
    QsdPoint before = origin;
    QsdPoint corner = origin;
    for (unsigned long i = 0; i + 1 < count; ++i) {
        const QsdPoint next = stepped(corner, deltas[i]);
        path.add(corner, _halfLine != 0 ? _halfLine * miter(before, corner, next) : 0);
        before = corner;
        corner = next;
    }
    path.add(corner, _halfLine);
    _page.add(path.box, path.outer);
}

void QsdPSShapeReach::mapped(const QsdRect& rect, const QsdTransformer& t, const QsdPoint& at)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    const QsdPSExtent extent = QsdPSExtentOf(QsdTransformer(x11, x12, x21, x22, at.x, at.y), rect.x, rect.y,
                                             static_cast<double>(rect.right()), static_cast<double>(rect.bottom()));
    add(extent.left, extent.bottom, extent.right, extent.top);
}
