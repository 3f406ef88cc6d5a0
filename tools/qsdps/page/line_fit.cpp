#include "page/line_fit.h"

#include "page/units.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

namespace {

Point step(Point a, Point b)
{
    return {b.x - a.x, b.y - a.y};
}

double lengthOf(Point v)
{
    return std::hypot(v.x, v.y);
}

/// The points without repeats.
std::vector<Point> distinct(const Chain& chain)
{
    std::vector<Point> points;
    for (const Point& p : chain.points) {
        if (points.empty() || points.back() != p) {
            points.push_back(p);
        }
    }
    while (chain.closed && points.size() > 1 && points.back() == points.front()) {
        points.pop_back();
    }
    return points;
}

/// Whether the corner from direction `in` to `out` looks alike in the port and in the drawing.
bool cornerFits(Point in, Point out, const StrokeStyle& style)
{
    constexpr double FlatCosine = 0.94; // turns of less than twenty degrees look alike with every join
    const double cosine = (in.x * out.x + in.y * out.y) / (lengthOf(in) * lengthOf(out));
    if (cosine > FlatCosine) {
        return true;
    }
    if (style.join != LineJoin::Miter) {
        return false;
    }
    // A mitre is as long as one over the sine of half the angle between the sides.
    const double sine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
    const bool mitredHere = sine * style.miterLimit >= 1;
    const bool mitredThere = sine * PortMiterLimit >= 1;
    return mitredHere == mitredThere;
}

bool chainFits(const Chain& chain, const StrokeStyle& style)
{
    const std::vector<Point> points = distinct(chain);
    const bool closed = chain.closed && points.size() > 2;
    if (points.size() < 2) {
        return style.cap == LineCap::Butt;
    }
    if (!closed && style.cap != LineCap::Butt) {
        return false;
    }
    const std::size_t corners = closed ? points.size() : points.size() - 2;
    for (std::size_t i = 0; i < corners; ++i) {
        const Point a = points[i];
        const Point b = points[(i + 1) % points.size()];
        const Point c = points[(i + 2) % points.size()];
        if (!cornerFits(step(a, b), step(b, c), style)) {
            return false;
        }
    }
    return true;
}

/// The closed chain as a line that begins and ends inside its longest side.
std::vector<Point> opened(const std::vector<Point>& points, double width)
{
    std::size_t longest = 0;
    double length = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double side = lengthOf(step(points[i], points[(i + 1) % points.size()]));
        if (side > length) {
            length = side;
            longest = i;
        }
    }
    const Point from = points[longest];
    const Point to = points[(longest + 1) % points.size()];
    const auto along = [&](double part) {
        return Point{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
    };
    std::vector<Point> line{along(0.5)};
    for (std::size_t i = 1; i <= points.size(); ++i) {
        line.push_back(points[(longest + i) % points.size()]);
    }
    line.push_back(along(0.5 + std::min(0.25, width / 2 / length)));
    return line;
}

} // namespace

bool fitsLines(const std::vector<Chain>& chains, const StrokeStyle& style)
{
    return std::all_of(chains.begin(), chains.end(), [&](const Chain& chain) { return chainFits(chain, style); });
}

Rings linesOf(const std::vector<Chain>& chains, double width)
{
    Rings lines;
    for (const Chain& chain : chains) {
        const std::vector<Point> points = distinct(chain);
        if (points.size() < 2) {
            continue;
        }
        const std::vector<Point> line = chain.closed && points.size() > 2 ? opened(points, width) : points;
        Ring ring;
        for (const Point& p : line) {
            const QsdPoint point = rounded(p);
            if (ring.empty() || ring.back() != point) {
                ring.push_back(point);
            }
        }
        if (ring.size() > 1) {
            lines.push_back(std::move(ring));
        }
    }
    return lines;
}

} // namespace qsdps
