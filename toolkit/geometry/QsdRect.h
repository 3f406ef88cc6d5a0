// Upright rectangles.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"

#include <cstdint>

/// A rectangle that covers x <= px < x + width and y <= py < y + height; no area when width or height is 0.
struct QSD_API QsdRect {
    std::int32_t x = 0;       ///< first column
    std::int32_t y = 0;       ///< first row
    std::uint32_t width = 0;  ///< number of columns
    std::uint32_t height = 0; ///< number of rows

    /// Whether the rectangle has no area.
    [[nodiscard]] bool isEmpty() const { return width == 0 || height == 0; }
    /// One past the last column; 64-bit, so that it never wraps.
    [[nodiscard]] std::int64_t right() const { return std::int64_t{x} + width; }
    /// One past the last row.
    [[nodiscard]] std::int64_t bottom() const { return std::int64_t{y} + height; }
    /// Whether `p` is one of the points covered.
    [[nodiscard]] bool contains(const QsdPoint& p) const;
    /// The common part; all zero when there is none.
    [[nodiscard]] QsdRect intersected(const QsdRect& other) const;
    /// The smallest rectangle around both; an empty one does not count.
    [[nodiscard]] QsdRect united(const QsdRect& other) const;

    /// Equality of all four numbers.
    friend bool operator==(const QsdRect&, const QsdRect&) = default;
};
