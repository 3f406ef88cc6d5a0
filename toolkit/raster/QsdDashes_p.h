// Dashed lines as separate pieces.
#pragma once

#include "toolkit/geometry/QsdRect.h"
#include "toolkit/raster/QsdFlatten.h"

#include <cmath>
#include <functional>
#include <vector>

inline QsdRealPoint operator+(QsdRealPoint a, QsdRealPoint b)
{
    return {a.x + b.x, a.y + b.y};
}
inline QsdRealPoint operator-(QsdRealPoint a, QsdRealPoint b)
{
    return {a.x - b.x, a.y - b.y};
}
inline QsdRealPoint operator*(QsdRealPoint a, double factor)
{
    return {a.x * factor, a.y * factor};
}

/// The step of length 1 from one point towards another, different one.
[[nodiscard]] inline QsdRealPoint QsdDirection(QsdRealPoint from, QsdRealPoint to)
{
    const QsdRealPoint v = to - from;
    return v * (1 / std::hypot(v.x, v.y));
}

/// Calls `receive` with each dash of a chain of finite points, any two neighbours of which differ. `lengths` are those
/// of dashes and gaps in turn, not all 0. What lies further than `reach` from `area` is passed over at once.
void QsdCutDashes(const QsdChain& chain, const std::vector<double>& lengths, const QsdRect& area, double reach,
                  const std::function<void(const QsdChain& dash)>& receive);
