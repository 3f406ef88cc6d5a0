// Pictures read row by row.
#pragma once

#include "drawing/paint.h"
#include "images/byte_source.h"
#include "values/result.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qsdps {

/// What a picture is made of, and so what its rows look like.
enum class PixelKind : unsigned char {
    Bits,  ///< two colours: eight pixels a byte, the leftmost in the most significant bit
    Grey,  ///< four bytes a pixel: red, green and blue, which are equal, and alpha, not multiplied
    Color, ///< four bytes a pixel, like Grey
};

/// Pixels in an inch; 0: the file does not say, or says nonsense.
struct Density {
    double across = 0;
    double down = 0;
    bool operator==(const Density&) const = default;
};

struct ImageHeader {
    std::uint32_t width = 0; ///< pixels, above 0
    std::uint32_t height = 0;
    PixelKind kind = PixelKind::Color;
    bool hasAlpha = false;    ///< whether a pixel may be other than opaque
    Rgb clear{255, 255, 255}; ///< of Bits: the colour of a clear bit
    Rgb set{0, 0, 0};         ///< of Bits: the colour of a set bit, no lighter than `clear`
    Density density;
    int orientation = 1; ///< how the picture is to be turned, 1 to 8, as cameras count
    std::string title;   ///< of PNM files, a first comment "Title: ..."; empty: none
};

/// No side of a picture may have more pixels.
inline constexpr std::uint32_t LongestSide = 1'000'000;
/// Pictures of more pixels are not read, whatever a file says.
inline constexpr std::uint64_t MostPixels = 1'000'000'000;
/// The same for pictures that have to be in memory as a whole.
inline constexpr std::uint64_t MostPixelsInMemory = 100'000'000;

/// Bytes of a row of a picture.
[[nodiscard]] std::size_t rowBytesOf(const ImageHeader& header);

/// A picture whose rows are decoded one after the other.
class ImageReader {
public:
    virtual ~ImageReader() = default;
    ImageReader(const ImageReader&) = delete;
    ImageReader& operator=(const ImageReader&) = delete;

    [[nodiscard]] const ImageHeader& header() const { return _header; }
    /// Decodes the next row, from the top, into `row`, which has room for rowBytesOf(header()). May be called as often
    /// as the picture has rows; the last one also checks that the file is complete.
    [[nodiscard]] Status readRow(std::uint8_t* row);

protected:
    ImageReader() = default;

    /// Does what readRow promises. Throws ImageError.
    virtual void decodeRow(std::uint8_t* row) = 0;

    /// Throws ImageError unless the size lies within the limits.
    void checkSize() const;
    /// The same for pictures that are decoded as a whole.
    void checkSizeInMemory() const;

    ImageHeader _header;
};

/// Whether a file that begins so is a picture that can be read; `start` needs 4 bytes of it.
[[nodiscard]] bool isImage(std::string_view start);

/// Reads the header of the picture that comes out of `source`, which must outlive the reader; `start` is how it begins.
[[nodiscard]] Result<std::unique_ptr<ImageReader>> openImage(ByteSource& source, std::string_view start);

} // namespace qsdps
