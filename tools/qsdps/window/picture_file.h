// Pixels as a picture file.
#pragma once

#include "window/window_pixels.h"

#include <cstdio>
#include <string>

namespace qsdps {

/// Writes the smallest raw PNM file that keeps all colours, a bitmap, a greymap or a pixmap, with the title in a
/// comment. False when that fails.
[[nodiscard]] bool writePicture(const WindowPixels& pixels, const std::string& title, std::FILE* file);

} // namespace qsdps
