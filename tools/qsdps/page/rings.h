// Areas in integer units, and what can be cut out of them.
#pragma once

#include "drawing/paint.h"
#include "page/flatten.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdRect.h"

#include <optional>
#include <vector>

namespace qsdps {

using Ring = std::vector<QsdPoint>;
using Rings = std::vector<Ring>;

/// The chains rounded to integers, without points that add nothing; rings of fewer than three points are left out.
[[nodiscard]] Rings ringsOf(const std::vector<Chain>& chains);
/// The smallest rectangle around all points; all zero where there are none.
[[nodiscard]] QsdRect boundsOf(const Rings& rings);
/// The rectangle that the rings are, when they are one upright rectangle.
[[nodiscard]] std::optional<QsdRect> asRectangle(const Rings& rings);
[[nodiscard]] Rings ringsOf(const QsdRect& rect);
[[nodiscard]] std::size_t pointsOf(const Rings& rings);

/// The area inside `rings` by `rule`, limited to that inside `clip` (non-zero rule). The result is for the non-zero
/// rule.
[[nodiscard]] Rings intersection(const Rings& rings, FillRule rule, const Rings& clip);
/// The area inside any of two sets of rings, both by the non-zero rule, as the result is.
[[nodiscard]] Rings unionOf(const Rings& a, const Rings& b);
/// The area inside `a` and not inside `b`, both by the non-zero rule, as the result is.
[[nodiscard]] Rings difference(const Rings& a, const Rings& b);
/// The area (non-zero rule) made larger by a distance on all sides, corners kept sharp.
[[nodiscard]] Rings grown(const Rings& rings, double distance);
/// The same area for the non-zero rule.
[[nodiscard]] Rings simplified(const Rings& rings, FillRule rule);

} // namespace qsdps
