// The colours that have names.
#pragma once

#include "values/rgb.h"

#include <optional>
#include <string_view>

namespace qsdps {

/// The colour of a CSS name, letters compared without regard to case.
[[nodiscard]] std::optional<Rgb> colorByName(std::string_view name);

} // namespace qsdps
