// Shapes drawn with the X server.
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/x11/QsdXCoverage_p.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXGraphics_p.h"
#include "toolkit/x11/QsdXPort.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int WidestDirectLine = 1000;      ///< whose corners stay within X's coordinates
constexpr unsigned long MostCorners = 4000; ///< of a wide line, which cannot be sent in parts

/// The smallest rectangle around points; none when it would be too large to tell.
std::optional<QsdRect> boundsOf(unsigned long count, const QsdPoint* points)
{
    if (count == 0) {
        return QsdRect{};
    }
    const auto [left, right] =
        std::minmax_element(points, points + count, [](const QsdPoint& a, const QsdPoint& b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(points, points + count, [](const QsdPoint& a, const QsdPoint& b) { return a.y < b.y; });
    const std::int64_t width = std::int64_t{right->x} - left->x + 1;
    const std::int64_t height = std::int64_t{bottom->y} - top->y + 1;
    if (width > UINT32_MAX || height > UINT32_MAX) {
        return std::nullopt;
    }
    return QsdRect{left->x, top->y, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

XPoint xPoint(const QsdPoint& point)
{
    return {static_cast<short>(point.x), static_cast<short>(point.y)};
}

bool isSolid(const QsdLineStyle& style)
{
    return std::all_of(style.dashes(), style.dashes() + style.count(), [](std::uint8_t length) { return length == 0; });
}

/// The width that the server is to draw with: thin lines have one of their own.
int directWidth(std::uint16_t width)
{
    return width <= 1 ? 0 : width;
}

/// Whether the server and the toolkit agree on the corners of a wide line: X joins ends that meet and knows no line
/// without a length.
bool hasPlainCorners(unsigned long count, const QsdPoint* points)
{
    return count >= 2 && count <= MostCorners && points[0] != points[count - 1] &&
           std::adjacent_find(points, points + count) == points + count;
}

} // namespace

void QsdXPort::stroke(const QsdPalette& palette, const Extent& extent, const ShapeDrawing& draw) const
{
    const QsdRect area = visibleArea(extent);
    if (isBad() || area.isEmpty()) {
        return;
    }
    const std::unique_ptr<QsdBitmap> mask = coverage(palette, area, draw);
    _graphics->setColor(*palette.foreground());
    fillCovered(*mask, area);
    finish();
}

void QsdXPort::fill(const QsdPalette& palette, const Extent& extent, const ShapeDrawing& draw) const
{
    const QsdRect area = visibleArea(extent);
    if (isBad() || area.isEmpty() || !_graphics->setFill(palette)) {
        return;
    }
    fillCovered(*coverage(palette, area, draw), area);
    finish();
}

bool QsdXPort::strokeDirectly(const QsdPalette& palette, unsigned long count, const QsdPoint* points) const
{
    const int width = directWidth(palette.lineWidth());
    const std::optional<Placing> place = placing(palette);
    if (isBad() || !place || !isSolid(*palette.lineStyle()) || width > WidestDirectLine || count < 2 ||
        (width != 0 && !hasPlainCorners(count, points))) {
        return false;
    }
    std::vector<XPoint> corners;
    for (unsigned long i = 0; i < count; ++i) {
        const std::optional<QsdPoint> at = (*place)(points[i]);
        if (!at) {
            return false;
        }
        corners.push_back(xPoint(*at));
    }
    _graphics->setClip(place->clip);
    _graphics->setColor(*palette.foreground());
    _graphics->setLineWidth(width);
    // A request holds so many; each part begins where the last one ended.
    constexpr std::size_t MostAtOnce = 16000;
    for (std::size_t i = 0; i + 1 < corners.size(); i += MostAtOnce - 1) {
        XDrawLines(_graphics->display(), _graphics->pixmap(), _graphics->gc(), corners.data() + i,
                   static_cast<int>(std::min(MostAtOnce, corners.size() - i)), CoordModeOrigin);
    }
    finish();
    return true;
}

void QsdXPort::drawPoint(const QsdPalette* palette, const QsdPoint& point) const
{
    drawPoints(palette, 1, &point);
}

void QsdXPort::drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const std::optional<Placing> place = placing(*palette);
    if (!place) {
        stroke(*palette, {boundsOf(count, points)},
               [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawPoints(ink, count, points); });
        return;
    }
    std::vector<XPoint> dots;
    for (unsigned long i = 0; i < count; ++i) {
        // What is too far away for X is not to be seen either, unless the drawable is as large.
        const std::int64_t x = std::int64_t{points[i].x} + place->shift.x;
        const std::int64_t y = std::int64_t{points[i].y} + place->shift.y;
        if (x >= 0 && y >= 0 && x < portArea().right() && y < portArea().bottom()) {
            dots.push_back({static_cast<short>(x), static_cast<short>(y)});
        }
    }
    if (isBad() || dots.empty()) {
        return;
    }
    _graphics->setClip(place->clip);
    _graphics->setColor(*palette->foreground());
    XDrawPoints(_graphics->display(), _graphics->pixmap(), _graphics->gc(), dots.data(), static_cast<int>(dots.size()),
                CoordModeOrigin);
    finish();
}

void QsdXPort::drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const
{
    drawSegments(palette, 1, &from, &to);
}

void QsdXPort::drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                            const QsdPoint* ends) const
{
    for (unsigned long i = 0; i < count; ++i) {
        const QsdPoint line[] = {starts[i], ends[i]};
        if (!strokeDirectly(*palette, 2, line)) {
            stroke(*palette, strokeExtent(*palette, boundsOf(2, line)),
                   [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawLine(ink, line[0], line[1]); });
        }
    }
}

void QsdXPort::drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (!strokeDirectly(*palette, count, points)) {
        stroke(*palette, strokeExtent(*palette, boundsOf(count, points)),
               [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawPolyLine(ink, count, points); });
    }
}

void QsdXPort::drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                            const QsdDeltaPoint* deltas) const
{
    stroke(*palette, {},
           [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawPolyLine(ink, origin, count, deltas); });
}

void QsdXPort::fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points, bool convex) const
{
    fill(*palette, {boundsOf(count, points)},
         [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillPolyLine(ink, count, points, convex); });
}

void QsdXPort::fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                            const QsdDeltaPoint* deltas, bool convex) const
{
    fill(*palette, {},
         [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillPolyLine(ink, origin, count, deltas, convex); });
}

void QsdXPort::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    stroke(*palette, strokeExtent(*palette, rect),
           [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawRectangle(ink, rect); });
}

void QsdXPort::fillRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    const std::optional<Placing> place = placing(*palette);
    if (!place) {
        fill(*palette, {rect}, [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillRectangle(ink, rect); });
        return;
    }
    const QsdRect seen = _transformer.transform(rect).intersected(portArea());
    if (isBad() || seen.isEmpty() || !_graphics->setFill(*palette)) {
        return;
    }
    _graphics->setClip(place->clip);
    _graphics->fillRectangles({QsdXRectangle(seen.x, seen.y, seen.width, seen.height)});
    finish();
}

void QsdXPort::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    stroke(*palette, strokeExtent(*palette, rect),
           [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawArc(ink, rect, start, range); });
}

void QsdXPort::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    fill(*palette, {rect},
         [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillArc(ink, rect, start, range); });
}

void QsdXPort::fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    fill(*palette, {}, [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillPaths(ink, count, arrays); });
}

void QsdXPort::drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    stroke(*palette, strokeExtent(*palette, boundsOf(count, points)),
           [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawBezier(ink, count, points); });
}

void QsdXPort::drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    stroke(*palette, strokeExtent(*palette, boundsOf(count, points)),
           [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawClosedBezier(ink, count, points); });
}

void QsdXPort::fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    fill(*palette, {boundsOf(count, points)},
         [=](const QsdBitmap& mask, const QsdPalette* ink) { mask.fillBezier(ink, count, points); });
}
