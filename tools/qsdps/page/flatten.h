// Outlines as chains of straight lines.
#pragma once

#include "drawing/geometry.h"

#include <vector>

namespace qsdps {

/// One sub-path of straight lines.
struct Chain {
    std::vector<Point> points; ///< at least one
    bool closed = false;
};

/// The sub-paths of `path` mapped by `map`, curves within `tolerance` (in mapped units) of the true ones. A sub-path of
/// one point stays one. What is no finite number is left out.
[[nodiscard]] std::vector<Chain> flattened(const Path& path, const Matrix& map, double tolerance);

} // namespace qsdps
