// Affine transformations of the plane.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdRect.h"

/// Maps (x, y) to (x11*x + x12*y + x0, x21*x + x22*y + y0). The identity by default.
class QSD_API QsdTransformer {
public:
    QsdTransformer() = default;
    /// The map of these factors and offsets.
    QsdTransformer(double x11, double x12, double x21, double x22, double x0, double y0);
    /// The map that takes the rectangle `from` onto `to` without turning it; a side of `from` of length 0 is taken
    /// as 1.
    QsdTransformer(const QsdRect& from, const QsdRect& to);

    /// Reads the six values.
    void getValues(double& x11, double& x12, double& x21, double& x22, double& x0, double& y0) const;
    /// Replaces the six values.
    void setValues(double x11, double x12, double x21, double x22, double x0, double y0);

    /// True when every point is mapped onto itself (the values are compared exactly).
    [[nodiscard]] bool isIdentity() const;
    /// True when the map has no inverse.
    [[nodiscard]] bool isSingular() const;

    /// Appends a further map: afterwards points go through the old map first and then through `next`.
    QsdTransformer& compose(const QsdTransformer& next);
    /// Appends a shift.
    QsdTransformer& translate(double dx, double dy);
    /// Appends a scaling about the origin.
    QsdTransformer& scale(double sx, double sy);
    /// Appends a turn about the origin by `degrees`, from +x towards -y: counter-clockwise as seen with y downwards.
    QsdTransformer& rotate(double degrees);
    /// Appends a turn about `center`.
    QsdTransformer& rotate(double degrees, const QsdPoint& center);

    /// Maps `point` in place, each coordinate rounded to the nearest integer and held within 32 bits.
    void transform(QsdPoint& point) const;
    /// Maps a point given and returned in floating point.
    void transform(double& x, double& y) const;
    /// The smallest upright rectangle around the image of `rect`.
    [[nodiscard]] QsdRect transform(const QsdRect& rect) const;
    /// Maps `point` backwards in place, rounded like transform. A singular map leaves it as it is.
    void inverse(QsdPoint& point) const;
    /// The inverse map; the identity for a singular one.
    [[nodiscard]] QsdTransformer inverted() const;

    /// Equality of all six numbers.
    friend bool operator==(const QsdTransformer&, const QsdTransformer&) = default;

private:
    double _x11 = 1;
    double _x12 = 0;
    double _x21 = 0;
    double _x22 = 1;
    double _x0 = 0;
    double _y0 = 0;
};
