// Plain geometry in floating point, shared by the readers of drawings and the painter.
#pragma once

#include <cstddef>
#include <vector>

namespace qsdps {

struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

/// A coordinate of a cubic curve by those of its four points, `t` from 0 to 1.
[[nodiscard]] inline double cubicAt(double p0, double p1, double p2, double p3, double t)
{
    const double s = 1 - t;
    return s * s * s * p0 + 3 * s * s * t * p1 + 3 * s * t * t * p2 + t * t * t * p3;
}

struct Box {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Box&) const = default;
};

/// An affine map in the order of SVG and PostScript: x' = a*x + c*y + e, y' = b*x + d*y + f.
struct Matrix {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double e = 0;
    double f = 0;

    bool operator==(const Matrix&) const = default;

    /// The image of a point.
    [[nodiscard]] Point map(Point p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
    /// Area factor; 0 when the map is singular.
    [[nodiscard]] double determinant() const { return a * d - b * c; }
    /// Mean length factor: the square root of the absolute area factor.
    [[nodiscard]] double meanScale() const;
    /// True when lengths scale alike in every direction (mirroring and rotation allowed).
    [[nodiscard]] bool isUniform() const;
    /// The inverse map; the identity when the map is singular.
    [[nodiscard]] Matrix inverse() const;

    [[nodiscard]] static Matrix translation(double x, double y) { return {1, 0, 0, 1, x, y}; }
    [[nodiscard]] static Matrix scaling(double x, double y) { return {x, 0, 0, y, 0, 0}; }
};

/// The map that applies `inner` first and `outer` second.
[[nodiscard]] Matrix operator*(const Matrix& outer, const Matrix& inner);

/// An outline of straight and cubic segments in one or more sub-paths.
/// Every sub-path starts with a Move; arcs and quadratic curves are turned into cubics by whoever builds the path.
class Path {
public:
    enum class Verb : unsigned char { Move, Line, Cubic, Close };

    void moveTo(Point p);
    void lineTo(Point p);
    void cubicTo(Point c1, Point c2, Point p);
    void close();
    /// Adds all of another outline.
    void append(const Path& other);

    [[nodiscard]] bool empty() const { return _verbs.empty(); }
    /// The verbs in order; Move and Line consume one point, Cubic three, Close none.
    [[nodiscard]] const std::vector<Verb>& verbs() const { return _verbs; }
    [[nodiscard]] const std::vector<Point>& points() const { return _points; }

    /// Bounding box of the points, control points included; all zero for an empty path.
    [[nodiscard]] Box controlBox() const;
    /// The same outline with every point mapped.
    [[nodiscard]] Path transformed(const Matrix& m) const;

private:
    std::vector<Verb> _verbs;
    std::vector<Point> _points;
};

/// The outline of a box, around it once from its corner at the top left.
[[nodiscard]] Path outlineOf(const Box& box);

} // namespace qsdps
