// Pixels of a display as the samples of an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class QsdDisplay;

/// Turns rows of pixels in the layout of QsdDisplay::getBitmapData into samples: red, green and blue, or grey.
class QsdPSSamples {
public:
    /// For colour pixels of `depth` bits (above 1) of `display`.
    QsdPSSamples(const QsdDisplay& display, unsigned long depth, bool inColor);

    /// Samples of one pixel.
    [[nodiscard]] unsigned components() const { return _inColor ? 3 : 1; }
    /// Bytes of `count` pixels of the source.
    [[nodiscard]] std::size_t sourceBytes(std::size_t count) const { return _indexed ? count : 4 * count; }
    /// Converts `count` pixels.
    void convert(const unsigned char* pixels, std::size_t count, unsigned char* samples) const;

private:
    bool _indexed;
    bool _inColor;
    std::vector<unsigned char> _table; ///< samples by index
};
