// Where drawings go on their paper.
#pragma once

#include "drawing/geometry.h"
#include "options.h"

#include <vector>

namespace qsdps {

/// The size of a drawing on paper in points, as the options scale it; `width` and `height` are CSS pixels.
[[nodiscard]] Box sizeOnPaper(double width, double height, const Options& options);

/// The paper for drawings of these sizes: the one asked for, turned as asked, or one that holds the largest of them.
[[nodiscard]] PaperSize paperFor(const std::vector<Box>& sizes, const Options& options);

/// The map from a drawing's page (CSS pixels, `width` by `height`) to points on the paper, y downwards.
[[nodiscard]] Matrix placement(double width, double height, const PaperSize& paper, const Options& options);

} // namespace qsdps
