// Colours as style sheets write them.
#pragma once

#include "values/rgb.h"

#include <optional>
#include <string_view>

namespace qsdps {

struct Color {
    Rgb rgb;
    double alpha = 1; ///< 0 to 1
};

/// Names, #rgb, #rgba, #rrggbb, #rrggbbaa, rgb(), rgba(), hsl(), hsla() and "transparent"; nothing for other text.
[[nodiscard]] std::optional<Color> parseColor(std::string_view text);

} // namespace qsdps
