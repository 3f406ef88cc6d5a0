#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <new>

namespace {

std::size_t sizeOf(std::uint32_t width, std::uint32_t height)
{
    const std::size_t pixels = std::size_t{width} * height;
    if (pixels > SIZE_MAX / 8) {
        throw std::bad_alloc();
    }
    return pixels * 4;
}

} // namespace

QsdRGBBitmapData::QsdRGBBitmapData(std::uint32_t width, std::uint32_t height)
    : QsdBitmapData(width, height), _data(sizeOf(width, height))
{
}

QsdRGB QsdRGBBitmapData::pixel(std::uint32_t x, std::uint32_t y) const
{
    if (x >= width() || y >= height()) {
        return {};
    }
    const unsigned char* const bytes = _data.data() + offset(x, y);
    return {bytes[1], bytes[2], bytes[3]};
}

void QsdRGBBitmapData::setPixel(std::uint32_t x, std::uint32_t y, QsdRGB color)
{
    if (x < width() && y < height()) {
        unsigned char* const bytes = _data.data() + offset(x, y);
        bytes[1] = color.red;
        bytes[2] = color.green;
        bytes[3] = color.blue;
    }
}

std::size_t QsdRGBBitmapData::offset(std::uint32_t x, std::uint32_t y) const
{
    return (std::size_t{y} * width() + x) * 4;
}
