// Whether the lines of a port look like the stroke that a drawing asks for.
#pragma once

#include "drawing/paint.h"
#include "page/flatten.h"
#include "page/rings.h"

namespace qsdps {

/// How many widths a mitred corner of a port's line may be long before it is cut off.
inline constexpr double PortMiterLimit = 10;

/// Whether a port's lines, which have butt ends and mitred corners, draw a stroke of these chains right.
[[nodiscard]] bool fitsLines(const std::vector<Chain>& chains, const StrokeStyle& style);

/// The lines to draw for the chains. A closed chain has no corner where its line begins and ends: it begins in the
/// middle of its longest side and runs on over its beginning by a bit of its `width`.
[[nodiscard]] Rings linesOf(const std::vector<Chain>& chains, double width);

} // namespace qsdps
