#include "toolkit/raster/QsdPixels.h"

#include "toolkit/raster/QsdColorTable.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {

std::size_t sizeOf(std::size_t rowBytes, std::uint32_t height)
{
    if (height != 0 && rowBytes > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / height) {
        throw std::bad_alloc();
    }
    return rowBytes * height;
}

unsigned bitOf(std::uint32_t x)
{
    return 0x80U >> (x % 8);
}

void putBit(unsigned char* row, std::uint32_t x, bool set)
{
    row[x / 8] = static_cast<unsigned char>(set ? row[x / 8] | bitOf(x) : row[x / 8] & ~bitOf(x));
}

} // namespace

QsdPixels::QsdPixels(std::uint32_t width, std::uint32_t height, std::uint16_t depth)
    : _width(width), _height(height), _depth(depth), _rowBytes(RowBytes(width, depth)),
      _bytes(sizeOf(_rowBytes, height))
{
}

std::size_t QsdPixels::RowBytes(std::uint32_t width, std::uint16_t depth)
{
    if (depth == 1) {
        return (std::size_t{width} + 7) / 8;
    }
    return std::size_t{width} * (depth <= 8 ? 1 : 4);
}

QsdPixels::Value QsdPixels::get(std::uint32_t x, std::uint32_t y) const
{
    const unsigned char* const pixels = row(y);
    if (_depth == 1) {
        return (pixels[x / 8] & bitOf(x)) != 0 ? 1 : 0;
    }
    if (_depth <= 8) {
        return pixels[x];
    }
    const unsigned char* const pixel = pixels + std::size_t{x} * 4;
    return Value{pixel[1]} << 16 | Value{pixel[2]} << 8 | Value{pixel[3]};
}

void QsdPixels::set(std::uint32_t x, std::uint32_t y, Value value)
{
    unsigned char* const pixels = row(y);
    if (_depth == 1) {
        putBit(pixels, x, value != 0);
    } else if (_depth <= 8) {
        pixels[x] = static_cast<unsigned char>(value);
    } else {
        unsigned char* const pixel = pixels + std::size_t{x} * 4;
        pixel[1] = static_cast<unsigned char>(value >> 16);
        pixel[2] = static_cast<unsigned char>(value >> 8);
        pixel[3] = static_cast<unsigned char>(value);
    }
}

void QsdPixels::read(const QsdRect& rect, unsigned char* out) const
{
    const std::size_t outBytes = RowBytes(rect.width, _depth);
    std::memset(out, 0, outBytes * rect.height);
    const QsdRect inside = rect.intersected({0, 0, _width, _height});
    for (std::int64_t y = inside.y; y < inside.bottom(); ++y) {
        const unsigned char* const from = row(static_cast<std::uint32_t>(y));
        unsigned char* const to = out + static_cast<std::size_t>(y - rect.y) * outBytes;
        const auto shift = static_cast<std::size_t>(std::int64_t{inside.x} - rect.x);
        if (_depth == 1) {
            for (std::uint32_t i = 0; i < inside.width; ++i) {
                const std::uint32_t x = static_cast<std::uint32_t>(inside.x) + i;
                putBit(to, static_cast<std::uint32_t>(shift) + i, (from[x / 8] & bitOf(x)) != 0);
            }
        } else {
            const std::size_t pixelBytes = _depth <= 8 ? 1 : 4;
            std::memcpy(to + shift * pixelBytes, from + static_cast<std::size_t>(inside.x) * pixelBytes,
                        inside.width * pixelBytes);
        }
    }
}

void QsdPixels::assign(const QsdBitmapData& data, const QsdColorTable& colors)
{
    // Neighbours are often equal, and looking for the nearest entry is slow.
    QsdRGB last;
    Value value = ValueOf(last, _depth, colors);
    for (std::uint32_t y = 0; y < _height && _width != 0; ++y) {
        for (std::uint32_t x = 0; x < _width; ++x) {
            const QsdRGB color = data.pixel(x, y);
            if (color != last) {
                last = color;
                value = ValueOf(color, _depth, colors);
            }
            set(x, y, value);
        }
    }
}

QsdPixels::Value QsdPixels::ValueOf(QsdRGB color, std::uint16_t depth, const QsdColorTable& colors)
{
    if (depth == 1) {
        return (color.red * 11 + color.green * 16 + color.blue * 5) >> 5 < 128 ? 1 : 0;
    }
    if (depth <= 8) {
        return colors.nearest(color);
    }
    return Value{color.red} << 16 | Value{color.green} << 8 | Value{color.blue};
}

QsdRGB QsdPixels::ColorOf(Value value, std::uint16_t depth, const QsdColorTable& colors)
{
    if (depth <= 8) {
        return colors.color(value);
    }
    return {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
            static_cast<std::uint8_t>(value)};
}
