#include "toolkit/graphics/QsdPattern.h"

#include "toolkit/graphics/QsdPixelCopy_p.h"

#include <algorithm>

namespace {

std::size_t sizeOf(std::uint16_t width, std::uint16_t height)
{
    return (std::size_t{width} + 7) / 8 * height;
}

unsigned char reversed(unsigned char bits)
{
    unsigned char result = 0;
    for (int i = 0; i < 8; ++i) {
        result = static_cast<unsigned char>(result << 1 | ((bits >> i) & 1));
    }
    return result;
}

} // namespace

QsdPattern::QsdPattern(std::uint16_t width, std::uint16_t height, const unsigned char* bits)
    : _width(std::max<std::uint16_t>(width, 1)), _height(std::max<std::uint16_t>(height, 1)),
      _bits(sizeOf(_width, _height), 0xFF)
{
    if (bits != nullptr && width != 0 && height != 0) {
        std::copy_n(bits, _bits.size(), _bits.begin());
    }
}

QsdPattern* QsdPattern::FromXBM(std::uint16_t width, std::uint16_t height, const unsigned char* bits)
{
    std::vector<unsigned char> rows(sizeOf(width, height));
    if (bits != nullptr) {
        std::transform(bits, bits + rows.size(), rows.begin(), reversed);
    }
    return new QsdPattern(width, height, rows.data());
}

unsigned char* QsdPattern::getBitmapData(unsigned long& size) const
{
    return QsdCopyOfPixels(_bits, size);
}
