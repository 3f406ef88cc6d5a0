#include "toolkit/memory/QsdMemoryDisplay.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace {

/// The widest spread of colours that `depth` bits can tell apart.
QsdColorTable defaultColors(unsigned short depth)
{
    if (depth == 1) {
        return QsdColorTable::BlackAndWhite();
    }
    if (depth >= 8) {
        return QsdColorTable::Cube();
    }
    std::vector<QsdRGB> colors;
    const std::size_t count = std::size_t{1} << depth;
    for (std::size_t i = 0; i < count; ++i) {
        const auto level = static_cast<std::uint8_t>(255 * i / (count - 1));
        colors.push_back({level, level, level});
    }
    return QsdColorTable(std::move(colors));
}

/// All bits of a 16-bit component from one of 8 bits, so that 255 becomes 65535.
unsigned short widened(std::uint8_t component)
{
    return static_cast<unsigned short>(component * 257);
}

} // namespace

QsdMemoryDisplay::QsdMemoryDisplay(unsigned short screenDepth)
    : _screenDepth(std::max<unsigned short>(screenDepth, 1)), _colors(defaultColors(_screenDepth))
{
}

void QsdMemoryDisplay::setColors(QsdColorTable colors)
{
    if (colors.size() != 0) {
        _colors = std::move(colors);
    }
}

unsigned short QsdMemoryDisplay::colorCount() const
{
    return _screenDepth > 8 ? std::uint16_t{0} : static_cast<unsigned short>(_colors.size());
}

void QsdMemoryDisplay::colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                                  unsigned short* blues) const
{
    for (std::size_t i = 0; i < count; ++i) {
        const QsdRGB color = _colors.color(i);
        reds[i] = widened(color.red);
        greens[i] = widened(color.green);
        blues[i] = widened(color.blue);
    }
}

unsigned char* QsdMemoryDisplay::getBitmapData(const QsdSystemPort* port, unsigned long& size,
                                               const QsdRect& rect) const
{
    size = 0;
    if (port == nullptr || !port->isABitmap() || rect.isEmpty()) {
        return nullptr;
    }
    const QsdPixels& pixels = static_cast<const QsdBitmap*>(port)->pixels();
    const std::size_t rowBytes = QsdPixels::RowBytes(rect.width, pixels.depth());
    if (rowBytes > static_cast<std::size_t>(PTRDIFF_MAX) / rect.height) {
        throw std::bad_alloc();
    }
    auto* const data = static_cast<unsigned char*>(QsMalloc(rowBytes * rect.height));
    pixels.read(rect, data);
    size = rowBytes * rect.height;
    return data;
}
