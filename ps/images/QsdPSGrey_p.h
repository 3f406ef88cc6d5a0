// Grey levels of colours.
#pragma once

/// The grey of three 8-bit components, 0 to 255: the device's own weights, rounded down.
constexpr unsigned char QsdPSGreyOf(int red, int green, int blue)
{
    return static_cast<unsigned char>((red * 11 + green * 16 + blue * 5) >> 5);
}
