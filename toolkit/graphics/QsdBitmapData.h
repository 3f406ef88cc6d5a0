// Pixels in memory, independent of any display.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"

#include <cstdint>

/// A colour of 8-bit components.
struct QSD_API QsdRGB {
    std::uint8_t red = 0;   ///< 0 to 255
    std::uint8_t green = 0; ///< 0 to 255
    std::uint8_t blue = 0;  ///< 0 to 255

    /// Equality of the components.
    friend bool operator==(const QsdRGB&, const QsdRGB&) = default;
};

/// A rectangle of pixels that can be read and written one by one and in areas.
class QSD_API QsdBitmapData {
public:
    virtual ~QsdBitmapData() = default;

    /// Number of columns.
    [[nodiscard]] std::uint32_t width() const { return _width; }
    /// Number of rows.
    [[nodiscard]] std::uint32_t height() const { return _height; }
    /// The pixel at column `x` of row `y`; black outside.
    [[nodiscard]] virtual QsdRGB pixel(std::uint32_t x, std::uint32_t y) const = 0;
    /// Changes a pixel; outside nothing happens.
    virtual void setPixel(std::uint32_t x, std::uint32_t y, QsdRGB color) = 0;
    /// Copies the area `from` of `source` to `to`, as far as both have pixels there.
    virtual void copy(const QsdBitmapData& source, const QsdRect& from, const QsdPoint& to);

protected:
    /// Keeps the size; the pixels are for the derived class to make.
    QsdBitmapData(std::uint32_t width, std::uint32_t height) : _width(width), _height(height) {}

private:
    std::uint32_t _width;
    std::uint32_t _height;
};
