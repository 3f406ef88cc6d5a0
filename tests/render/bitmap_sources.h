// The bitmaps that the render test draws, and what is in them.
#pragma once

#include "toolkit/graphics/QsdBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstdint>
#include <memory>
#include <vector>

/// What kind of bitmap a form draws.
enum class Source {
    Bits,      ///< one bit
    Color,     ///< the depth of the screen, no mask
    Masked,    ///< the depth of the screen, a mask of the same size
    HalfMasked ///< the depth of the screen, a mask that is smaller in both directions
};

/// Asymmetric pixels of an odd size, the same in every run.
class SourcePixels {
public:
    static constexpr std::uint32_t Width = 37;
    static constexpr std::uint32_t Height = 23;
    static constexpr std::uint32_t MaskWidth = 21;
    static constexpr std::uint32_t MaskHeight = 14;

    /// Pixels that a screen of `screenDepth` bits (1, 8 or more) shows without loss.
    explicit SourcePixels(unsigned short screenDepth);

    /// A bitmap of the kind; made by `display`, which must outlive it.
    [[nodiscard]] std::unique_ptr<QsdBitmap> bitmap(Source source, QsdDisplay& display) const;
    /// The colours of all but the one-bit kind.
    [[nodiscard]] const QsdBitmapData& colors() const { return *_colors; }

    /// Whether the kind is painted in foreground and background; so is everything on a screen of one bit.
    [[nodiscard]] bool isOneBit(Source source) const { return source == Source::Bits || _screenDepth == 1; }
    /// A bit of the kind; outside of the bitmap all are clear.
    [[nodiscard]] bool bit(Source source, std::int64_t x, std::int64_t y) const;
    /// The colour of a pixel; outside of the bitmap black.
    [[nodiscard]] QsdRGB color(std::int64_t x, std::int64_t y) const;
    /// Whether the mask of the kind has the pixel.
    [[nodiscard]] bool inMask(Source source, std::int64_t x, std::int64_t y) const;

private:
    [[nodiscard]] static bool bitOf(const std::vector<unsigned char>& rows, std::int64_t x, std::int64_t y);

    unsigned short _screenDepth;
    std::vector<unsigned char> _bits;
    std::vector<unsigned char> _mask;
    std::unique_ptr<QsdBitmapData> _colors;
};
