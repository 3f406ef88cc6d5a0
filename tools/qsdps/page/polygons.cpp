#include "page/polygons.h"

#include "toolkit/geometry/QsdPointArray.h"

#include <cstdint>

namespace qsdps {

namespace {

bool fitsDelta(std::int64_t distance)
{
    return distance >= INT16_MIN && distance <= INT16_MAX;
}

/// The steps between the points; none when one is too long for a step.
std::vector<QsdDeltaPoint> stepsOf(const Ring& points)
{
    std::vector<QsdDeltaPoint> steps;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const std::int64_t dx = std::int64_t{points[i].x} - points[i - 1].x;
        const std::int64_t dy = std::int64_t{points[i].y} - points[i - 1].y;
        if (!fitsDelta(dx) || !fitsDelta(dy)) {
            return {};
        }
        steps.push_back({static_cast<std::int16_t>(dx), static_cast<std::int16_t>(dy)});
    }
    return steps;
}

} // namespace

void fillPolygons(const QsdPort& port, const QsdPalette& palette, const Rings& rings)
{
    if (const std::optional<QsdRect> rect = asRectangle(rings)) {
        port.fillRectangle(&palette, *rect);
        return;
    }
    if (rings.size() == 1) {
        const Ring& ring = rings.front();
        const std::vector<QsdDeltaPoint> steps = stepsOf(ring);
        if (steps.empty()) {
            port.fillPolyLine(&palette, ring.size(), ring.data(), false);
        } else {
            port.fillPolyLine(&palette, ring.front(), ring.size(), steps.data(), false);
        }
        return;
    }
    std::vector<QsdPointArray> arrays;
    for (const Ring& ring : rings) {
        arrays.emplace_back(ring.size(), ring.data());
    }
    port.fillPaths(&palette, arrays.size(), arrays.data());
}

void drawLine(const QsdPort& port, const QsdPalette& palette, const Ring& points)
{
    if (points.size() == 2) {
        port.drawLine(&palette, points[0], points[1]);
        return;
    }
    const std::vector<QsdDeltaPoint> steps = stepsOf(points);
    if (steps.empty()) {
        port.drawPolyLine(&palette, points.size(), points.data());
    } else {
        port.drawPolyLine(&palette, points.front(), points.size(), steps.data());
    }
}

} // namespace qsdps
