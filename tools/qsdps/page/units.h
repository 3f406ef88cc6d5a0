// The integer units that a page is drawn in.
#pragma once

#include "drawing/geometry.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdTransformer.h"

namespace qsdps {

/// How drawings reach the integer coordinates of a port: page points times a power of ten, so fine that nothing is
/// visibly rounded and so coarse that line widths and font sizes keep within their 16 bits.
class Units {
public:
    /// Units for a page whose longer side measures `extent` points.
    explicit Units(double extent);

    /// Units in a point.
    [[nodiscard]] double perPoint() const { return _perPoint; }
    /// How far, in units, a flattened curve may stray: about a tenth of a dot of a page shown a thousand dots wide.
    [[nodiscard]] double tolerance() const { return _tolerance; }
    /// Side, in units, of the pixels in which things are painted that are too intricate for areas: those of a page
    /// shown 1250 dots wide.
    [[nodiscard]] double pixel() const { return _pixel; }
    /// The map from units back to points, for the port's transformer.
    [[nodiscard]] QsdTransformer toPoints() const;
    /// The map from points to units.
    [[nodiscard]] Matrix fromPoints() const { return Matrix::scaling(_perPoint, _perPoint); }

private:
    double _perPoint;
    double _tolerance;
    double _pixel;
};

/// The nearest integer point; coordinates far outside every page are held at a billion.
[[nodiscard]] QsdPoint rounded(Point p);

} // namespace qsdps
