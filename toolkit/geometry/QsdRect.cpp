#include "toolkit/geometry/QsdRect.h"

#include <algorithm>

namespace {

/// The rectangle between two corners; a side longer than 32 bits can tell is cut.
QsdRect between(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom)
{
    constexpr std::int64_t Longest = UINT32_MAX;
    return {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top),
            static_cast<std::uint32_t>(std::min(right - left, Longest)),
            static_cast<std::uint32_t>(std::min(bottom - top, Longest))};
}

} // namespace

bool QsdRect::contains(const QsdPoint& p) const
{
    return p.x >= x && p.x < right() && p.y >= y && p.y < bottom();
}

QsdRect QsdRect::intersected(const QsdRect& other) const
{
    const std::int64_t left = std::max(x, other.x);
    const std::int64_t top = std::max(y, other.y);
    const std::int64_t rightEnd = std::min(right(), other.right());
    const std::int64_t bottomEnd = std::min(bottom(), other.bottom());
    if (left >= rightEnd || top >= bottomEnd) {
        return {};
    }
    return between(left, top, rightEnd, bottomEnd);
}

QsdRect QsdRect::united(const QsdRect& other) const
{
    if (isEmpty()) {
        return other.isEmpty() ? QsdRect{} : other;
    }
    if (other.isEmpty()) {
        return *this;
    }
    return between(std::min(x, other.x), std::min(y, other.y), std::max(right(), other.right()),
                   std::max(bottom(), other.bottom()));
}
