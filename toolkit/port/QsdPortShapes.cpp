// Shapes that every port can draw with its primitive operations.
#include "toolkit/port/QsdPort.h"

#include "toolkit/port/QsdDisplay.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

std::int32_t held(double value)
{
    return static_cast<std::int32_t>(std::clamp(std::floor(value + 0.5), -2147483648.0, 2147483647.0));
}

QsdPoint pointOf(double x, double y)
{
    return {held(x), held(y)};
}

struct Sides {
    double left;
    double top;
    double right;
    double bottom;
};

Sides sidesOf(const QsdRect& rect)
{
    return {static_cast<double>(rect.x), static_cast<double>(rect.y), static_cast<double>(rect.right()),
            static_cast<double>(rect.bottom())};
}

/// The outline of a rectangle with round corners as cubic curves; the straight sides are curves too.
std::array<QsdPoint, 24> roundOutline(const QsdRect& rect, unsigned short radius)
{
    const Sides s = sidesOf(rect);
    const double r = std::min<double>(radius, std::min(rect.width, rect.height) / 2.0);
    constexpr double Curvature = 0.5522847498; // control points of a quarter circle
    const double c = r * (1 - Curvature);
    return {pointOf(s.left + r, s.top),     pointOf(s.left + r, s.top),     pointOf(s.right - r, s.top),
            pointOf(s.right - r, s.top),    pointOf(s.right - c, s.top),    pointOf(s.right, s.top + c),
            pointOf(s.right, s.top + r),    pointOf(s.right, s.top + r),    pointOf(s.right, s.bottom - r),
            pointOf(s.right, s.bottom - r), pointOf(s.right, s.bottom - c), pointOf(s.right - c, s.bottom),
            pointOf(s.right - r, s.bottom), pointOf(s.right - r, s.bottom), pointOf(s.left + r, s.bottom),
            pointOf(s.left + r, s.bottom),  pointOf(s.left + c, s.bottom),  pointOf(s.left, s.bottom - c),
            pointOf(s.left, s.bottom - r),  pointOf(s.left, s.bottom - r),  pointOf(s.left, s.top + r),
            pointOf(s.left, s.top + r),     pointOf(s.left, s.top + c),     pointOf(s.left + c, s.top)};
}

/// A polygon that approximates the round outline, for ports whose fills of curves are not to be relied on.
std::vector<QsdPoint> roundPolygon(const QsdRect& rect, unsigned short radius)
{
    constexpr int StepsPerCorner = 16;
    constexpr double QuarterTurn = 1.57079632679489662;
    const Sides s = sidesOf(rect);
    const double r = std::min<double>(radius, std::min(rect.width, rect.height) / 2.0);
    const double centers[4][2] = {
        {s.right - r, s.top + r}, {s.left + r, s.top + r}, {s.left + r, s.bottom - r}, {s.right - r, s.bottom - r}};
    std::vector<QsdPoint> polygon;
    for (int corner = 0; corner < 4; ++corner) {
        for (int step = 0; step <= StepsPerCorner; ++step) {
            const double angle = QuarterTurn * (corner + static_cast<double>(step) / StepsPerCorner);
            polygon.push_back(
                pointOf(centers[corner][0] + r * std::cos(angle), centers[corner][1] - r * std::sin(angle)));
        }
    }
    return polygon;
}

QsdHandle<QsdPalette> copyOf(const QsdPalette* palette)
{
    return QsdHandle<QsdPalette>::Adopt(new QsdPalette(palette));
}

/// The palette with its foreground laid on solidly.
QsdHandle<QsdPalette> solidOf(const QsdPalette* palette)
{
    QsdHandle<QsdPalette> solid = copyOf(palette);
    solid->setFillStyle(QsdFillPattern);
    solid->setPattern(nullptr);
    return solid;
}

/// The number of lines that newlines divide a text into.
std::size_t lineCount(std::string_view text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

} // namespace

void QsdPort::clearArea(const QsdPalette* palette, const QsdRect& rect) const
{
    const QsdHandle<QsdPalette> cleared = solidOf(palette);
    cleared->setForeground(palette->background());
    fillRectangle(cleared.get(), rect);
}

void QsdPort::clear(const QsdPalette* palette) const
{
    clearArea(palette, {0, 0, static_cast<std::uint32_t>(_width), static_cast<std::uint32_t>(_height)});
}

void QsdPort::drawRoundRectangle(const QsdPalette* palette, const QsdRect& rect, unsigned short radius) const
{
    const auto outline = roundOutline(rect, radius);
    drawClosedBezier(palette, outline.size(), outline.data());
}

void QsdPort::fillRoundRectangle(const QsdPalette* palette, const QsdRect& rect, unsigned short radius) const
{
    const std::vector<QsdPoint> polygon = roundPolygon(rect, radius);
    fillPolyLine(palette, polygon.size(), polygon.data(), true);
}

void QsdPort::drawArrow(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to, float at) const
{
    constexpr double LeastHead = 6;
    constexpr double HeadPerWidth = 4;
    drawLine(palette, from, to);
    const double dx = static_cast<double>(to.x) - from.x;
    const double dy = static_cast<double>(to.y) - from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0) {
        return;
    }
    const double part = std::isnan(at) ? 1.0 : std::clamp<double>(at, 0, 1);
    const double head = std::max(LeastHead, HeadPerWidth * palette->lineWidth());
    const double alongX = dx / length * head;
    const double alongY = dy / length * head;
    const double tipX = from.x + dx * part;
    const double tipY = from.y + dy * part;
    const QsdPoint triangle[] = {pointOf(tipX, tipY), pointOf(tipX - alongX - alongY / 2, tipY - alongY + alongX / 2),
                                 pointOf(tipX - alongX + alongY / 2, tipY - alongY - alongX / 2)};
    fillPolyLine(solidOf(palette).get(), 3, triangle, true);
}

void QsdPort::drawMarker(const QsdPalette* palette, const QsdPoint& at, QsdMarkerType type, unsigned short size) const
{
    const double half = size / 2.0;
    const auto corner = [&](double x, double y) { return pointOf(at.x + x * half, at.y + y * half); };
    const QsdRect box{corner(-1, -1).x, corner(-1, -1).y, size, size};
    const QsdPoint diamond[] = {corner(0, -1), corner(1, 0), corner(0, 1), corner(-1, 0), corner(0, -1)};
    const QsdPoint triangle[] = {corner(0, -1), corner(1, 1), corner(-1, 1), corner(0, -1)};
    switch (type) {
    case QsdMarkerPlus:
        drawLine(palette, corner(-1, 0), corner(1, 0));
        drawLine(palette, corner(0, -1), corner(0, 1));
        break;
    case QsdMarkerCross:
        drawLine(palette, corner(-1, -1), corner(1, 1));
        drawLine(palette, corner(-1, 1), corner(1, -1));
        break;
    case QsdMarkerSquare:
        drawRectangle(palette, box);
        break;
    case QsdMarkerFilledSquare:
        fillRectangle(palette, box);
        break;
    case QsdMarkerCircle:
        drawArc(palette, box, 0, 360);
        break;
    case QsdMarkerFilledCircle:
        fillArc(palette, box, 0, 360);
        break;
    case QsdMarkerDiamond:
        drawPolyLine(palette, 5, diamond);
        break;
    case QsdMarkerFilledDiamond:
        fillPolyLine(palette, 4, diamond, true);
        break;
    case QsdMarkerTriangle:
        drawPolyLine(palette, 4, triangle);
        break;
    case QsdMarkerFilledTriangle:
        fillPolyLine(palette, 3, triangle, true);
        break;
    }
}

void QsdPort::drawMarkers(const QsdPalette* palette, unsigned long count, const QsdPoint* points, QsdMarkerType type,
                          unsigned short size) const
{
    std::for_each(points, points + count, [&](const QsdPoint& at) { drawMarker(palette, at, type, size); });
}

void QsdPort::drawReliefRectangle(const QsdPalette* face, const QsdPalette* light, const QsdPalette* dark,
                                  const QsdRect& rect, unsigned short thickness) const
{
    const Sides s = sidesOf(rect);
    const double t = std::min<double>(thickness, std::min(rect.width, rect.height) / 2.0);
    fillRectangle(face, rect);
    if (t == 0) {
        return;
    }
    const QsdPoint upper[] = {pointOf(s.left, s.bottom),      pointOf(s.left, s.top),
                              pointOf(s.right, s.top),        pointOf(s.right - t, s.top + t),
                              pointOf(s.left + t, s.top + t), pointOf(s.left + t, s.bottom - t)};
    const QsdPoint lower[] = {
        pointOf(s.left, s.bottom),       pointOf(s.right, s.bottom),         pointOf(s.right, s.top),
        pointOf(s.right - t, s.top + t), pointOf(s.right - t, s.bottom - t), pointOf(s.left + t, s.bottom - t)};
    fillPolyLine(light, 6, upper, false);
    fillPolyLine(dark, 6, lower, false);
}

void QsdPort::drawReliefDiamond(const QsdPalette* face, const QsdPalette* light, const QsdPalette* dark,
                                const QsdRect& rect, unsigned short thickness) const
{
    const Sides s = sidesOf(rect);
    const double middleX = (s.left + s.right) / 2;
    const double middleY = (s.top + s.bottom) / 2;
    const double t = std::min<double>(thickness, std::min(rect.width, rect.height) / 2.0);
    const QsdPoint outer[] = {pointOf(s.left, middleY), pointOf(middleX, s.top), pointOf(s.right, middleY),
                              pointOf(middleX, s.bottom)};
    fillPolyLine(face, 4, outer, true);
    if (t == 0) {
        return;
    }
    const QsdPoint inner[] = {pointOf(s.left + t, middleY), pointOf(middleX, s.top + t), pointOf(s.right - t, middleY),
                              pointOf(middleX, s.bottom - t)};
    const QsdPoint upper[] = {outer[0], outer[1], outer[2], inner[2], inner[1], inner[0]};
    const QsdPoint lower[] = {outer[0], outer[3], outer[2], inner[2], inner[3], inner[0]};
    fillPolyLine(light, 6, upper, false);
    fillPolyLine(dark, 6, lower, false);
}

void QsdPort::drawReliefLine(const QsdPalette* light, const QsdPalette* dark, const QsdPoint& from, const QsdPoint& to,
                             unsigned short thickness) const
{
    const QsdHandle<QsdPalette> upper = copyOf(dark);
    const QsdHandle<QsdPalette> lower = copyOf(light);
    upper->setLineStyle(nullptr, thickness);
    lower->setLineStyle(nullptr, thickness);
    const double dx = static_cast<double>(to.x) - from.x;
    const double dy = static_cast<double>(to.y) - from.y;
    // The groove is lit from the top left: the light line lies below a flat line and to the right of a steep one.
    const bool steep = std::fabs(dy) > std::fabs(dx);
    const double shiftX = steep ? thickness : 0;
    const double shiftY = steep ? 0 : thickness;
    drawLine(upper.get(), from, to);
    drawLine(lower.get(), pointOf(from.x + shiftX, from.y + shiftY), pointOf(to.x + shiftX, to.y + shiftY));
}

void QsdPort::drawShadowRectangle(const QsdPalette* face, const QsdPalette* shadow, const QsdRect& rect,
                                  unsigned short thickness, QsdPosition position) const
{
    const int x = (position & QsdPositionLeft) != 0 ? -1 : 1;
    const int y = (position & QsdPositionTop) != 0 ? -1 : 1;
    const QsdPoint cast =
        pointOf(static_cast<double>(rect.x) + x * thickness, static_cast<double>(rect.y) + y * thickness);
    fillRectangle(shadow, {cast.x, cast.y, rect.width, rect.height});
    fillRectangle(face, rect);
}

void QsdPort::drawLabel(const QsdPalette* palette, const QsdRect& rect, const char* text, int length,
                        const QsdRegion* clip, QsdPosition position) const
{
    if (text == nullptr || rect.isEmpty()) {
        return;
    }
    std::string_view rest(text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length));
    const QsdFont& font = *palette->font();
    const double lineHeight = font.ascent() + font.descent();
    const double height = lineHeight * static_cast<double>(lineCount(rest));
    const Sides s = sidesOf(rect);

    double top = (s.top + s.bottom - height) / 2;
    if ((position & QsdPositionTop) != 0) {
        top = s.top;
    } else if ((position & QsdPositionBottom) != 0) {
        top = s.bottom - height;
    }
    double x = (s.left + s.right) / 2;
    QsdPosition alignment = QsdPositionCenter;
    if ((position & QsdPositionLeft) != 0) {
        x = s.left;
        alignment = QsdPositionLeft;
    } else if ((position & QsdPositionRight) != 0) {
        x = s.right;
        alignment = QsdPositionRight;
    }

    const QsdHandle<QsdPalette> restricted = copyOf(palette);
    QsdRegion region = palette->clipRegion();
    region.intersect(rect);
    if (clip != nullptr) {
        region.intersect(*clip);
    }
    restricted->setClipRegion(region);
    for (double baseline = top + font.ascent();; baseline += lineHeight) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        if (!line.empty()) {
            drawString(restricted.get(), pointOf(x, baseline), line.data(), static_cast<int>(line.size()), alignment);
        }
        if (end == std::string_view::npos) {
            return;
        }
        rest.remove_prefix(end + 1);
    }
}

void QsdPort::drawPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    std::vector<QsdPoint> closed;
    for (unsigned long i = 0; i < count; ++i) {
        const unsigned long points = arrays[i].count();
        if (points < 2) {
            continue;
        }
        closed.assign(arrays[i].points(), arrays[i].points() + points);
        closed.push_back(closed.front());
        drawPolyLine(palette, closed.size(), closed.data());
    }
}
