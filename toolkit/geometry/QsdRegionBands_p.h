// Unions and intersections of lists of rectangles.
#pragma once

#include "toolkit/geometry/QsdRect.h"

#include <cstddef>
#include <vector>

/// The pixels of all `rects` together as a canonical list: bands from top to bottom, in each band disjoint rectangles
/// from left to right, equal bands joined. Of more than `most` (at least 1) rectangles, the last bands are replaced by
/// one rectangle around what is left of `rects`; no more rectangles than that are ever built. Rectangles must have an
/// area.
[[nodiscard]] std::vector<QsdRect> QsdUniteRects(const std::vector<QsdRect>& rects, std::size_t most);

/// The pixels that belong to `a` and to `b`, in the same form and with the same limit.
[[nodiscard]] std::vector<QsdRect> QsdIntersectRects(const std::vector<QsdRect>& a, const std::vector<QsdRect>& b,
                                                     std::size_t most);
