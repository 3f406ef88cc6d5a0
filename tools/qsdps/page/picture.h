// Pictures of drawings as bitmaps of the toolkit.
#pragma once

#include "drawing/canvas.h"
#include "images/pixels.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace qsdps {

/// The map from the pixels of a picture (`width` by `height`, both above 0) to the user space of the image object.
[[nodiscard]] Matrix placementOf(const ImageObject& image, double width, double height);

/// How many runs of opaque pixels a masked bitmap is drawn in at most.
inline constexpr std::size_t MostMaskRuns = 20000;

/// A bitmap of the pixels, laid down with `opacity`; `groundAt` gives the colour under the middle of a pixel where it
/// shines through. Pixels that cannot be seen are left to a mask, where that makes at most `mostRuns` runs.
[[nodiscard]] std::unique_ptr<QsdBitmap> bitmapOf(QsdDisplay& display, const Pixels& pixels, double opacity,
                                                  const std::function<Rgb(Point)>& groundAt,
                                                  std::size_t mostRuns = MostMaskRuns);

/// The mean colour of all pixels.
[[nodiscard]] Rgb meanColor(const Pixels& pixels);

} // namespace qsdps
