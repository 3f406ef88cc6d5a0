// The way along a path.
#pragma once

#include "drawing/geometry.h"

#include <vector>

namespace qsdps {

/// Walks along the straight pieces of a path.
class PathWalk {
public:
    /// Curves are followed to within `tolerance` of the path's own units.
    PathWalk(const Path& path, double tolerance);

    /// The point `distance` along the path and the direction there in degrees; false beyond the ends.
    [[nodiscard]] bool at(double distance, Point& point, double& degrees) const;

private:
    struct Piece {
        Point from;
        Point to;
        double end; ///< distance along the path
    };

    std::vector<Piece> _pieces;
};

/// A turn about the origin, in degrees.
[[nodiscard]] Matrix turned(double degrees);

} // namespace qsdps
