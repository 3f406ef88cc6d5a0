// Pixels in the layout that displays hand out.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/graphics/QsdBitmapData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class QsdColorTable;

/// A rectangle of pixels of one depth: at 1, eight pixels a byte, the leftmost in the most significant bit, rows of
/// whole bytes; up to 8, one byte a pixel, an index into a colour table; above, four bytes a pixel with red, green and
/// blue in bytes 1 to 3. A pixel's value is its bit, its index, or its components as 0xRRGGBB.
class QSD_API QsdPixels {
public:
    /// The value of a pixel.
    using Value = std::uint32_t;

    /// Pixels of value 0. Throws std::bad_alloc when there is no memory for them.
    QsdPixels(std::uint32_t width, std::uint32_t height, std::uint16_t depth);

    /// Number of columns.
    [[nodiscard]] std::uint32_t width() const { return _width; }
    /// Number of rows.
    [[nodiscard]] std::uint32_t height() const { return _height; }
    /// Bits of a pixel.
    [[nodiscard]] std::uint16_t depth() const { return _depth; }
    /// Bytes of a row.
    [[nodiscard]] std::size_t rowBytes() const { return _rowBytes; }
    /// The bytes of row `y`, which must be inside; valid as long as the object.
    [[nodiscard]] const unsigned char* row(std::uint32_t y) const { return _bytes.data() + y * _rowBytes; }
    /// The same, to be changed.
    [[nodiscard]] unsigned char* row(std::uint32_t y) { return _bytes.data() + y * _rowBytes; }
    /// All rows, one after the other.
    [[nodiscard]] const std::vector<unsigned char>& bytes() const { return _bytes; }

    /// The value of the pixel at (x, y), which must be inside.
    [[nodiscard]] Value get(std::uint32_t x, std::uint32_t y) const;
    /// Gives the pixel at (x, y), which must be inside, a value.
    void set(std::uint32_t x, std::uint32_t y, Value value);
    /// Copies the pixels of `rect` into rows of this layout at `out`; 0 for those outside.
    /// `out` has room for rect.height rows of RowBytes(rect.width, depth()).
    void read(const QsdRect& rect, unsigned char* out) const;
    /// Sets every pixel to the nearest value for the same pixel of `data`, black beyond it. At a depth of 1, dark
    /// pixels are set.
    void assign(const QsdBitmapData& data, const QsdColorTable& colors);

    /// The value that stands for a colour at `depth`: at 1, whether it is dark (below half of full light).
    [[nodiscard]] static Value ValueOf(QsdRGB color, std::uint16_t depth, const QsdColorTable& colors);
    /// The colour that a value stands for at a depth other than 1.
    [[nodiscard]] static QsdRGB ColorOf(Value value, std::uint16_t depth, const QsdColorTable& colors);
    /// Bytes of a row of `width` pixels.
    [[nodiscard]] static std::size_t RowBytes(std::uint32_t width, std::uint16_t depth);

private:
    std::uint32_t _width;
    std::uint32_t _height;
    std::uint16_t _depth;
    std::size_t _rowBytes;
    std::vector<unsigned char> _bytes;
};
