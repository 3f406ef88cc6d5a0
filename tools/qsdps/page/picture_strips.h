// Pictures of any size, drawn as they are decoded.
#pragma once

#include "images/reader.h"
#include "page/painter.h"

#include <functional>

namespace qsdps {

/// Draws all rows of a picture, pixel (x, y) of the file over the unit square at (x, y) of the port's space, whose
/// transformer places them; so the strips meet without seams, whatever it is. What is translucent is blended with
/// `paper`. Not much more than a strip is in memory at a time. `goesOn` is told how many rows are done, and ends the
/// drawing by returning false. An error where the picture turns out broken.
[[nodiscard]] Status drawPicture(const QsdPort& port, ImageReader& reader, Rgb paper, PaintTools& tools,
                                 const std::function<bool(std::uint32_t)>& goesOn);

} // namespace qsdps
