// Lines as areas.
#pragma once

#include "toolkit/raster/QsdFlatten.h"

#include <cstdint>
#include <vector>

/// The area of a line of `width` units along `chain`, as rings to be filled together by the winding rule: butt ends,
/// mitred corners (cut where a mitre would be longer than ten widths). `dashes` are lengths of dashes and gaps in turn,
/// none: a solid line; the pattern starts `offset` units in. The ends of a closed chain are joined.
[[nodiscard]] std::vector<QsdChain> QsdStrokeArea(const QsdChain& chain, bool closed, double width,
                                                  const std::vector<std::uint8_t>& dashes, double offset);
