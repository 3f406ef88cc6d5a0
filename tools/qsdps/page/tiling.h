// Where the cells of a pattern come to lie.
#pragma once

#include "drawing/geometry.h"
#include "toolkit/geometry/QsdRect.h"

#include <cstddef>
#include <vector>

namespace qsdps {

/// The shifts, in pattern space, of all repetitions of `cell` that touch `bounds`; `toUnits` maps the pattern's space.
/// None when they would be more than `most`, or the map cannot be inverted.
[[nodiscard]] std::vector<Matrix> cellsOver(const QsdRect& bounds, const Box& cell, const Matrix& toUnits,
                                            std::size_t most);

} // namespace qsdps
