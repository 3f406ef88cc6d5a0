#include "toolkit/x11/QsdXImage_p.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// XGetPixel and XPutPixel know every layout that servers have.

namespace {

/// Translates pixel by pixel; neighbours are often equal.
template <class From, class To, class Translate>
class Translation {
public:
    explicit Translation(Translate translate) : _translate(translate), _to(translate(_from)) {}

    [[nodiscard]] To operator()(From from)
    {
        if (from != _from) {
            _from = from;
            _to = _translate(from);
        }
        return _to;
    }

private:
    Translate _translate;
    From _from = 0;
    To _to;
};

} // namespace

void QsdXReadImage(XImage& image, const QsdXColors& colors, std::uint32_t x, std::uint32_t y, QsdPixels& pixels)
{
    const auto translate = [&](unsigned long pixel) { return colors.value(pixel, pixels.depth()); };
    Translation<unsigned long, QsdPixels::Value, decltype(translate)> valueOf(translate);
    for (int row = 0; row < image.height; ++row) {
        for (int column = 0; column < image.width; ++column) {
            pixels.set(x + static_cast<std::uint32_t>(column), y + static_cast<std::uint32_t>(row),
                       valueOf(XGetPixel(&image, column, row)));
        }
    }
}

QsdXImageHandle QsdXMakeImage(const QsdXConnection& connection, const QsdXColors& colors, const QsdPixels& pixels,
                              std::uint32_t first, std::uint32_t rows)
{
    Display* const display = connection.display();
    const bool bits = pixels.depth() == 1;
    const int rowBytes = bits ? static_cast<int>(pixels.rowBytes()) : 0;
    QsdXImageHandle image(XCreateImage(display, DefaultVisual(display, connection.screen()), pixels.depth(),
                                       bits ? XYBitmap : ZPixmap, 0, nullptr, pixels.width(), rows,
                                       bits ? 8 : BitmapPad(display), rowBytes));
    if (image == nullptr) {
        return image;
    }
    // XDestroyImage gives the data back with free.
    image->data = static_cast<char*>(std::calloc(rows, static_cast<std::size_t>(image->bytes_per_line)));
    if (image->data == nullptr) {
        return nullptr;
    }
    if (bits) {
        image->byte_order = MSBFirst;
        image->bitmap_bit_order = MSBFirst;
        image->bitmap_unit = 8;
        std::memcpy(image->data, pixels.row(first), pixels.rowBytes() * rows);
        return image;
    }
    const auto translate = [&](QsdPixels::Value value) { return colors.pixel(value, pixels.depth()); };
    Translation<QsdPixels::Value, unsigned long, decltype(translate)> pixelOf(translate);
    for (std::uint32_t y = 0; y < rows; ++y) {
        for (std::uint32_t x = 0; x < pixels.width(); ++x) {
            XPutPixel(image.get(), static_cast<int>(x), static_cast<int>(y), pixelOf(pixels.get(x, first + y)));
        }
    }
    return image;
}

std::uint32_t QsdXRowsAtOnce(std::uint32_t width)
{
    constexpr std::uint32_t PixelsAtOnce = 1U << 20;
    return std::max(1U, PixelsAtOnce / std::max(width, 1U));
}
