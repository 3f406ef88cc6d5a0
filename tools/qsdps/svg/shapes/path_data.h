// The d attribute of paths.
#pragma once

#include "drawing/geometry.h"

#include <string_view>

namespace qsdps::svg {

struct PathData {
    Path path;
    bool complete = true; ///< false when a fault ended the reading early
};

/// Reads path data; after a fault everything before it stands.
[[nodiscard]] PathData parsePathData(std::string_view text);

} // namespace qsdps::svg
