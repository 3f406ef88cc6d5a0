// Curves as chains of straight lines.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <vector>

/// A position between the pixels' corners.
struct QSD_API QsdRealPoint {
    double x = 0; ///< from left to right
    double y = 0; ///< from top to bottom

    /// Equality of both coordinates.
    friend bool operator==(const QsdRealPoint&, const QsdRealPoint&) = default;
};

/// One chain of lines.
using QsdChain = std::vector<QsdRealPoint>;

/// The points of a chain that are numbers, with their coordinates held between -farthest and farthest, so that they can
/// be reckoned with safely.
[[nodiscard]] QSD_API QsdChain QsdTamed(const QsdChain& chain, double farthest);

/// Adds the cubic curve from the last point of `chain` (which is there) to `end`, exact to about a tenth of a unit.
QSD_API void QsdFlattenCurve(QsdChain& chain, QsdRealPoint control1, QsdRealPoint control2, QsdRealPoint end);

/// The arc of an ellipse around `center`: `start` and `range` in degrees, counter-clockwise as seen with y downwards; a
/// range of more than a turn is one turn.
[[nodiscard]] QSD_API QsdChain QsdFlattenArc(QsdRealPoint center, double radiusX, double radiusY, double start,
                                             double range);
