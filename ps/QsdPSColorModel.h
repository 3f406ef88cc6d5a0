// How colours are written.
#pragma once

#include <cstdint>

/// Grey levels, or red, green and blue; a value other than these two counts as colour.
enum QsdPSColorModel : std::uint32_t { QsdPSGrey = 0, QsdPSRGB = 1 };
