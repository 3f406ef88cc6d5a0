#include "toolkit/x11/QsdXColors_p.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

constexpr unsigned MostComponent = 255;

std::uint8_t highByte(unsigned short component)
{
    return static_cast<std::uint8_t>(component >> 8);
}

/// How many levels a component of a cube has that leaves a tenth of the colour map to others.
unsigned levelsFor(unsigned cells)
{
    unsigned levels = 1;
    while ((levels + 1) * (levels + 1) * (levels + 1) <= cells - cells / 10) {
        ++levels;
    }
    return levels;
}

} // namespace

QsdXChannel::QsdXChannel(unsigned long mask) : _shift(mask == 0 ? 0 : std::countr_zero(mask)), _most(mask >> _shift) {}

unsigned long QsdXChannel::bits(unsigned component) const
{
    return (_most == MostComponent ? component : (component * _most + MostComponent / 2) / MostComponent) << _shift;
}

unsigned QsdXChannel::component(unsigned long pixel) const
{
    const unsigned long bits = pixel >> _shift & _most;
    if (_most == MostComponent || _most == 0) {
        return static_cast<unsigned>(bits);
    }
    return static_cast<unsigned>((bits * MostComponent + _most / 2) / _most);
}

QsdXColors::QsdXColors(std::shared_ptr<QsdXConnection> connection)
    : _connection(std::move(connection)),
      _depth(static_cast<std::uint16_t>(DefaultDepth(_connection->display(), _connection->screen())))
{
    Display* const display = _connection->display();
    const Visual* const visual = DefaultVisual(display, _connection->screen());
    if (_depth == 1) {
        _setIsWhite = BlackPixel(display, _connection->screen()) == 0;
        _table = QsdColorTable::BlackAndWhite();
    } else if (_depth <= 8) {
        const bool writable =
            visual->c_class == PseudoColor || visual->c_class == GrayScale || visual->c_class == DirectColor;
        _shared.fill(!writable);
        if (writable) {
            allocateCube();
        }
        refresh();
    } else {
        _red = QsdXChannel(visual->red_mask);
        _green = QsdXChannel(visual->green_mask);
        _blue = QsdXChannel(visual->blue_mask);
        const unsigned long all = _depth >= 32 ? 0xFFFFFFFFUL : (1UL << _depth) - 1;
        _otherBits = all & ~(_red.mask() | _green.mask() | _blue.mask());
    }
}

void QsdXColors::allocateCube()
{
    Display* const display = _connection->display();
    const Colormap map = DefaultColormap(display, _connection->screen());
    const unsigned levels = levelsFor(1U << _depth);
    const auto level = [=](unsigned i) { return static_cast<unsigned short>(65535U * i / std::max(levels - 1, 1U)); };
    for (unsigned i = 0; i < levels * levels * levels; ++i) {
        XColor color{};
        color.red = level(i / (levels * levels));
        color.green = level(i / levels % levels);
        color.blue = level(i % levels);
        // A full colour map has no more; nearer ones of other programs' do not last.
        if (XAllocColor(display, map, &color) != 0) {
            _shared[color.pixel & 255] = true;
        }
    }
    _shared[BlackPixel(display, _connection->screen()) & 255] = true;
    _shared[WhitePixel(display, _connection->screen()) & 255] = true;
}

void QsdXColors::refresh()
{
    if (_depth == 1 || _depth > 8 || _connection->isLost()) {
        return;
    }
    Display* const display = _connection->display();
    const std::size_t count = std::size_t{1} << _depth;
    std::vector<XColor> cells(count);
    for (std::size_t i = 0; i < count; ++i) {
        cells[i].pixel = i;
    }
    XQueryColors(display, DefaultColormap(display, _connection->screen()), cells.data(), static_cast<int>(count));
    std::vector<QsdRGB> colors(count);
    std::transform(cells.begin(), cells.end(), colors.begin(), [](const XColor& cell) {
        return QsdRGB{highByte(cell.red), highByte(cell.green), highByte(cell.blue)};
    });
    // Another program's cell, or nobody's, may have the colour of a lasting one today; that one is drawn then.
    for (std::size_t i = 0; i < count; ++i) {
        _pixels[i] = static_cast<std::uint8_t>(i);
        for (std::size_t lasting = 0; lasting < count && !_shared[_pixels[i]]; ++lasting) {
            if (_shared[lasting] && colors[lasting] == colors[i]) {
                _pixels[i] = static_cast<std::uint8_t>(lasting);
            }
        }
    }
    _table = QsdColorTable(std::move(colors));
}

unsigned long QsdXColors::pixel(QsdPixels::Value value, std::uint16_t depth) const
{
    if (depth == 1) {
        return (value != 0) != _setIsWhite ? 1 : 0;
    }
    if (depth <= 8) {
        return _pixels[value & 255];
    }
    return _red.bits(value >> 16 & 255) | _green.bits(value >> 8 & 255) | _blue.bits(value & 255) | _otherBits;
}

QsdPixels::Value QsdXColors::value(unsigned long pixel, std::uint16_t depth) const
{
    if (depth == 1) {
        return (pixel != 0) != _setIsWhite ? 1 : 0;
    }
    if (depth <= 8) {
        return static_cast<QsdPixels::Value>(pixel & 255);
    }
    return _red.component(pixel) << 16 | _green.component(pixel) << 8 | _blue.component(pixel);
}

QsdPixels::Value QsdXColors::valueOf(const QsdColor& color, std::uint16_t depth) const
{
    return QsdPixels::ValueOf({highByte(color.red()), highByte(color.green()), highByte(color.blue())}, depth, _table);
}
