#include "page/path_walk.h"

#include <cmath>
#include <numbers>

namespace qsdps {

bool PathWalk::at(double distance, Point& point, double& degrees) const
{
    if (distance < 0) {
        return false;
    }
    for (const Chain& chain : _chains) {
        const std::size_t count = chain.points.size();
        for (std::size_t i = 1; i < count + (chain.closed ? 1 : 0); ++i) {
            const Point& a = chain.points[i - 1];
            const Point& b = chain.points[i % count];
            const double length = std::hypot(b.x - a.x, b.y - a.y);
            if (length > 0 && distance <= length) {
                const double part = distance / length;
                point = {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
                degrees = std::atan2(b.y - a.y, b.x - a.x) * 180 / std::numbers::pi;
                return true;
            }
            distance -= length;
        }
    }
    return false;
}

Matrix turned(double degrees)
{
    const double radians = degrees * std::numbers::pi / 180;
    return {std::cos(radians), std::sin(radians), -std::sin(radians), std::cos(radians), 0, 0};
}

} // namespace qsdps
