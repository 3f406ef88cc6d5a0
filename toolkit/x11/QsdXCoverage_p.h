// Which pixels a shape covers, as rectangles.
#pragma once

#include "toolkit/geometry/QsdRect.h"
#include "toolkit/raster/QsdPixels.h"

#include <X11/Xlib.h>

#include <vector>

/// The set bits of `mask`, whose corner lies at `origin`, as rectangles that do not overlap. Equal runs of rows that
/// follow each other make one. All coordinates must be within 0 and 32,767.
[[nodiscard]] std::vector<XRectangle> QsdXRectanglesOf(const QsdPixels& mask, const QsdPoint& origin);

/// A rectangle of X; all its numbers must be within X's 16 bits.
[[nodiscard]] inline XRectangle QsdXRectangle(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height)
{
    return {static_cast<short>(x), static_cast<short>(y), static_cast<unsigned short>(width),
            static_cast<unsigned short>(height)};
}
