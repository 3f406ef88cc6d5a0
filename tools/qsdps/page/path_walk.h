// The way along a path.
#pragma once

#include "page/flatten.h"

namespace qsdps {

/// Walks along the straight pieces of a path.
class PathWalk {
public:
    /// Curves are followed to within `tolerance` of the path's own units.
    PathWalk(const Path& path, double tolerance) : _chains(flattened(path, Matrix(), tolerance)) {}

    /// The point `distance` along the path and the direction there in degrees; false beyond the ends.
    [[nodiscard]] bool at(double distance, Point& point, double& degrees) const;

private:
    std::vector<Chain> _chains;
};

/// A turn about the origin, in degrees.
[[nodiscard]] Matrix turned(double degrees);

} // namespace qsdps
