// Gradients: from elements to paints.
#pragma once

#include "drawing/paint.h"
#include "svg/walker/scene.h"

#include <functional>
#include <optional>

namespace qsdps::svg {

/// Gives the bounding box of the painted shape in its user space, when it is asked for.
using BoundsOf = std::function<std::optional<Box>()>;

/// The paint of a gradient element: a gradient, a single colour where it comes down to one, or nothing.
/// Lengths are relative to `base`.
[[nodiscard]] Paint makeGradient(Scene& scene, const pugi::xml_node& node, const LengthBase& base,
                                 const BoundsOf& bounds);

} // namespace qsdps::svg
