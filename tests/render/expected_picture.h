// What a page of forms is to look like.
#pragma once

#include "bitmap_forms.h"

#include <optional>

/// The colours of the page and of the palette; each has only components that every way of writing a number keeps.
inline constexpr QsdRGB Ground{0, 255, 255};
inline constexpr QsdRGB Foreground{255, 0, 0};
inline constexpr QsdRGB Background{255, 255, 0};

/// The colour that a form leaves at a pixel, counted from the corner of its cell; none: the ground is seen.
[[nodiscard]] std::optional<QsdRGB> expectedColor(const Form& form, const SourcePixels& pixels, int x, int y);
