// Lines as dashes.
#pragma once

#include "drawing/paint.h"
#include "page/flatten.h"

#include <optional>
#include <vector>

namespace qsdps {

/// Cuts the chains of a stroke into its dashes, of which those that cannot be seen may be left out. `scale` is the size
/// of the style's user units in the space of the chains, `seen` what is visible of that space (none: all). Dashes
/// without length are chains of hardly any, so that their caps have a direction; sub-paths without length lie along the
/// x axis. Butt ends show neither. Nothing when there would be too many dashes.
[[nodiscard]] std::optional<std::vector<Chain>> dashesOf(const std::vector<Chain>& chains, const StrokeStyle& style,
                                                         double scale, const std::optional<Box>& seen);

} // namespace qsdps
