// One-bit fill patterns.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>
#include <vector>

/// An unchanging monochrome tile. Rows are whole bytes, the leftmost pixel in the most significant bit.
class QSD_API QsdPattern : public QsdResource {
public:
    /// Copies `height` rows of (width + 7) / 8 bytes; set bits are painted in the foreground. Width and height from 1,
    /// which 0 is taken for; a null `bits` gives a tile of set bits.
    QsdPattern(std::uint16_t width, std::uint16_t height, const unsigned char* bits);
    /// A tile from data in the X bitmap format, whose leftmost pixel is the least significant bit; a null
    /// `bits` gives a tile of cleared bits. Owned by the caller.
    [[nodiscard]] static QsdPattern* FromXBM(std::uint16_t width, std::uint16_t height, const unsigned char* bits);

    /// Width in pixels.
    [[nodiscard]] std::uint16_t width() const { return _width; }
    /// Height in pixels.
    [[nodiscard]] std::uint16_t height() const { return _height; }
    /// Bits of a pixel: 1.
    [[nodiscard]] std::uint16_t depth() const { return 1; }
    /// A new copy of the rows; `size` is set to their length in bytes. Release it with QsFree.
    [[nodiscard]] unsigned char* getBitmapData(unsigned long& size) const;

private:
    std::uint16_t _width;
    std::uint16_t _height;
    std::vector<unsigned char> _bits;
};
