// The transform attribute and the transform property of style sheets.
#pragma once

#include "drawing/geometry.h"

#include <optional>
#include <string_view>

namespace qsdps::svg {

/// The product of a list of transforms; "none" and an empty list are the identity, a fault gives nothing.
[[nodiscard]] std::optional<Matrix> parseTransform(std::string_view text);

} // namespace qsdps::svg
