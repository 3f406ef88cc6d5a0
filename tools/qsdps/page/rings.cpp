#include "page/rings.h"

#include "page/units.h"

#include <algorithm>
#include <cstdint>
#include <polyclipping/clipper.hpp>

namespace qsdps {

namespace {

bool isStraight(const QsdPoint& a, const QsdPoint& b, const QsdPoint& c)
{
    const std::int64_t abX = std::int64_t{b.x} - a.x;
    const std::int64_t abY = std::int64_t{b.y} - a.y;
    const std::int64_t bcX = std::int64_t{c.x} - b.x;
    const std::int64_t bcY = std::int64_t{c.y} - b.y;
    return abX * bcY == abY * bcX && abX * bcX + abY * bcY >= 0;
}

Ring ringOf(const Chain& chain)
{
    Ring ring;
    for (const Point& p : chain.points) {
        const QsdPoint point = rounded(p);
        while (ring.size() >= 2 && isStraight(ring[ring.size() - 2], ring.back(), point)) {
            ring.pop_back();
        }
        if (ring.empty() || ring.back() != point) {
            ring.push_back(point);
        }
    }
    while (ring.size() > 1 && ring.back() == ring.front()) {
        ring.pop_back();
    }
    return ring;
}

ClipperLib::Paths toClipper(const Rings& rings)
{
    ClipperLib::Paths paths;
    for (const Ring& ring : rings) {
        ClipperLib::Path path;
        for (const QsdPoint& p : ring) {
            path.emplace_back(p.x, p.y);
        }
        paths.push_back(std::move(path));
    }
    return paths;
}

Rings fromClipper(const ClipperLib::Paths& paths)
{
    Rings rings;
    for (const ClipperLib::Path& path : paths) {
        Ring ring;
        for (const ClipperLib::IntPoint& p : path) {
            ring.push_back({static_cast<std::int32_t>(p.X), static_cast<std::int32_t>(p.Y)});
        }
        rings.push_back(std::move(ring));
    }
    return rings;
}

ClipperLib::PolyFillType fillType(FillRule rule)
{
    return rule == FillRule::EvenOdd ? ClipperLib::pftEvenOdd : ClipperLib::pftNonZero;
}

Rings combined(ClipperLib::ClipType operation, const Rings& subject, FillRule rule, const Rings& clip)
{
    ClipperLib::Clipper clipper;
    clipper.AddPaths(toClipper(subject), ClipperLib::ptSubject, true);
    clipper.AddPaths(toClipper(clip), ClipperLib::ptClip, true);
    ClipperLib::Paths result;
    clipper.Execute(operation, result, fillType(rule), ClipperLib::pftNonZero);
    return fromClipper(result);
}

} // namespace

Rings ringsOf(const std::vector<Chain>& chains)
{
    Rings rings;
    for (const Chain& chain : chains) {
        Ring ring = ringOf(chain);
        if (ring.size() >= 3) {
            rings.push_back(std::move(ring));
        }
    }
    return rings;
}

QsdRect boundsOf(const Rings& rings)
{
    std::int32_t left = INT32_MAX;
    std::int32_t top = INT32_MAX;
    std::int32_t right = INT32_MIN;
    std::int32_t bottom = INT32_MIN;
    for (const Ring& ring : rings) {
        for (const QsdPoint& p : ring) {
            left = std::min(left, p.x);
            top = std::min(top, p.y);
            right = std::max(right, p.x);
            bottom = std::max(bottom, p.y);
        }
    }
    if (left > right) {
        return {};
    }
    return {left, top, static_cast<std::uint32_t>(std::int64_t{right} - left),
            static_cast<std::uint32_t>(std::int64_t{bottom} - top)};
}

std::optional<QsdRect> asRectangle(const Rings& rings)
{
    if (rings.size() != 1 || rings[0].size() != 4) {
        return std::nullopt;
    }
    const Ring& r = rings[0];
    const bool acrossFirst = r[0].y == r[1].y && r[1].x == r[2].x && r[2].y == r[3].y && r[3].x == r[0].x;
    const bool downFirst = r[0].x == r[1].x && r[1].y == r[2].y && r[2].x == r[3].x && r[3].y == r[0].y;
    if (!acrossFirst && !downFirst) {
        return std::nullopt;
    }
    return boundsOf(rings);
}

Rings ringsOf(const QsdRect& rect)
{
    const auto right = static_cast<std::int32_t>(std::min<std::int64_t>(rect.right(), INT32_MAX));
    const auto bottom = static_cast<std::int32_t>(std::min<std::int64_t>(rect.bottom(), INT32_MAX));
    return {{{rect.x, rect.y}, {right, rect.y}, {right, bottom}, {rect.x, bottom}}};
}

std::size_t pointsOf(const Rings& rings)
{
    std::size_t count = 0;
    for (const Ring& ring : rings) {
        count += ring.size();
    }
    return count;
}

Rings intersection(const Rings& rings, FillRule rule, const Rings& clip)
{
    return combined(ClipperLib::ctIntersection, rings, rule, clip);
}

Rings unionOf(const Rings& a, const Rings& b)
{
    return combined(ClipperLib::ctUnion, a, FillRule::NonZero, b);
}

Rings difference(const Rings& a, const Rings& b)
{
    return combined(ClipperLib::ctDifference, a, FillRule::NonZero, b);
}

Rings grown(const Rings& rings, double distance)
{
    ClipperLib::ClipperOffset offset;
    offset.AddPaths(toClipper(rings), ClipperLib::jtMiter, ClipperLib::etClosedPolygon);
    ClipperLib::Paths result;
    offset.Execute(result, distance);
    return fromClipper(result);
}

Rings simplified(const Rings& rings, FillRule rule)
{
    return combined(ClipperLib::ctUnion, rings, rule, {});
}

} // namespace qsdps
