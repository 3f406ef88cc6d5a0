// Lines as areas, for what a port's own lines cannot do.
#pragma once

#include "drawing/paint.h"
#include "page/rings.h"

namespace qsdps {

/// The area of the stroke of `path` in units, for the non-zero rule. `toUnits` maps the path's user space to units; the
/// stroke is made in user space and mapped with the path, so uneven scales stretch it. Curves and round corners are
/// within `tolerance` units. A width that does not scale is in CSS pixels of `unitsPerPixel` units.
[[nodiscard]] Rings strokeArea(const Path& path, const StrokeStyle& style, const Matrix& toUnits, double unitsPerPixel,
                               double tolerance);

} // namespace qsdps
