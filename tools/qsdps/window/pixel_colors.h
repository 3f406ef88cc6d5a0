// The colours that pixel values stand for.
#pragma once

#include "drawing/paint.h"

#include <X11/Xlib.h>

#include <vector>

namespace qsdps {

/// The colours of the windows of one visual and colour map, in 8 bits a component.
class PixelColors {
public:
    PixelColors(Display* display, const Visual& visual, Colormap map);

    [[nodiscard]] Rgb operator()(unsigned long pixel) const;

private:
    /// The bits of a pixel value that hold one component.
    struct Field {
        unsigned long mask;

        [[nodiscard]] unsigned long valueIn(unsigned long pixel) const;
        [[nodiscard]] unsigned long largest() const { return valueIn(mask); }
        /// The value as one of 8 bits, full for the largest.
        [[nodiscard]] std::uint8_t reduced(unsigned long pixel) const;
    };

    Field _red;
    Field _green;
    Field _blue;
    bool _isDirect;           ///< whether the table tells each component by its field, not whole colours
    std::vector<Rgb> _colors; ///< of a visual with a table; empty: pixel values are colours
};

} // namespace qsdps
