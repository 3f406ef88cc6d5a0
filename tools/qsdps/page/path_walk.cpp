#include "page/path_walk.h"

#include "page/flatten.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace qsdps {

PathWalk::PathWalk(const Path& path, double tolerance)
{
    double distance = 0;
    for (const Chain& chain : flattened(path, Matrix(), tolerance)) {
        const std::size_t count = chain.points.size();
        for (std::size_t i = 1; i < count + (chain.closed ? 1 : 0); ++i) {
            const Point& from = chain.points[i - 1];
            const Point& to = chain.points[i % count];
            const double length = std::hypot(to.x - from.x, to.y - from.y);
            if (length > 0) {
                distance += length;
                _pieces.push_back({from, to, distance});
            }
        }
    }
}

bool PathWalk::at(double distance, Point& point, double& degrees) const
{
    const auto piece = std::lower_bound(_pieces.begin(), _pieces.end(), distance,
                                        [](const Piece& p, double wanted) { return p.end < wanted; });
    if (!(distance >= 0) || piece == _pieces.end()) {
        return false;
    }
    const double dx = piece->to.x - piece->from.x;
    const double dy = piece->to.y - piece->from.y;
    const double back = (piece->end - distance) / std::hypot(dx, dy);
    point = {piece->to.x - dx * back, piece->to.y - dy * back};
    degrees = std::atan2(dy, dx) * 180 / std::numbers::pi;
    return true;
}

Matrix turned(double degrees)
{
    const double radians = degrees * std::numbers::pi / 180;
    return {std::cos(radians), std::sin(radians), -std::sin(radians), std::cos(radians), 0, 0};
}

} // namespace qsdps
