// Pictures as pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace qsdps {

/// Rows of four bytes a pixel: red, green, blue and alpha, not multiplied.
struct Pixels {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint8_t> rgba;
};

/// The pixels of a whole picture file, told by its first bytes; none when it is no picture, broken, or larger than
/// MostPixelsInMemory.
[[nodiscard]] std::optional<Pixels> decodeImage(std::string_view file);

} // namespace qsdps
