// What a page of forms is to look like.
#pragma once

#include "bitmap_forms.h"

#include <optional>

/// The colour that a form leaves at a pixel, counted from the corner of its cell; none: the ground is seen.
[[nodiscard]] std::optional<QsdRGB> expectedColor(const Form& form, const SourcePixels& pixels, int x, int y);
