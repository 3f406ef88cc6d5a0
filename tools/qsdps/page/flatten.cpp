#include "page/flatten.h"

#include <algorithm>
#include <cmath>

namespace qsdps {

namespace {

bool isFinite(Point p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

void addCurve(std::vector<Point>& points, Point c1, Point c2, Point end, double tolerance)
{
    constexpr double MostSteps = 500;
    const Point begin = points.back();
    // The second differences bound how far the curve strays from its chords.
    const double bend = std::max(std::hypot(begin.x - 2 * c1.x + c2.x, begin.y - 2 * c1.y + c2.y),
                                 std::hypot(c1.x - 2 * c2.x + end.x, c1.y - 2 * c2.y + end.y));
    const double wanted = std::ceil(std::sqrt(0.75 * bend / tolerance));
    const int steps = static_cast<int>(std::clamp(wanted, 1.0, MostSteps));
    for (int i = 1; i < steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        points.push_back({cubicAt(begin.x, c1.x, c2.x, end.x, t), cubicAt(begin.y, c1.y, c2.y, end.y, t)});
    }
    points.push_back(end);
}

} // namespace

std::vector<Chain> flattened(const Path& path, const Matrix& map, double tolerance)
{
    std::vector<Chain> chains;
    Point start;
    const Point* next = path.points().data();
    // A sub-path may go on after it was closed, from where it started.
    const auto current = [&]() -> std::vector<Point>& {
        if (chains.empty() || chains.back().closed) {
            chains.push_back({{start}, false});
        }
        return chains.back().points;
    };
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            start = map.map(*next++);
            if (isFinite(start)) {
                chains.push_back({{start}, false});
            }
            break;
        case Path::Verb::Line: {
            const Point end = map.map(*next++);
            if (isFinite(end)) {
                current().push_back(end);
            }
            break;
        }
        case Path::Verb::Cubic: {
            const Point c1 = map.map(next[0]);
            const Point c2 = map.map(next[1]);
            const Point end = map.map(next[2]);
            next += 3;
            if (isFinite(c1) && isFinite(c2) && isFinite(end)) {
                addCurve(current(), c1, c2, end, tolerance);
            }
            break;
        }
        case Path::Verb::Close:
            if (!chains.empty()) {
                chains.back().closed = true;
            }
            break;
        }
    }
    return chains;
}

} // namespace qsdps
