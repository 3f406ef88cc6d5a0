// Elliptical arcs as cubic curves.
#pragma once

#include "drawing/geometry.h"

namespace qsdps::svg {

/// An arc between two points in the terms of path data.
struct Arc {
    Point from;
    double rx = 0; ///< radii, user units; too small ones grow until the arc reaches
    double ry = 0;
    double rotation = 0; ///< of the ellipse's x axis, degrees
    bool large = false;
    bool sweep = false;
    Point to;
};

/// Appends the arc to a path that already stands at `arc.from`; a line where a radius is zero.
void appendArc(Path& path, const Arc& arc);
/// Appends a whole ellipse as a closed sub-path that starts at its right end and runs clockwise on the page.
void appendEllipse(Path& path, Point centre, double rx, double ry);

} // namespace qsdps::svg
