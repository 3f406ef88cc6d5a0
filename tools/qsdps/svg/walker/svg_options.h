// What a drawing is read with.
#pragma once

#include "drawing/geometry.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qsdps {

struct SvgOptions {
    std::string fileName;                        ///< for messages
    std::filesystem::path baseFolder;            ///< images and style sheets are read inside it only; empty: none
    double dpi = 96;                             ///< CSS pixels in an inch of the drawing, above 0
    Box fallbackViewport{0, 0, 300, 150};        ///< what percentages are of, where the drawing has no size at all
    std::vector<std::string> languages = {"en"}; ///< that the user reads, most wanted first
};

} // namespace qsdps
