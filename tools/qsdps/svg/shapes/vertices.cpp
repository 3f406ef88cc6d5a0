#include "svg/shapes/vertices.h"

#include <cmath>
#include <numbers>
#include <optional>

namespace qsdps::svg {
namespace {

using Direction = std::optional<double>; ///< radians; nothing where a segment has no length

struct Corner {
    Point at;
    Direction in;
    Direction out;
};

Direction direction(Point from, Point to)
{
    if (from == to) {
        return {};
    }
    return std::atan2(to.y - from.y, to.x - from.x);
}

Direction firstOf(Direction a, Direction b, Direction c)
{
    return a ? a : b ? b : c;
}

double bisector(double in, double out)
{
    // The turn taken the short way round.
    const double turn = std::remainder(out - in, 2 * std::numbers::pi);
    return in + turn / 2;
}

class Collector {
public:
    void move(Point p)
    {
        finish();
        _corners.push_back({p, {}, {}});
    }

    void segment(Point to, Direction leaving, Direction arriving)
    {
        _corners.back().out = leaving;
        _corners.push_back({to, arriving, {}});
    }

    void close()
    {
        if (_corners.empty()) {
            return;
        }
        const Direction closing = direction(_corners.back().at, _corners.front().at);
        _corners.back().out = closing;
        _corners.push_back({_corners.front().at, closing, {}});
        // Start and end are one corner.
        if (!closing) {
            _corners.back().in = _corners[_corners.size() - 2].in;
        }
        _corners.back().out = _corners.front().out;
        _corners.front().in = _corners.back().in;
    }

    void finish()
    {
        Direction last;
        for (Corner& corner : _corners) {
            if (!corner.in) {
                corner.in = last;
            }
            if (corner.out) {
                last = corner.out;
            }
        }
        Direction next;
        for (auto corner = _corners.rbegin(); corner != _corners.rend(); ++corner) {
            if (!corner->out) {
                corner->out = next;
            }
            if (corner->in) {
                next = corner->in;
            }
        }
        for (const Corner& corner : _corners) {
            const double in = firstOf(corner.in, corner.out, 0).value_or(0);
            const double out = firstOf(corner.out, corner.in, 0).value_or(0);
            _vertices.push_back({corner.at, bisector(in, out) * 180 / std::numbers::pi});
        }
        _corners.clear();
    }

    [[nodiscard]] std::vector<Vertex> take() { return std::move(_vertices); }
    [[nodiscard]] Point at() const { return _corners.back().at; }

private:
    std::vector<Corner> _corners;
    std::vector<Vertex> _vertices;
};

} // namespace

std::vector<Vertex> pathVertices(const Path& path)
{
    Collector collector;
    const Point* p = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            collector.move(*p++);
            break;
        case Path::Verb::Line: {
            const Direction along = direction(collector.at(), *p);
            collector.segment(*p++, along, along);
            break;
        }
        case Path::Verb::Cubic: {
            const Point from = collector.at();
            collector.segment(p[2], firstOf(direction(from, p[0]), direction(from, p[1]), direction(from, p[2])),
                              firstOf(direction(p[1], p[2]), direction(p[0], p[2]), direction(from, p[2])));
            p += 3;
            break;
        }
        case Path::Verb::Close:
            collector.close();
            break;
        }
    }
    collector.finish();
    return collector.take();
}

} // namespace qsdps::svg
