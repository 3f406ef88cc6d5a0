#include "toolkit/raster/QsdDashes_p.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

/// Where on its way through the dash pattern a line is.
class Phase {
public:
    explicit Phase(const QsdDashPattern& pattern)
        : _lengths(pattern.lengths),
          // An odd number of lengths takes two rounds until a dash is a dash again.
          _period(std::accumulate(_lengths.begin(), _lengths.end(), 0.0) * (_lengths.size() % 2 == 1 ? 2 : 1)),
          _rest(_lengths.front())
    {
        if (pattern.offset > 0) {
            advance(pattern.offset);
        }
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

/// How far along and across a line that starts at `from` the corners of the area that is seen lie.
struct Position {
    Stretch along;
    Stretch across;
};

Position positionOf(const QsdDashView& view, QsdRealPoint from, QsdRealPoint direction)
{
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    Position position{{Infinite, -Infinite}, {Infinite, -Infinite}};
    const auto include = [](Stretch& stretch, double value) {
        stretch.begin = std::min(stretch.begin, value);
        stretch.end = std::max(stretch.end, value);
    };
    for (const double x : {view.topLeft.x, view.bottomRight.x}) {
        for (const double y : {view.topLeft.y, view.bottomRight.y}) {
            const QsdRealPoint corner = QsdRealPoint{x, y} - from;
            include(position.along, corner.x * direction.x + corner.y * direction.y);
            include(position.across, corner.x * direction.y - corner.y * direction.x);
        }
    }
    return position;
}

/// The part of a line of `length` whose dashes are seen.
Stretch seenPart(const QsdDashView& view, QsdRealPoint from, QsdRealPoint direction, double length)
{
    const Position position = positionOf(view, from, direction);
    if (position.across.begin > view.reach || position.across.end < -view.reach) {
        return {0, 0};
    }
    return {std::max(0.0, position.along.begin - view.margin), std::min(length, position.along.end + view.margin)};
}

double distance(QsdRealPoint from, QsdRealPoint to)
{
    return std::hypot(to.x - from.x, to.y - from.y);
}

} // namespace

double QsdSeenLength(const QsdChain& chain, const QsdDashView& view)
{
    double length = 0;
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        const Stretch seen =
            seenPart(view, chain[i], QsdDirection(chain[i], chain[i + 1]), distance(chain[i], chain[i + 1]));
        length += std::max(0.0, seen.end - seen.begin);
    }
    return length;
}

void QsdCutDashes(const QsdChain& chain, const QsdDashPattern& pattern, const QsdDashView& view,
                  const std::function<void(const QsdChain& dash)>& receive)
{
    Phase phase(pattern);
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
        const double length = distance(from, chain[i + 1]);
        const Stretch seen = seenPart(view, from, direction, length);
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
