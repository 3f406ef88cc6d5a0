#include "toolkit/geometry/QsdRegion.h"

#include "toolkit/geometry/QsdRegionBands_p.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t MostRects = std::numeric_limits<std::uint16_t>::max();

/// How many rectangles a list that add() has filled takes again after it was put in order; the fewer, the more often
/// that has to be done.
constexpr std::size_t RoomForMore = 4096;

} // namespace

// A quarter of the coordinate space on each side of the origin, so that its corners stay in range when it is moved.
const QsdRect QsdRegion::_FullRect = {-0x40000000, -0x40000000, 0x80000000U, 0x80000000U};

QsdRegion::QsdRegion(const QsdRect& rect)
{
    add(rect);
}

QsdRegion QsdRegion::Full()
{
    QsdRegion region;
    region.setFull();
    return region;
}

bool QsdRegion::contains(const QsdPoint& point) const
{
    return _full ||
           std::any_of(_rects.begin(), _rects.end(), [&](const QsdRect& rect) { return rect.contains(point); });
}

void QsdRegion::empty()
{
    _rects.clear();
    _bounds = {};
    _full = false;
    _canonical = true;
}

void QsdRegion::setFull()
{
    empty();
    _full = true;
    _bounds = _FullRect;
}

void QsdRegion::add(const QsdRect& rect)
{
    if (_full || rect.isEmpty()) {
        return;
    }
    if (_rects.size() == MostRects) {
        setCanonical(QsdUniteRects(_rects, MostRects - RoomForMore));
    }
    _canonical = _rects.empty();
    _rects.push_back(rect);
    _bounds = _bounds.united(rect);
}

void QsdRegion::unite(const QsdRegion& other)
{
    if (_full || other.isEmpty()) {
        return;
    }
    if (other._full) {
        setFull();
        return;
    }
    std::vector<QsdRect> all = _rects;
    all.insert(all.end(), other._rects.begin(), other._rects.end());
    setCanonical(QsdUniteRects(all, MostRects));
}

void QsdRegion::intersect(const QsdRegion& other)
{
    if (other._full) {
        return;
    }
    if (_full) {
        *this = other;
    } else if (_rects.size() == 1 && other._rects.size() == 1) {
        *this = QsdRegion(_rects.front().intersected(other._rects.front()));
    } else {
        setCanonical(QsdIntersectRects(_rects, other._rects, MostRects));
    }
}

void QsdRegion::translate(std::int32_t dx, std::int32_t dy)
{
    if (_full) {
        return;
    }
    bool held = false;
    const auto move = [&](std::int32_t& coordinate, std::int32_t distance) {
        const std::int64_t wanted = std::int64_t{coordinate} + distance;
        coordinate = static_cast<std::int32_t>(std::clamp<std::int64_t>(
            wanted, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
        held = held || coordinate != wanted;
    };
    for (QsdRect& rect : _rects) {
        move(rect.x, dx);
        move(rect.y, dy);
    }
    if (held) {
        _canonical = _rects.size() == 1;
    }
    updateBounds();
}

void QsdRegion::setCanonical(std::vector<QsdRect> rects)
{
    _rects = std::move(rects);
    _canonical = true;
    updateBounds();
}

void QsdRegion::updateBounds()
{
    _bounds = {};
    for (const QsdRect& rect : _rects) {
        _bounds = _bounds.united(rect);
    }
}

bool operator==(const QsdRegion& a, const QsdRegion& b)
{
    if (a._full || b._full) {
        return a._full == b._full;
    }
    if (a._rects == b._rects) {
        return true;
    }
    if ((a._canonical && b._canonical) || a._bounds.x != b._bounds.x || a._bounds.y != b._bounds.y) {
        return false;
    }
    return QsdUniteRects(a._rects, MostRects) == QsdUniteRects(b._rects, MostRects);
}
