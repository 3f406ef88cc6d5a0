#include "bitmap_sources.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <random>

namespace {

constexpr std::uint32_t RowBytes = (SourcePixels::Width + 7) / 8;

std::uint8_t component(std::mt19937& random, unsigned short screenDepth)
{
    // The colour table of 8 bits has every sixth of the way to 255.
    return static_cast<std::uint8_t>(screenDepth == 8 ? random() % 6 * 51 : random() % 256);
}

QsdRGB anyColor(std::mt19937& random, unsigned short screenDepth)
{
    if (screenDepth == 1) {
        return random() % 2 == 0 ? QsdRGB{} : QsdRGB{255, 255, 255};
    }
    const std::uint8_t red = component(random, screenDepth);
    const std::uint8_t green = component(random, screenDepth);
    return {red, green, component(random, screenDepth)};
}

/// The rows cut to a smaller size.
std::unique_ptr<QsdBitmap> cut(QsdDisplay& display, const std::vector<unsigned char>& rows, std::uint32_t width,
                               std::uint32_t height)
{
    std::vector<unsigned char> bits;
    for (std::uint32_t y = 0; y < height; ++y) {
        const auto row = rows.begin() + std::ptrdiff_t{y} * RowBytes;
        bits.insert(bits.end(), row, row + static_cast<std::ptrdiff_t>((width + 7) / 8));
    }
    return QsdBitmap::FromBits(&display, width, height, bits.data());
}

bool isInside(std::int64_t x, std::int64_t y, std::uint32_t width, std::uint32_t height)
{
    return x >= 0 && y >= 0 && x < width && y < height;
}

} // namespace

SourcePixels::SourcePixels(unsigned short screenDepth)
    : _screenDepth(screenDepth), _colors(std::make_unique<QsdRGBBitmapData>(Width, Height))
{
    std::mt19937 random(20);
    for (std::uint32_t i = 0; i < RowBytes * Height; ++i) {
        _bits.push_back(static_cast<unsigned char>(random() >> 24));
        _mask.push_back(static_cast<unsigned char>(random() >> 24));
    }
    for (std::uint32_t y = 0; y < Height; ++y) {
        for (std::uint32_t x = 0; x < Width; ++x) {
            _colors->setPixel(x, y, anyColor(random, screenDepth));
        }
    }
}

std::unique_ptr<QsdBitmap> SourcePixels::bitmap(Source source, QsdDisplay& display) const
{
    if (source == Source::Bits) {
        return cut(display, _bits, Width, Height);
    }
    auto bitmap = std::make_unique<QsdBitmap>(&display, *_colors);
    if (source == Source::Masked) {
        bitmap->setMask(cut(display, _mask, Width, Height));
    } else if (source == Source::HalfMasked) {
        bitmap->setMask(cut(display, _mask, MaskWidth, MaskHeight));
    }
    return bitmap;
}

bool SourcePixels::bitOf(const std::vector<unsigned char>& rows, std::int64_t x, std::int64_t y)
{
    const auto byte = static_cast<std::size_t>(y) * RowBytes + static_cast<std::size_t>(x) / 8;
    return isInside(x, y, Width, Height) && (rows[byte] & (0x80U >> (x % 8))) != 0;
}

bool SourcePixels::bit(Source source, std::int64_t x, std::int64_t y) const
{
    // Black sets bits.
    return source == Source::Bits ? bitOf(_bits, x, y) : isInside(x, y, Width, Height) && color(x, y) == QsdRGB{};
}

QsdRGB SourcePixels::color(std::int64_t x, std::int64_t y) const
{
    return isInside(x, y, Width, Height) ? _colors->pixel(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y))
                                         : QsdRGB{};
}

bool SourcePixels::inMask(Source source, std::int64_t x, std::int64_t y) const
{
    return (source == Source::Masked || (source == Source::HalfMasked && isInside(x, y, MaskWidth, MaskHeight))) &&
           bitOf(_mask, x, y);
}
