#include "toolkit/graphics/QsdBitmapData.h"

void QsdBitmapData::copy(const QsdBitmapData& source, const QsdRect& from, const QsdPoint& to)
{
    const QsdRect taken = from.intersected({0, 0, source.width(), source.height()});
    const std::int64_t shiftX = std::int64_t{to.x} - from.x;
    const std::int64_t shiftY = std::int64_t{to.y} - from.y;
    for (std::int64_t y = taken.y; y < taken.bottom(); ++y) {
        for (std::int64_t x = taken.x; x < taken.right(); ++x) {
            const std::int64_t targetX = x + shiftX;
            const std::int64_t targetY = y + shiftY;
            if (targetX >= 0 && targetX < _width && targetY >= 0 && targetY < _height) {
                setPixel(static_cast<std::uint32_t>(targetX), static_cast<std::uint32_t>(targetY),
                         source.pixel(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)));
            }
        }
    }
}
