#include "svg/shapes/arc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qsdps::svg {
namespace {

/// Control point distance for a quarter of a circle of radius 1.
constexpr double Quarter = 0.5522847498307936;

double angleOf(Point p)
{
    return std::atan2(p.y, p.x);
}

} // namespace

void appendArc(Path& path, const Arc& arc)
{
    double rx = std::abs(arc.rx);
    double ry = std::abs(arc.ry);
    if (arc.from == arc.to) {
        return;
    }
    if (rx == 0 || ry == 0) {
        path.lineTo(arc.to);
        return;
    }
    const double phi = std::fmod(arc.rotation, 360) * std::numbers::pi / 180;
    const double cosine = std::cos(phi);
    const double sine = std::sin(phi);
    const double halfX = (arc.from.x - arc.to.x) / 2;
    const double halfY = (arc.from.y - arc.to.y) / 2;
    // The start point seen from the chord's middle, in the ellipse's own axes and unit circle.
    const double x = cosine * halfX + sine * halfY;
    const double y = -sine * halfX + cosine * halfY;
    const double reach = std::hypot(x / rx, y / ry);
    if (reach > 1) {
        rx *= reach;
        ry *= reach;
    }
    const double ux = x / rx;
    const double uy = y / ry;
    const double square = ux * ux + uy * uy;
    if (!(square > 0)) {
        path.lineTo(arc.to);
        return;
    }
    double factor = std::sqrt(std::max(0.0, 1 / square - 1));
    if (arc.large == arc.sweep) {
        factor = -factor;
    }
    const Point unitCentre{factor * uy, -factor * ux};
    const Matrix toUser{
        cosine * rx, sine * rx, -sine * ry, cosine * ry, (arc.from.x + arc.to.x) / 2, (arc.from.y + arc.to.y) / 2};
    const double start = angleOf({ux - unitCentre.x, uy - unitCentre.y});
    double turn = angleOf({-ux - unitCentre.x, -uy - unitCentre.y}) - start;
    if (arc.sweep && turn < 0) {
        turn += 2 * std::numbers::pi;
    }
    if (!arc.sweep && turn > 0) {
        turn -= 2 * std::numbers::pi;
    }

    const int pieces = std::clamp(static_cast<int>(std::ceil(std::abs(turn) / (std::numbers::pi / 2) - 1e-9)), 1, 4);
    const double step = turn / pieces;
    const double handle = 4.0 / 3 * std::tan(step / 4);
    for (int i = 0; i < pieces; ++i) {
        const double a0 = start + step * i;
        const double a1 = a0 + step;
        const Point p0{unitCentre.x + std::cos(a0), unitCentre.y + std::sin(a0)};
        const Point p1{unitCentre.x + std::cos(a1), unitCentre.y + std::sin(a1)};
        const Point c0{p0.x - handle * std::sin(a0), p0.y + handle * std::cos(a0)};
        const Point c1{p1.x + handle * std::sin(a1), p1.y - handle * std::cos(a1)};
        path.cubicTo(toUser.map(c0), toUser.map(c1), i + 1 == pieces ? arc.to : toUser.map(p1));
    }
}

void appendEllipse(Path& path, Point centre, double rx, double ry)
{
    const double kx = rx * Quarter;
    const double ky = ry * Quarter;
    const auto [x, y] = centre;
    path.moveTo({x + rx, y});
    path.cubicTo({x + rx, y + ky}, {x + kx, y + ry}, {x, y + ry});
    path.cubicTo({x - kx, y + ry}, {x - rx, y + ky}, {x - rx, y});
    path.cubicTo({x - rx, y - ky}, {x - kx, y - ry}, {x, y - ry});
    path.cubicTo({x + kx, y - ry}, {x + rx, y - ky}, {x + rx, y});
    path.close();
}

} // namespace qsdps::svg
