// Coloured fill patterns.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>
#include <vector>

/// An unchanging tile of pixels in the layout of a display's image data: at a depth of 1 eight pixels a byte, up to 8
/// one colour table index a byte, above 8 four bytes a pixel with red, green and blue in bytes 1 to 3.
/// QsdDisplay::createColorPattern makes one that suits a display.
class QSD_API QsdColorPattern : public QsdResource {
public:
    /// Copies `size` bytes of `data`: `height` rows of size / height bytes. Width and height from 1, which 0
    /// is taken for; null `data` has no bytes. Pixels beyond the end of the data are drawn as 0.
    QsdColorPattern(std::uint16_t width, std::uint16_t height, std::uint16_t depth, const unsigned char* data,
                    unsigned long size);

    /// Width in pixels.
    [[nodiscard]] std::uint16_t width() const { return _width; }
    /// Height in pixels.
    [[nodiscard]] std::uint16_t height() const { return _height; }
    /// Bits of a pixel, as given.
    [[nodiscard]] std::uint16_t depth() const { return _depth; }
    /// A new copy of the pixels; `size` is set to their length in bytes. Release it with QsFree.
    [[nodiscard]] unsigned char* getBitmapData(unsigned long& size) const;

private:
    std::uint16_t _width;
    std::uint16_t _height;
    std::uint16_t _depth;
    std::vector<unsigned char> _data;
};
