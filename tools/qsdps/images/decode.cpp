#include "images/decoders.h"
#include "images/pixels.h"

#include <string>

namespace qsdps {

namespace {

enum class FileKind { Other, Png, Jpeg, Pnm };

FileKind kindOf(std::string_view start)
{
    using namespace std::string_view_literals;
    if (start.starts_with("\x89PNG"sv)) {
        return FileKind::Png;
    }
    if (start.starts_with("\xFF\xD8\xFF"sv)) {
        return FileKind::Jpeg;
    }
    if (start.size() >= 3 && start[0] == 'P' && start[1] >= '1' && start[1] <= '7' &&
        " \t\r\n#"sv.find(start[2]) != std::string_view::npos) {
        return FileKind::Pnm;
    }
    return FileKind::Other;
}

std::string sizeText(const ImageHeader& header)
{
    return std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels";
}

void spreadBits(const std::uint8_t* bits, const ImageHeader& header, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < header.width; ++x) {
        const bool set = (bits[x / 8] & (0x80U >> (x % 8))) != 0;
        const Rgb color = set ? header.set : header.clear;
        *out++ = color.r;
        *out++ = color.g;
        *out++ = color.b;
        *out++ = 255;
    }
}

} // namespace

std::size_t rowBytesOf(const ImageHeader& header)
{
    return header.kind == PixelKind::Bits ? (std::size_t{header.width} + 7) / 8 : std::size_t{4} * header.width;
}

void ImageReader::checkSize() const
{
    if (_header.width == 0 || _header.height == 0) {
        throw ImageError("the picture is empty: " + sizeText(_header));
    }
    if (_header.width > LongestSide || _header.height > LongestSide ||
        std::uint64_t{_header.width} * _header.height > MostPixels) {
        throw ImageError("the picture is too large: " + sizeText(_header));
    }
}

void ImageReader::checkSizeInMemory() const
{
    if (std::uint64_t{_header.width} * _header.height > MostPixelsInMemory) {
        throw ImageError("the picture is too large to be read as a whole, which interlaced and progressive ones are: " +
                         sizeText(_header));
    }
}

bool isImage(std::string_view start)
{
    return kindOf(start) != FileKind::Other;
}

Status ImageReader::readRow(std::uint8_t* row)
{
    try {
        decodeRow(row);
        return {};
    } catch (const ImageError& problem) {
        return Error{problem.what()};
    }
}

Result<std::unique_ptr<ImageReader>> openImage(ByteSource& source, std::string_view start)
{
    try {
        switch (kindOf(start)) {
        case FileKind::Png:
            return openPng(source);
        case FileKind::Jpeg:
            return openJpeg(source);
        case FileKind::Pnm:
            return openPnm(source);
        case FileKind::Other:
            break;
        }
        return Error{"not a PNG, JPEG or PNM file"};
    } catch (const ImageError& problem) {
        return Error{problem.what()};
    }
}

std::optional<Pixels> decodeImage(std::string_view file)
{
    MemorySource source(file);
    const auto opened = openImage(source, file);
    if (!opened) {
        return std::nullopt;
    }
    ImageReader& reader = **opened;
    const ImageHeader& header = reader.header();
    if (std::uint64_t{header.width} * header.height > MostPixelsInMemory) {
        return std::nullopt;
    }
    Pixels pixels{header.width, header.height, {}};
    pixels.rgba.resize(std::size_t{4} * header.width * header.height);
    std::vector<std::uint8_t> bits(header.kind == PixelKind::Bits ? rowBytesOf(header) : 0);
    for (std::uint32_t y = 0; y < header.height; ++y) {
        std::uint8_t* const row = &pixels.rgba[std::size_t{4} * header.width * y];
        if (!reader.readRow(bits.empty() ? row : bits.data())) {
            return std::nullopt;
        }
        if (!bits.empty()) {
            spreadBits(bits.data(), header, row);
        }
    }
    return pixels;
}

} // namespace qsdps
