#include "page/dashes.h"

#include "toolkit/raster/QsdDashes_p.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace qsdps {

namespace {

constexpr double MostDashes = 50'000;      ///< and gaps, of one stroke
constexpr double MostSteps = 100'000'000;  ///< through the pattern, of one stroke
constexpr double Farthest = 1e12;          ///< beyond it, doubles no longer tell the dashes apart
constexpr double PartOfWidth = 1.0 / 4096; ///< that is as good as no length

/// Dashes without length become `shortest` at the cost of the gap that follows.
void lengthenDots(std::vector<double>& lengths, double shortest)
{
    for (std::size_t i = 0; i + 1 < lengths.size(); i += 2) {
        if (!(lengths[i] > 0)) {
            lengths[i] = shortest;
            lengths[i + 1] = std::max(0.0, lengths[i + 1] - shortest);
        }
    }
}

/// The way into the pattern, from 0 to the period; patterns without an end begin at their beginning.
double phaseOf(double offset, double period)
{
    const double phase = std::fmod(offset, period);
    const double positive = phase < 0 ? phase + period : phase;
    return std::isfinite(positive) ? positive : 0;
}

/// The chain as an open line of different points, at least two; a chain without length becomes one of `shortest`.
QsdChain lineOf(const Chain& chain, double shortest)
{
    QsdChain line;
    for (const Point& p : chain.points) {
        line.push_back({p.x, p.y});
    }
    if (chain.closed) {
        line.push_back(line.front());
    }
    line = QsdTamed(line, Farthest);
    line.erase(std::unique(line.begin(), line.end()), line.end());
    const bool isDot = chain.closed || chain.points.size() > 1;
    if (line.size() == 1 && isDot && shortest > 0) {
        line.push_back({line.front().x + shortest, line.front().y});
    }
    return line;
}

QsdDashView viewOf(const StrokeStyle& style, double width, const std::optional<Box>& seen)
{
    // Caps reach as far as the corner of a square.
    const double reach = width / 2 * std::max(style.join == LineJoin::Miter ? style.miterLimit : 1.0, 1.5);
    if (!seen) {
        return {{-Farthest, -Farthest}, {Farthest, Farthest}, reach, reach};
    }
    return {{seen->x, seen->y}, {seen->x + seen->width, seen->y + seen->height}, reach, reach};
}

} // namespace

std::optional<std::vector<Chain>> dashesOf(const std::vector<Chain>& chains, const StrokeStyle& style, double scale,
                                           const std::optional<Box>& seen)
{
    const double width = style.width * scale;
    const bool hasCaps = style.cap != LineCap::Butt;
    std::vector<double> lengths;
    for (const double length : style.dashes) {
        lengths.push_back(length * scale);
    }
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    if (!(period > 0)) {
        return std::nullopt;
    }
    const double shortest = hasCaps ? std::min(width, period) * PartOfWidth : 0;
    if (hasCaps) {
        lengthenDots(lengths, shortest);
    }
    const QsdDashView view = viewOf(style, width, seen);
    std::vector<QsdChain> lines;
    double count = 0;
    double steps = 0;
    for (const Chain& chain : chains) {
        lines.push_back(lineOf(chain, shortest));
        const auto entries = static_cast<double>(lengths.size());
        count += QsdSeenLength(lines.back(), view) / period * entries;
        steps += static_cast<double>(lines.back().size()) * entries;
    }
    if (!(count <= MostDashes) || steps > MostSteps) {
        return std::nullopt;
    }
    const double phase = phaseOf(style.dashOffset * scale, period);
    std::vector<Chain> dashes;
    for (const QsdChain& line : lines) {
        if (line.size() < 2) {
            continue;
        }
        QsdCutDashes(line, {lengths, phase}, view, [&](const QsdChain& points) {
            Chain dash;
            for (const QsdRealPoint& p : points) {
                dash.points.push_back({p.x, p.y});
            }
            dashes.push_back(std::move(dash));
        });
    }
    return dashes;
}

} // namespace qsdps
