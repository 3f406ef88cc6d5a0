// Dashed lines as separate pieces.
#pragma once

#include "toolkit/base/QsdExport.h"
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

/// How a line is dashed.
struct QsdDashPattern {
    const std::vector<double>& lengths; ///< of dashes and gaps in turn, none negative and not all 0
    double offset = 0;                  ///< how far into them a line begins; finite and not negative
};

/// What is seen of dashed lines.
struct QsdDashView {
    QsdRealPoint topLeft; ///< of the area that is seen
    QsdRealPoint bottomRight;
    double reach;  ///< lines that pass the area at a greater distance are not seen
    double margin; ///< how far in front of the area and behind it dashes still count
};

/// How much of a chain of finite points, any two neighbours of which differ, lies where its dashes are seen.
[[nodiscard]] QSD_API double QsdSeenLength(const QsdChain& chain, const QsdDashView& view);

/// Calls `receive` with each dash of a chain of finite points, any two neighbours of which differ. What is not seen is
/// passed over at once.
QSD_API void QsdCutDashes(const QsdChain& chain, const QsdDashPattern& pattern, const QsdDashView& view,
                          const std::function<void(const QsdChain& dash)>& receive);
