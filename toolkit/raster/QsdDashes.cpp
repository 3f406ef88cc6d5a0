#include "toolkit/raster/QsdDashes_p.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

/// Where on its way through the dash pattern a line is.
class Phase {
public:
    explicit Phase(const std::vector<double>& lengths)
        : _lengths(lengths),
          // An odd number of lengths takes two rounds until a dash is a dash again.
          _period(std::accumulate(lengths.begin(), lengths.end(), 0.0) * (lengths.size() % 2 == 1 ? 2 : 1)),
          _rest(lengths.front())
    {
    }

    [[nodiscard]] bool inDash() const { return _entry % 2 == 0; }
    /// How far the current dash or gap still goes.
    [[nodiscard]] double rest() const { return _rest; }
    void next() { _rest = _lengths[++_entry % _lengths.size()]; }
    void advance(double distance)
    {
        distance = std::fmod(distance, _period);
        while (distance >= _rest) {
            distance -= _rest;
            next();
        }
        _rest -= distance;
    }

private:
    const std::vector<double>& _lengths;
    double _period;
    std::size_t _entry = 0;
    double _rest;
};

/// From where to where something reaches.
struct Stretch {
    double begin;
    double end;
};

/// How far along and across a line that starts at `from` the corners of `area` lie.
struct Position {
    Stretch along;
    Stretch across;
};

Position positionOf(const QsdRect& area, QsdRealPoint from, QsdRealPoint direction)
{
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    Position position{{Infinite, -Infinite}, {Infinite, -Infinite}};
    const auto include = [](Stretch& stretch, double value) {
        stretch.begin = std::min(stretch.begin, value);
        stretch.end = std::max(stretch.end, value);
    };
    for (const std::int64_t x : {std::int64_t{area.x}, area.right()}) {
        for (const std::int64_t y : {std::int64_t{area.y}, area.bottom()}) {
            const QsdRealPoint corner = QsdRealPoint{static_cast<double>(x), static_cast<double>(y)} - from;
            include(position.along, corner.x * direction.x + corner.y * direction.y);
            include(position.across, corner.x * direction.y - corner.y * direction.x);
        }
    }
    return position;
}

/// The part of a line of `length` from which something that reaches `reach` to all sides can be seen in `area`. The
/// corners of very wide lines are cut there at last, so that no line has more dashes to see than the area has room for.
Stretch seenPart(const QsdRect& area, QsdRealPoint from, QsdRealPoint direction, double length, double reach)
{
    constexpr double FarthestCorner = 4096;
    const Position position = positionOf(area, from, direction);
    if (position.across.begin > reach || position.across.end < -reach) {
        return {0, 0};
    }
    const double margin = std::min(reach, FarthestCorner);
    return {std::max(0.0, position.along.begin - margin), std::min(length, position.along.end + margin)};
}

} // namespace

void QsdCutDashes(const QsdChain& chain, const std::vector<double>& lengths, const QsdRect& area, double reach,
                  const std::function<void(const QsdChain& dash)>& receive)
{
    Phase phase(lengths);
    QsdChain dash;
    const auto finishDash = [&] {
        if (dash.size() > 1) {
            receive(dash);
        }
        dash.clear();
    };
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        const QsdRealPoint from = chain[i];
        const QsdRealPoint direction = QsdDirection(from, chain[i + 1]);
        const double length = std::hypot(chain[i + 1].x - from.x, chain[i + 1].y - from.y);
        const Stretch seen = seenPart(area, from, direction, length, reach);
        if (seen.begin >= seen.end) {
            finishDash();
            phase.advance(length);
            continue;
        }
        if (seen.begin > 0) {
            finishDash();
            phase.advance(seen.begin);
        }
        double at = seen.begin;
        if (phase.inDash() && dash.empty()) {
            dash.push_back(from + direction * at);
        }
        while (seen.end - at > phase.rest()) {
            at += phase.rest();
            const bool ended = phase.inDash();
            phase.next();
            if (ended) {
                dash.push_back(from + direction * at);
                finishDash();
            } else {
                dash.assign(1, from + direction * at);
            }
        }
        phase.advance(seen.end - at);
        if (!dash.empty()) {
            dash.push_back(from + direction * seen.end);
        }
        if (seen.end < length) {
            finishDash();
            phase.advance(length - seen.end);
        }
    }
    finishDash();
}
