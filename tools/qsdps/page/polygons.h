// Areas and lines in the shortest form that a port has for them.
#pragma once

#include "page/rings.h"
#include "toolkit/port/QsdPort.h"

namespace qsdps {

/// Fills rings together by the palette's rule: as a rectangle, as one polygon, or as paths.
void fillPolygons(const QsdPort& port, const QsdPalette& palette, const Rings& rings);
/// Draws a line through the points, at least one.
void drawLine(const QsdPort& port, const QsdPalette& palette, const Ring& points);

} // namespace qsdps
