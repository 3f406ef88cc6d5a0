// viewBox and preserveAspectRatio.
#pragma once

#include "drawing/geometry.h"

#include <optional>
#include <string_view>

namespace qsdps::svg {

struct AspectRatio {
    bool preserve = true;
    double alignX = 0.5; ///< 0 left, 0.5 middle, 1 right
    double alignY = 0.5; ///< 0 top, 0.5 middle, 1 bottom
    bool slice = false;  ///< cover the viewport instead of fitting inside
};

/// Four numbers with a width and height above zero, or nothing.
[[nodiscard]] std::optional<Box> parseViewBox(std::string_view text);
/// The preserveAspectRatio attribute; its initial value where the text is empty or faulty.
[[nodiscard]] AspectRatio parseAspectRatio(std::string_view text);
/// The map that lays `viewBox` into `viewport`.
[[nodiscard]] Matrix fitBox(const Box& viewBox, const AspectRatio& aspect, const Box& viewport);

} // namespace qsdps::svg
