// Which pixels lie inside polygons.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/raster/QsdFlatten.h"

#include <cstdint>
#include <functional>
#include <vector>

/// Receives the pixels from column `left` up to, but not including, `right` of a row.
using QsdSpanReceiver = std::function<void(std::int32_t y, std::int32_t left, std::int32_t right)>;

/// Fills closed rings together: calls `receive` for each run of pixels of `area` whose centres lie inside, by the
/// even-odd or the non-zero winding rule, from top to bottom and left to right. Points that are no numbers are left
/// out.
QSD_API void QsdFillPolygons(const std::vector<QsdChain>& rings, bool evenOdd, const QsdRect& area,
                             const QsdSpanReceiver& receive);
