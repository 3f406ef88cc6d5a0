// Points, lines and areas: written as QsdPSDevice does, while the extent of the page grows with them.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSPrintOperation_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned PointsPerLine = 10;

constexpr double MiterLimit = 10; ///< the language's first

/// How far beyond its corner, in parts of half the line's width, the mitre of two lines reaches; a sharper one than the
/// limit is cut off.
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

/// Angles with fewer turns that draw the same arc. Interpreters draw each turn, and the number of them tells what is
/// inside by the even-odd rule, so an odd one stays odd.
struct ArcAngles {
    ArcAngles(float first, float angle) : start(first), range(angle)
    {
        constexpr float Turn = 360;
        constexpr float Most = 10 * Turn;
        if (!(std::fabs(start) <= Most)) {
            start = std::isfinite(start) ? std::fmod(start, Turn) : 0;
        }
        if (std::isnan(range)) {
            range = 0;
        } else if (std::fabs(range) > Most) {
            const float rest = std::isinf(range) ? 0 : std::fmod(std::fabs(range), 2 * Turn);
            range = std::copysign(2 * Turn + rest, range);
        }
    }

    float start;
    float range;
};

/// The box of a path whose points reach so far beyond themselves as lines do there.
class PathBox {
public:
    /// A box that need not have what `held` (not owned) has already.
    PathBox(bool zoomed, const QsdPSExtent& held) : _zoomed(zoomed), _held(held) {}

    /// Whether everything up to `margin` beyond a point is within the box, or held.
    [[nodiscard]] bool holds(const QsdPoint& point, double margin) const
    {
        const QsdPSExtent around{point.x - margin, point.y - margin, point.x + margin, point.y + margin};
        return _zoomed && (_held.contains(around) || box.contains(around));
    }

    void add(const QsdPoint& point, double margin = 0)
    {
        const double inner = _zoomed ? margin : 0;
        box.add(point.x - inner, point.y - inner);
        box.add(point.x + inner, point.y + inner);
        outer = std::max(outer, _zoomed ? 0 : margin);
    }

    QsdPSExtent box;
    double outer = 0; ///< beyond the box, in points

private:
    bool _zoomed;
    const QsdPSExtent& _held;
};

} // namespace

void QsdPSPrintDevice::drawPoint(const QsdPalette* palette, const QsdPoint& point) const
{
    drawPoints(palette, 1, &point);
}

void QsdPSPrintDevice::drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count == 0) {
        return;
    }
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    setCurrentPalette(palette);
    QsdPSWriter out(stream());
    unsigned onLine = 0;
    for (unsigned long i = 0; i < count; ++i) {
        reachRect({points[i].x, points[i].y, 1, 1}, 0);
        out << points[i] << " px";
        if (++onLine == PointsPerLine || i + 1 == count || out.column() >= QsdPSConventionalLength.elements) {
            out << EOL;
            onLine = 0;
        } else {
            out << QsdSpc();
        }
    }
}

void QsdPSPrintDevice::drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    reach(from.x, from.y, to.x, to.y, halfLineWidth(palette));
    QsdPSDevice::drawLine(palette, from, to);
}

void QsdPSPrintDevice::drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                                    const QsdPoint* ends) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    const double half = halfLineWidth(palette);
    for (unsigned long i = 0; i < count; ++i) {
        reach(starts[i].x, starts[i].y, ends[i].x, ends[i].y, half);
    }
    QsdPSDevice::drawSegments(palette, count, starts, ends);
}

void QsdPSPrintDevice::drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    reachStroke(palette, count, points, false);
    QsdPSDevice::drawPolyLine(palette, count, points);
}

void QsdPSPrintDevice::drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                                    const QsdDeltaPoint* deltas) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    PathBox path(_document->zoomableLineWidths, _document->inForce.held);
    QsdPoint before = origin;
    QsdPoint corner = origin;
    for (unsigned long i = 0; i + 1 < count; ++i) {
        const QsdPoint next = QsdPSStep(corner, deltas[i]);
        path.add(corner, halfLineWidth(palette) * miter(before, corner, next));
        before = corner;
        corner = next;
    }
    path.add(corner, halfLineWidth(palette));
    _document->reach(path.box, path.outer);
    QsdPSDevice::drawPolyLine(palette, origin, count, deltas);
}

void QsdPSPrintDevice::fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points,
                                    bool convex) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    reachPoints(count, points);
    QsdPSDevice::fillPolyLine(palette, count, points, convex);
}

void QsdPSPrintDevice::fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                                    const QsdDeltaPoint* deltas, bool convex) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    PathBox path(true, _document->inForce.held);
    QsdPoint corner = origin;
    for (unsigned long i = 0; i < count; ++i) {
        path.add(corner);
        if (i + 1 < count) {
            corner = QsdPSStep(corner, deltas[i]);
        }
    }
    _document->reach(path.box, 0);
    QsdPSDevice::fillPolyLine(palette, origin, count, deltas, convex);
}

// A path in the order of rectstroke, so that dashes fall alike, and a stroke that knows the widths' mode.
void QsdPSPrintDevice::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    setCurrentPalette(palette);
    reachRect(rect, halfLineWidth(palette));
    QsdPSWriter(stream()) << "n " << rect.x << QsdSpc() << rect.y << QsdSpc() << rect.width << QsdSpc() << rect.height
                          << " rk" << EOL;
}

void QsdPSPrintDevice::fillRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    reachRect(rect, 0);
    QsdPSDevice::fillRectangle(palette, rect);
}

void QsdPSPrintDevice::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    reachRect(rect, halfLineWidth(palette));
    const ArcAngles angles(start, range);
    QsdPSDevice::drawArc(palette, rect, angles.start, angles.range);
}

void QsdPSPrintDevice::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    reachRect(rect, 0);
    const ArcAngles angles(start, range);
    QsdPSDevice::fillArc(palette, rect, angles.start, angles.range);
}

void QsdPSPrintDevice::fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    for (unsigned long i = 0; i < count; ++i) {
        if (arrays[i].count() > 1) {
            reachPoints(arrays[i].count(), arrays[i].points());
        }
    }
    QsdPSDevice::fillPaths(palette, count, arrays);
}

// A curve lies inside the polygon of its points.
void QsdPSPrintDevice::drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    if (count > 1) {
        reachStroke(palette, count, points, false);
    }
    QsdPSDevice::drawBezier(palette, count, points);
}

void QsdPSPrintDevice::drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Stroke);
    if (count > 1) {
        reachStroke(palette, count, points, true);
    }
    QsdPSDevice::drawClosedBezier(palette, count, points);
}

void QsdPSPrintDevice::fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    if (count > 2) {
        reachPoints(count, points);
    }
    QsdPSDevice::fillBezier(palette, count, points);
}

double QsdPSPrintDevice::halfLineWidth(const QsdPalette* palette) const
{
    return palette->lineWidth() == 0 ? 0.5 : palette->lineWidth() / 2.0;
}

void QsdPSPrintDevice::reachStroke(const QsdPalette* palette, unsigned long count, const QsdPoint* points,
                                   bool closed) const
{
    const double half = halfLineWidth(palette);
    PathBox path(_document->zoomableLineWidths, _document->inForce.held);
    for (unsigned long i = 0; i < count; ++i) {
        // Mitres take long; few corners are so far out that theirs matters.
        if (path.holds(points[i], half * MiterLimit)) {
            continue;
        }
        const bool corner = closed || (i != 0 && i + 1 != count);
        path.add(points[i],
                 corner ? half * miter(points[(i + count - 1) % count], points[i], points[(i + 1) % count]) : half);
    }
    _document->reach(path.box, path.outer);
}

void QsdPSPrintDevice::reachPoints(unsigned long count, const QsdPoint* points) const
{
    PathBox path(true, _document->inForce.held);
    for (unsigned long i = 0; i < count; ++i) {
        path.add(points[i]);
    }
    _document->reach(path.box, 0);
}

void QsdPSPrintDevice::reachRect(const QsdRect& rect, double margin) const
{
    reach(rect.x, rect.y, static_cast<double>(rect.x) + rect.width, static_cast<double>(rect.y) + rect.height, margin);
}

// A margin is one of lines when it is not 0: it grows with the drawing or is in points.
void QsdPSPrintDevice::reach(double x1, double y1, double x2, double y2, double margin) const
{
    const bool zoomed = _document->zoomableLineWidths;
    const double inner = zoomed ? margin : 0;
    QsdPSExtent box;
    box.add(std::min(x1, x2) - inner, std::min(y1, y2) - inner);
    box.add(std::max(x1, x2) + inner, std::max(y1, y2) + inner);
    _document->reach(box, zoomed ? 0 : margin);
}
