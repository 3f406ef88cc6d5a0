// Gradients as bands of one colour each, for a device that has no gradients.
#pragma once

#include "page/colors.h"
#include "page/rings.h"

#include <vector>

namespace qsdps {

/// A stretch of a gradient that is shown in one colour.
struct GradientBand {
    double from = 0; ///< offset on the gradient, outside of 0 to 1 where it is continued
    double to = 0;
    Ink ink;
};

/// The bands between two offsets, without gaps, in rising order: so many that neighbours hardly differ, but no
/// narrower than `narrowest` where the colour does not jump.
[[nodiscard]] std::vector<GradientBand> bandsOf(const Gradient& gradient, double from, double to, double narrowest);

/// A piece of the plane and its ink; for the non-zero rule.
struct BandArea {
    Rings area;
    Ink ink;
    Rings inside{}; ///< what later pieces hide of the area anyway; they reach under its edge
};

/// What to lay over `bounds` to show a gradient there, in this order: each piece hides the edge of the one before, so
/// that no seams show. `toUnits` maps the gradient's space; `tolerance`, in units, is the finest detail that shows,
/// `overlap` how far bands reach under their neighbours. Nothing when the map cannot be inverted or the gradient has no
/// extent.
[[nodiscard]] std::vector<BandArea> bandAreas(const Gradient& gradient, const Matrix& toUnits, const QsdRect& bounds,
                                              double tolerance, double overlap);

} // namespace qsdps
