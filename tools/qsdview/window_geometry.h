// Sizes and places of windows as users write them.
#pragma once

#include "toolkit/geometry/QsdRect.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace qsdview {

/// What "WIDTHxHEIGHT+X+Y" asks for.
struct WindowGeometry {
    /// A distance in pixels from one of two opposite edges of the screen.
    struct Distance {
        std::int32_t pixels = 0;
        bool fromFarEdge = false; ///< from the right or bottom edge, to that of the window
    };
    struct Size {
        std::uint32_t width;
        std::uint32_t height;
    };
    struct Place {
        Distance x;
        Distance y;
    };

    std::optional<Size> size;
    std::optional<Place> place;

    /// Reads "WIDTHxHEIGHT", "+X+Y" or both; with - instead of +, the distance counts from the right or bottom edge.
    /// Sides have 1 to 32,767 pixels, distances up to 32,767. None when it is anything else.
    [[nodiscard]] static std::optional<WindowGeometry> parse(std::string_view text);
    /// The corner of a window of this size on a screen; none when no place is asked for.
    [[nodiscard]] std::optional<QsdPoint> corner(const Size& window, const QsdRect& screen) const;
};

} // namespace qsdview
