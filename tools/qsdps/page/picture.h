// Pictures of drawings as bitmaps of the toolkit.
#pragma once

#include "drawing/canvas.h"
#include "images/pixels.h"
#include "page/colors.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace qsdps {

/// The map from the pixels of a picture (`width` by `height`, both above 0) to the user space of the image object.
[[nodiscard]] Matrix placementOf(const ImageObject& image, double width, double height);

/// How many runs of opaque pixels a masked bitmap is drawn in at most.
inline constexpr std::size_t MostMaskRuns = 20000;

/// Gives the colour that an ink has on the page at a point of a picture.
using PixelBlender = std::function<Rgb(const Ink&, Point)>;

/// A bitmap of the pixels, laid down with `opacity`; `blender` is asked for the middles of pixels. Pixels that cannot
/// be seen are left to a mask, where that makes at most `mostRuns` runs.
[[nodiscard]] std::unique_ptr<QsdBitmap> bitmapOf(QsdDisplay& display, const Pixels& pixels, double opacity,
                                                  const PixelBlender& blender, std::size_t mostRuns = MostMaskRuns);

/// The mean colour of all pixels.
[[nodiscard]] Rgb meanColor(const Pixels& pixels);

} // namespace qsdps
