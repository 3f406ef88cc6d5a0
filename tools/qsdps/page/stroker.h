// Lines as areas, for what a port's own lines cannot do.
#pragma once

#include "drawing/paint.h"
#include "drawing/report.h"
#include "page/rings.h"

#include <optional>

namespace qsdps {

/// Where a stroke goes.
struct StrokeFrame {
    Matrix toUnits;              ///< maps the path's user space
    double unitsPerPixel = 1;    ///< units in a CSS pixel, in which a width is that does not scale
    double tolerance = 1;        ///< how far, in units, curves and round corners may stray
    std::optional<QsdRect> seen; ///< dashes outside of it may be left out; none: all are wanted
};

/// The area of the stroke of `path` in units, for the non-zero rule. The stroke is made in user space and mapped with
/// the path, so uneven scales stretch it. A line of too many dashes becomes a solid one, which the report tells.
[[nodiscard]] Rings strokeArea(const Path& path, const StrokeStyle& style, const StrokeFrame& frame, Report& report);

} // namespace qsdps
