#include "toolkit/port/QsdBitmap.h"

#include "toolkit/port/QsdDisplay.h"

#include <cstring>
#include <utility>

namespace {

std::uint16_t depthFor(const QsdDisplay& display, std::uint16_t depth)
{
    return depth == 1 ? depth : display.screenDepth();
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

QsdBitmap::QsdBitmap(QsdDisplay* display, std::uint32_t width, std::uint32_t height, std::uint16_t depth)
    : QsdSystemPort(display, width, height), _pixels(width, height, depthFor(*display, depth))
{
}

QsdBitmap::QsdBitmap(QsdDisplay* display, const QsdBitmapData& data)
    : QsdBitmap(display, data.width(), data.height(), display->screenDepth())
{
    _pixels.assign(data, display->colors());
}

std::unique_ptr<QsdBitmap> QsdBitmap::FromBits(QsdDisplay* display, std::uint32_t width, std::uint32_t height,
                                               const unsigned char* bits)
{
    auto bitmap = std::make_unique<QsdBitmap>(display, width, height, std::uint16_t{1});
    if (bits != nullptr && width != 0 && height != 0) {
        std::memcpy(bitmap->_pixels.row(0), bits, bitmap->_pixels.bytes().size());
    }
    return bitmap;
}

std::unique_ptr<QsdBitmap> QsdBitmap::FromXBM(QsdDisplay* display, std::uint32_t width, std::uint32_t height,
                                              const unsigned char* bits)
{
    std::unique_ptr<QsdBitmap> bitmap = FromBits(display, width, height, bits);
    for (std::uint32_t y = 0; y < height; ++y) {
        unsigned char* const row = bitmap->_pixels.row(y);
        for (std::size_t i = 0; i < bitmap->_pixels.rowBytes(); ++i) {
            row[i] = reversed(row[i]);
        }
    }
    return bitmap;
}

QsdBitmap::~QsdBitmap() = default;

void QsdBitmap::setMask(std::unique_ptr<QsdBitmap> mask)
{
    _mask = std::move(mask);
}

void QsdBitmap::setTransformer(const QsdTransformer& t)
{
    _transformer = t;
}

void QsdBitmap::clip(const QsdRect* rect) const
{
    _clip = rect == nullptr ? QsdRegion::Full() : QsdRegion(*rect);
}

void QsdBitmap::clip(const QsdRegion* region) const
{
    _clip = region == nullptr ? QsdRegion::Full() : *region;
}

// Clips are given before the transformer, which takes them along; a turned rectangle is no region any more, so the one
// around it stands in.
QsdRegion QsdBitmap::mapped(const QsdRegion& region) const
{
    if (region.isFull() || _transformer.isIdentity()) {
        return region;
    }
    QsdRegion result;
    for (std::uint16_t i = 0; i < region.count(); ++i) {
        result.add(_transformer.transform(region.rects()[i]));
    }
    return result;
}

QsdRegion QsdBitmap::visibleRegion(const QsdPalette& palette) const
{
    QsdRegion region = _clip;
    region.intersect(palette.clipRegion());
    return mapped(region);
}

QsdPixels::Value QsdBitmap::valueOf(const QsdColor& color) const
{
    const QsdRGB rgb{static_cast<std::uint8_t>(color.red() >> 8), static_cast<std::uint8_t>(color.green() >> 8),
                     static_cast<std::uint8_t>(color.blue() >> 8)};
    // Only a depth with a colour table needs the table made.
    const bool indexed = depth() != 1 && depth() <= 8;
    return QsdPixels::ValueOf(rgb, depth(), indexed ? display()->colors() : QsdColorTable());
}
