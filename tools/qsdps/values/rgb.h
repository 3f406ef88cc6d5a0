// Colours as numbers.
#pragma once

#include <cstdint>

namespace qsdps {

struct Rgb {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    bool operator==(const Rgb&) const = default;
};

} // namespace qsdps
