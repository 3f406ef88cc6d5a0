// Pictures as pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qsdps {

/// Rows of four bytes a pixel: red, green, blue and alpha, not multiplied.
struct Pixels {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint8_t> rgba;
};

/// Pictures of more pixels are not read, whatever a file says.
inline constexpr std::uint64_t MostPixels = 100'000'000;

/// The pixels of a PNG or JPEG file, told apart by their first bytes; none when it is neither, or broken.
[[nodiscard]] std::optional<Pixels> decodeImage(std::string_view file);

[[nodiscard]] std::optional<Pixels> decodePng(std::string_view file);
[[nodiscard]] std::optional<Pixels> decodeJpeg(std::string_view file);

} // namespace qsdps
