// The colours that pixels of up to 8 bits stand for.
#pragma once

#include "ps/images/QsdPSGrey_p.h"
#include "toolkit/port/QsdDisplay.h"

#include <array>

/// Components of the display's colour table, 8 bits each.
class QsdPSIndexedColors {
public:
    explicit QsdPSIndexedColors(const QsdDisplay& display)
    {
        std::array<unsigned short, 256> reds{};
        std::array<unsigned short, 256> greens{};
        std::array<unsigned short, 256> blues{};
        display.colorTable(256, reds.data(), greens.data(), blues.data());
        for (std::size_t i = 0; i < 256; ++i) {
            _rgb[i] = {static_cast<unsigned char>(reds[i] >> 8), static_cast<unsigned char>(greens[i] >> 8),
                       static_cast<unsigned char>(blues[i] >> 8)};
            _grey[i] = QsdPSGreyOf(_rgb[i][0], _rgb[i][1], _rgb[i][2]);
        }
    }

    [[nodiscard]] const std::array<unsigned char, 3>& rgb(unsigned char index) const { return _rgb[index]; }
    [[nodiscard]] unsigned char grey(unsigned char index) const { return _grey[index]; }

private:
    std::array<std::array<unsigned char, 3>, 256> _rgb;
    std::array<unsigned char, 256> _grey;
};
