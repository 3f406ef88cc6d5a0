// Components of colours as parts of one, as documents have always had them.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// A component of 65,535 parts in six significant digits: what QsdPSWriter writes for component / 65535.0. Whole
/// numbers tell the digits, since no quotient lies so near the middle of two that a floating one could be rounded
/// otherwise.
class QsdPSComponent {
public:
    explicit QsdPSComponent(std::uint16_t component)
    {
        constexpr std::uint32_t Whole = 65535;
        if (component == 0 || component == Whole) {
            _text[_size++] = component == 0 ? '0' : '1';
        } else if (component * 100U < Whole) {
            // Below a hundredth there are more zeros, or an exponent; such dark components are few.
            const auto end =
                std::to_chars(_text, _text + sizeof _text, component / 65535.0, std::chars_format::general, Digits);
            _size = static_cast<std::size_t>(end.ptr - _text);
        } else {
            if (component * 10U >= Whole) {
                putFraction<Digits>((component * 2000000ULL + Whole) / (2ULL * Whole));
            } else {
                putFraction<Digits + 1>((component * 20000000ULL + Whole) / (2ULL * Whole));
            }
        }
    }

    [[nodiscard]] std::string_view view() const { return {_text, _size}; }

private:
    static constexpr int Digits = 6;

    /// Writes a fraction of so many places without trailing zeros.
    template <std::size_t Places>
    void putFraction(std::uint64_t value)
    {
        _text[0] = '0';
        _text[1] = '.';
        for (std::size_t i = 0; i < Places; ++i, value /= 10) {
            _text[Places + 1 - i] = static_cast<char>('0' + value % 10);
        }
        _size = Places + 2;
        while (_text[_size - 1] == '0') {
            --_size;
        }
    }

    char _text[16];
    std::size_t _size = 0;
};
