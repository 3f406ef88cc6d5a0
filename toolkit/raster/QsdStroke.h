// Lines as areas.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/raster/QsdFlatten.h"

#include <functional>
#include <vector>

/// Receives a convex piece of a line's area.
using QsdPieceReceiver = std::function<void(const QsdChain& piece)>;

/// Widths that a mitre is long at most where nothing else is said.
inline constexpr double QsdUsualMiterLimit = 10;

/// Cuts the area of a line of `width` units along `chain` into convex pieces, which may overlap: butt ends, mitred
/// corners (cut where a mitre would be longer than `miterLimit` widths). `dashes` are lengths of dashes and gaps in
/// turn, which begin anew with every chain; none: a solid line. The ends of a closed chain are joined. A chain without
/// length is a square dot. Pieces outside `area` are left out, so a dashed line of any length costs no more than what
/// is seen.
QSD_API void QsdStroke(const QsdChain& chain, bool closed, double width, const std::vector<double>& dashes,
                       double miterLimit, const QsdRect& area, const QsdPieceReceiver& receive);
