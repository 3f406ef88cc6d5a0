#include "drawing/path_metrics.h"

#include <algorithm>
#include <cmath>

namespace qsdps {
namespace {

struct Range {
    double low;
    double high;

    void add(double v)
    {
        low = std::min(low, v);
        high = std::max(high, v);
    }
};

/// Widens the range by the extremes of one coordinate of a cubic; the end point included.
void addCubic(Range& range, double p0, double p1, double p2, double p3)
{
    range.add(p3);
    if (p1 >= range.low && p1 <= range.high && p2 >= range.low && p2 <= range.high) {
        return;
    }
    const double a = p3 - p0 + 3 * (p1 - p2);
    const double b = 2 * (p0 - 2 * p1 + p2);
    const double c = p1 - p0;
    const auto addAt = [&](double t) {
        if (t > 0 && t < 1) {
            range.add(cubicAt(p0, p1, p2, p3, t));
        }
    };
    if (std::abs(a) < 1e-12 * (std::abs(b) + std::abs(c))) {
        if (b != 0) {
            addAt(-c / b);
        }
        return;
    }
    const double discriminant = b * b - 4 * a * c;
    if (discriminant < 0) {
        return;
    }
    const double root = std::sqrt(discriminant);
    addAt((-b + root) / (2 * a));
    addAt((-b - root) / (2 * a));
}

double distance(Point a, Point b)
{
    return std::hypot(b.x - a.x, b.y - a.y);
}

double cubicLength(Point p0, Point p1, Point p2, Point p3)
{
    constexpr int Pieces = 32;
    double length = 0;
    Point from = p0;
    for (int i = 1; i <= Pieces; ++i) {
        const double t = static_cast<double>(i) / Pieces;
        const Point to{cubicAt(p0.x, p1.x, p2.x, p3.x, t), cubicAt(p0.y, p1.y, p2.y, p3.y, t)};
        length += distance(from, to);
        from = to;
    }
    return length;
}

} // namespace

std::optional<Box> pathBounds(const Path& path)
{
    if (path.points().empty()) {
        return {};
    }
    Range x{path.points().front().x, path.points().front().x};
    Range y{path.points().front().y, path.points().front().y};
    const Point* p = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
        if (verb == Path::Verb::Close) {
            continue;
        }
        if (verb == Path::Verb::Cubic) {
            addCubic(x, p[-1].x, p[0].x, p[1].x, p[2].x);
            addCubic(y, p[-1].y, p[0].y, p[1].y, p[2].y);
            p += 3;
            continue;
        }
        x.add(p->x);
        y.add(p->y);
        ++p;
    }
    return Box{x.low, y.low, x.high - x.low, y.high - y.low};
}

double pathLength(const Path& path)
{
    double length = 0;
    Point start;
    Point at;
    const Point* p = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            start = at = *p++;
            break;
        case Path::Verb::Line:
            length += distance(at, *p);
            at = *p++;
            break;
        case Path::Verb::Cubic:
            length += cubicLength(at, p[0], p[1], p[2]);
            at = p[2];
            p += 3;
            break;
        case Path::Verb::Close:
            length += distance(at, start);
            at = start;
            break;
        }
    }
    return length;
}

bool isFinite(const Path& path, const Matrix& map)
{
    return std::all_of(path.points().begin(), path.points().end(), [&](Point p) {
        const Point mapped = map.map(p);
        return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(mapped.x) && std::isfinite(mapped.y);
    });
}

bool isFinite(const Matrix& m)
{
    return std::isfinite(m.a) && std::isfinite(m.b) && std::isfinite(m.c) && std::isfinite(m.d) && std::isfinite(m.e) &&
           std::isfinite(m.f);
}

Box unite(const Box& a, const Box& b)
{
    const double x = std::min(a.x, b.x);
    const double y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.width, b.x + b.width) - x, std::max(a.y + a.height, b.y + b.height) - y};
}

} // namespace qsdps
