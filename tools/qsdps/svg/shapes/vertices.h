// The vertices of an outline and which way it runs there, for markers.
#pragma once

#include "drawing/geometry.h"

#include <vector>

namespace qsdps::svg {

struct Vertex {
    Point at;
    double angle = 0; ///< of the outline's direction, degrees; the bisector where it turns
};

/// All vertices in order.
[[nodiscard]] std::vector<Vertex> pathVertices(const Path& path);

} // namespace qsdps::svg
