#include "toolkit/raster/QsdDashes_p.h"

#include <algorithm>
#include <numeric>

namespace {

/// Where on its way through the dash pattern a line is.
class Phase {
public:
    explicit Phase(const std::vector<std::uint8_t>& lengths)
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
    const std::vector<std::uint8_t>& _lengths;
    double _period;
    std::size_t _entry = 0;
    double _rest;
};

struct Stretch {
    double begin;
    double end;
};

/// Narrows a stretch of a line to where a coordinate, `start` plus `step` a unit of length, is between `low` and
/// `high`.
void narrow(Stretch& stretch, double start, double step, double low, double high)
{
    if (step == 0) {
        if (start < low || start > high) {
            stretch.end = stretch.begin;
        }
        return;
    }
    const double atLow = (low - start) / step;
    const double atHigh = (high - start) / step;
    stretch.begin = std::max(stretch.begin, std::min(atLow, atHigh));
    stretch.end = std::min(stretch.end, std::max(atLow, atHigh));
}

} // namespace

void QsdCutDashes(const QsdChain& chain, const std::vector<std::uint8_t>& lengths, const QsdRect& area, double margin,
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
        Stretch seen{0, length};
        narrow(seen, from.x, direction.x, area.x - margin, static_cast<double>(area.right()) + margin);
        narrow(seen, from.y, direction.y, area.y - margin, static_cast<double>(area.bottom()) + margin);
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
