// Measures of outlines.
#pragma once

#include "drawing/geometry.h"

#include <optional>

namespace qsdps {

/// Bounding box of the outline itself, curves taken at their extremes; nothing for an empty path.
[[nodiscard]] std::optional<Box> pathBounds(const Path& path);
/// Length along the outline, closing lines included.
[[nodiscard]] double pathLength(const Path& path);
/// True when every coordinate is a finite number, before and after mapping.
[[nodiscard]] bool isFinite(const Path& path, const Matrix& map);
[[nodiscard]] bool isFinite(const Matrix& m);
/// The smallest box around both.
[[nodiscard]] Box unite(const Box& a, const Box& b);

} // namespace qsdps
