// Fractions, as components of colours are.
#pragma once

#include <cstddef>
#include <string_view>

/// A number from 0 to 1 with three decimals, as short as it can be written: 0, .5, .125, 1.
class QsdPSShortFraction {
public:
    explicit QsdPSShortFraction(unsigned thousandths)
    {
        if (thousandths % Whole == 0) {
            _text[_size++] = thousandths == 0 ? '0' : '1';
            return;
        }
        _text[_size++] = '.';
        for (unsigned unit = Whole / 10; thousandths != 0; unit /= 10) {
            _text[_size++] = static_cast<char>('0' + thousandths / unit);
            thousandths %= unit;
        }
    }

    [[nodiscard]] std::string_view view() const { return {_text, _size}; }

    static constexpr unsigned Whole = 1000;

private:
    char _text[4];
    std::size_t _size = 0;
};
