// Generic placement of bitmaps in rectangles.
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <cstdint>

namespace {

/// Where a side of `length` begins that is to lie in a side that begins at `start`: at its beginning, middle or end.
std::int32_t placed(std::int32_t start, std::uint32_t room, std::uint32_t length, bool atStart, bool atEnd)
{
    const std::int64_t spare = std::int64_t{room} - length;
    const std::int64_t offset = atStart ? 0 : atEnd ? spare : spare / 2;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(start + offset, INT32_MIN, INT32_MAX));
}

} // namespace

void QsdPort::drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& dest, const QsdRegion* clip,
                         QsdPosition position, bool transparent) const
{
    if (bitmap != nullptr) {
        const QsdRect whole{0, 0, bitmap->pixels().width(), bitmap->pixels().height()};
        drawBitmap(palette, bitmap, whole, dest, clip, position, transparent);
    }
}

void QsdPort::drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& from, const QsdRect& dest,
                         const QsdRegion* clip, QsdPosition position, bool transparent) const
{
    if (bitmap == nullptr || from.isEmpty() || dest.isEmpty()) {
        return;
    }
    const QsdPoint at{
        placed(dest.x, dest.width, from.width, (position & QsdPositionLeft) != 0, (position & QsdPositionRight) != 0),
        placed(dest.y, dest.height, from.height, (position & QsdPositionTop) != 0,
               (position & QsdPositionBottom) != 0)};
    const auto restricted = QsdHandle<QsdPalette>::Adopt(new QsdPalette(palette));
    QsdRegion region = palette->clipRegion();
    if (dest.intersected({at.x, at.y, from.width, from.height}) != QsdRect{at.x, at.y, from.width, from.height}) {
        region.intersect(dest);
    }
    if (clip != nullptr) {
        region.intersect(*clip);
    }
    restricted->setClipRegion(region);
    if (transparent) {
        drawTransparentBitmap(restricted.get(), bitmap, from, at);
    } else {
        drawBitmap(restricted.get(), bitmap, from, at);
    }
}
