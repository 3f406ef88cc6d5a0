#include "toolkit/graphics/QsdColorPattern.h"

#include "toolkit/graphics/QsdPixelCopy_p.h"

#include <algorithm>

QsdColorPattern::QsdColorPattern(std::uint16_t width, std::uint16_t height, std::uint16_t depth,
                                 const unsigned char* data, unsigned long size)
    : _width(std::max<std::uint16_t>(width, 1)), _height(std::max<std::uint16_t>(height, 1)), _depth(depth)
{
    if (data != nullptr) {
        _data.assign(data, data + size);
    }
}

unsigned char* QsdColorPattern::getBitmapData(unsigned long& size) const
{
    return QsdCopyOfPixels(_data, size);
}
