#include "ps/images/QsdPSImageFormat_p.h"

#include <cstring>

std::uint32_t QsdPSImageFormat::colorAt(const unsigned char* samples, std::size_t i) const
{
    if (_components == 1) {
        return samples[i] * 0x10101U;
    }
    const unsigned char* const pixel = samples + 3 * i;
    return static_cast<std::uint32_t>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

/// The slot of a color, or the free one where it belongs.
std::size_t QsdPSImageFormat::slotOf(std::uint32_t color) const
{
    std::size_t slot = (color * 0x9E3779B1U) >> 22;
    while (_slots[slot] != 0 && _colors[_slots[slot] - 1U] != color) {
        slot = (slot + 1) % Slots;
    }
    return slot;
}

void QsdPSImageFormat::look(const unsigned char* samples, std::size_t count)
{
    std::uint32_t last = _count != 0 ? _colors[_count - 1] : 0;
    bool lastKnown = _count != 0;
    for (std::size_t i = 0; i < count && (_isGrey || _fewColors); ++i) {
        const std::uint32_t color = colorAt(samples, i);
        if (lastKnown && color == last) {
            continue;
        }
        last = color;
        lastKnown = true;
        _isGrey = _isGrey && (color >> 16) == (color & 0xFF) && ((color >> 8) & 0xFF) == (color & 0xFF);
        if (!_fewColors) {
            continue;
        }
        const std::size_t slot = slotOf(color);
        if (_slots[slot] == 0) {
            _fewColors = _count < MaxColors;
            if (_fewColors) {
                _colors[_count++] = color;
                _slots[slot] = static_cast<std::uint16_t>(_count);
            }
        }
    }
}

// Greys of fewer bits are spread evenly from black to white.
unsigned QsdPSImageFormat::greyBits() const
{
    for (const unsigned bits : {1U, 2U, 4U}) {
        const std::uint32_t step = 255 / ((1U << bits) - 1);
        bool fits = _fewColors;
        for (std::size_t i = 0; i < _count && fits; ++i) {
            fits = (_colors[i] & 0xFF) % step == 0;
        }
        if (fits) {
            return bits;
        }
    }
    return 8;
}

void QsdPSImageFormat::decide(std::size_t width, std::size_t height, bool mayIndex)
{
    _kind = _isGrey ? Grey : Color;
    _bits = _isGrey ? greyBits() : 8;
    if (!mayIndex || !_fewColors) {
        return;
    }
    const std::size_t plain = rowBytes(width) * height;
    const unsigned indexBits = _count <= 2 ? 1 : _count <= 4 ? 2 : _count <= 16 ? 4 : 8;
    // A colour of the table takes six digits; the operands around it some more.
    const std::size_t table = _count * 6 + 60;
    const std::size_t indexed = (width * indexBits + 7) / 8 * height;
    if (indexed + table < plain) {
        _kind = Indexed;
        _bits = indexBits;
    }
}

std::size_t QsdPSImageFormat::rowBytes(std::size_t width) const
{
    return _kind == Color ? width * 3 : (width * _bits + 7) / 8;
}

void QsdPSImageFormat::pack(const unsigned char* samples, std::size_t width, unsigned char* packed) const
{
    if (_kind == Color || (_kind == Grey && _bits == 8 && _components == 1)) {
        std::memcpy(packed, samples, width * _components);
        return;
    }
    std::memset(packed, 0, rowBytes(width));
    const std::size_t perByte = 8 / _bits;
    for (std::size_t i = 0; i < width; ++i) {
        const std::uint32_t color = colorAt(samples, i);
        const std::uint32_t value = _kind == Grey ? (color & 0xFF) >> (8 - _bits) : _slots[slotOf(color)] - 1U;
        packed[i / perByte] =
            static_cast<unsigned char>(packed[i / perByte] | value << (8 - _bits - i % perByte * _bits));
    }
}
