// Where drawings go on their paper.
#pragma once

#include "command/options.h"
#include "drawing/geometry.h"
#include "images/reader.h"

#include <vector>

namespace qsdps {

/// The size of a drawing on paper in points, as the options scale it; `width` and `height` are CSS pixels.
[[nodiscard]] Box sizeOnPaper(double width, double height, const Options& options);

/// The paper for drawings of these sizes: the one asked for, turned as asked, or one that holds the largest of them.
[[nodiscard]] PaperSize paperFor(const std::vector<Box>& sizes, const Options& options);

/// The map from a drawing's page (CSS pixels, `width` by `height`) to points on the paper, y downwards.
/// The margins must leave room on a paper that was asked for.
[[nodiscard]] Matrix placement(double width, double height, const PaperSize& paper, const Options& options);

/// The map from the pixels of a picture, as its file has them, to the page of a drawing (CSS pixels) that it fills as
/// it is to be looked at. A picture that does not state its density has as many pixels in an inch as drawings have.
[[nodiscard]] Matrix pictureToDrawing(const ImageHeader& header, const Options& options);

/// The size of that page.
[[nodiscard]] Box sizeOfPicture(const ImageHeader& header, const Options& options);

} // namespace qsdps
