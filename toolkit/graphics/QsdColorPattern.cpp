#include "toolkit/graphics/QsdColorPattern.h"

#include "toolkit/graphics/QsdPixelCopy_p.h"

QsdColorPattern::QsdColorPattern(std::uint16_t width, std::uint16_t height, std::uint16_t depth,
                                 const unsigned char* data, unsigned long size)
    : _width(width), _height(height), _depth(depth), _data(data, data + size)
{
}

unsigned char* QsdColorPattern::getBitmapData(unsigned long& size) const
{
    return QsdCopyOfPixels(_data, size);
}
