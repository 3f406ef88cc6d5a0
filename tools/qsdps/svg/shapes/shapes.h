// Basic shapes as outlines.
#pragma once

#include "drawing/geometry.h"
#include "svg/css/style.h"

#include <functional>
#include <optional>
#include <string_view>

namespace qsdps::svg {

/// The outline of a shape element; empty where its measures make it disappear.
/// `fault` is called with what is wrong in an attribute.
[[nodiscard]] Path shapePath(const Element& element, const LengthBase& base,
                             const std::function<void(std::string_view)>& fault);
/// A length of an element in user units; `initial` where the text is empty, "auto" or faulty.
[[nodiscard]] double lengthOr(std::string_view text, Axis axis, const LengthBase& base, double initial);

} // namespace qsdps::svg
