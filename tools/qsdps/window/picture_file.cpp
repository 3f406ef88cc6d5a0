#include "window/picture_file.h"

namespace qsdps {

namespace {

constexpr std::size_t Components = 3;

enum class Kind : char { Bits = '4', Grey = '5', Color = '6' };

Kind kindOf(const std::vector<std::uint8_t>& rgb)
{
    Kind kind = Kind::Bits;
    for (std::size_t i = 0; i < rgb.size(); i += Components) {
        if (rgb[i] != rgb[i + 1] || rgb[i] != rgb[i + 2]) {
            return Kind::Color;
        }
        if (rgb[i] != 0 && rgb[i] != 255) {
            kind = Kind::Grey;
        }
    }
    return kind;
}

/// One row as the file has it.
std::vector<std::uint8_t> packed(const std::uint8_t* rgb, std::uint32_t width, Kind kind)
{
    if (kind == Kind::Color) {
        return {rgb, rgb + Components * width};
    }
    const bool bits = kind == Kind::Bits;
    std::vector<std::uint8_t> row(bits ? (std::size_t{width} + 7) / 8 : width);
    for (std::uint32_t x = 0; x < width; ++x) {
        const std::uint8_t grey = rgb[Components * x];
        if (!bits) {
            row[x] = grey;
        } else if (grey == 0) {
            row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | 0x80U >> (x % 8));
        }
    }
    return row;
}

} // namespace

bool writePicture(const WindowPixels& pixels, const std::string& title, std::FILE* file)
{
    const Kind kind = kindOf(pixels.rgb);
    std::string header = {'P', static_cast<char>(kind), '\n'};
    if (!title.empty()) {
        header += "# Title: " + title + "\n";
    }
    header += std::to_string(pixels.width) + " " + std::to_string(pixels.height) + "\n";
    header += kind == Kind::Bits ? "" : "255\n";
    bool isWritten = std::fwrite(header.data(), 1, header.size(), file) == header.size();
    for (std::uint32_t y = 0; isWritten && y < pixels.height; ++y) {
        const std::vector<std::uint8_t> row = packed(&pixels.rgb[Components * pixels.width * y], pixels.width, kind);
        isWritten = std::fwrite(row.data(), 1, row.size(), file) == row.size();
    }
    return isWritten && std::fflush(file) == 0;
}

} // namespace qsdps
