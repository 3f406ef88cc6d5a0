#include "toolkit/raster/QsdStroke.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

namespace {

constexpr double MiterLimit = 10;
constexpr std::size_t MostDashes = 100000; ///< of one line; what is left over is solid

QsdRealPoint operator+(QsdRealPoint a, QsdRealPoint b)
{
    return {a.x + b.x, a.y + b.y};
}
QsdRealPoint operator-(QsdRealPoint a, QsdRealPoint b)
{
    return {a.x - b.x, a.y - b.y};
}
QsdRealPoint operator*(QsdRealPoint a, double factor)
{
    return {a.x * factor, a.y * factor};
}

double lengthOf(QsdRealPoint v)
{
    return std::hypot(v.x, v.y);
}

QsdRealPoint directionOf(QsdRealPoint from, QsdRealPoint to)
{
    const QsdRealPoint v = to - from;
    return v * (1 / lengthOf(v));
}

QsdRealPoint normalOf(QsdRealPoint direction)
{
    return {-direction.y, direction.x};
}

/// The wedge that fills the outer side of the corner between two directions.
QsdChain cornerArea(QsdRealPoint at, QsdRealPoint in, QsdRealPoint out, double half)
{
    const double turn = in.x * out.y - in.y * out.x;
    const double side = turn > 0 ? -half : half;
    const QsdRealPoint a = at + normalOf(in) * side;
    const QsdRealPoint b = at + normalOf(out) * side;
    const double cosine = in.x * out.x + in.y * out.y;
    QsdChain area{at, a};
    // The mitre of an angle is as long as one over the sine of its half.
    const double halfSine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
    if (halfSine * MiterLimit >= 1) {
        const QsdRealPoint middle = normalOf(in) + normalOf(out);
        const double scale = 2 * side / (middle.x * middle.x + middle.y * middle.y);
        area.push_back(at + middle * scale);
    }
    area.push_back(b);
    // All rings go round the same way, so that overlapping ones add up.
    if (turn > 0) {
        std::reverse(area.begin() + 1, area.end());
    }
    return area;
}

QsdChain segmentArea(QsdRealPoint from, QsdRealPoint to, double half)
{
    const QsdRealPoint side = normalOf(directionOf(from, to)) * half;
    return {from + side, from - side, to - side, to + side};
}

std::vector<QsdChain> solidArea(const QsdChain& chain, bool closed, double half)
{
    std::vector<QsdChain> rings;
    const std::size_t segments = closed ? chain.size() : chain.size() - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const QsdRealPoint from = chain[i];
        const QsdRealPoint to = chain[(i + 1) % chain.size()];
        rings.push_back(segmentArea(from, to, half));
        if (closed || i + 1 < segments) {
            const QsdRealPoint next = chain[(i + 2) % chain.size()];
            rings.push_back(cornerArea(to, directionOf(from, to), directionOf(to, next), half));
        }
    }
    return rings;
}

QsdChain withoutRepeats(const QsdChain& chain, bool closed)
{
    QsdChain distinct;
    for (const QsdRealPoint& p : chain) {
        if (std::isfinite(p.x) && std::isfinite(p.y) && (distinct.empty() || distinct.back() != p)) {
            distinct.push_back(p);
        }
    }
    while (closed && distinct.size() > 1 && distinct.back() == distinct.front()) {
        distinct.pop_back();
    }
    return distinct;
}

/// Cuts a chain into its dashes.
std::vector<QsdChain> dashesOf(QsdChain chain, bool closed, const std::vector<std::uint8_t>& lengths, double offset)
{
    if (closed) {
        chain.push_back(chain.front());
    }
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0) * (lengths.size() % 2 == 1 ? 2 : 1);
    double rest = std::fmod(offset, period);
    std::size_t entry = 0;
    while (rest >= lengths[entry % lengths.size()]) {
        rest -= lengths[entry++ % lengths.size()];
    }
    rest = lengths[entry % lengths.size()] - rest;

    std::vector<QsdChain> dashes;
    QsdChain dash;
    if (entry % 2 == 0) {
        dash.push_back(chain.front());
    }
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        const QsdRealPoint direction = directionOf(chain[i], chain[i + 1]);
        double left = lengthOf(chain[i + 1] - chain[i]);
        QsdRealPoint at = chain[i];
        while (left > rest && dashes.size() < MostDashes) {
            at = at + direction * rest;
            left -= rest;
            if (entry % 2 == 0) {
                dash.push_back(at);
                dashes.push_back(std::move(dash));
                dash.clear();
            } else {
                dash.assign(1, at);
            }
            rest = lengths[++entry % lengths.size()];
        }
        rest -= left;
        if (entry % 2 == 0 || dashes.size() == MostDashes) {
            dash.push_back(chain[i + 1]);
        }
    }
    if (dash.size() > 1) {
        dashes.push_back(std::move(dash));
    }
    return dashes;
}

} // namespace

std::vector<QsdChain> QsdStrokeArea(const QsdChain& chain, bool closed, double width,
                                    const std::vector<std::uint8_t>& dashes, double offset)
{
    const QsdChain line = withoutRepeats(chain, closed);
    if (line.size() < 2) {
        return {};
    }
    if (std::all_of(dashes.begin(), dashes.end(), [](std::uint8_t length) { return length == 0; })) {
        return solidArea(line, closed && line.size() > 2, width / 2);
    }
    std::vector<QsdChain> rings;
    for (const QsdChain& dash : dashesOf(line, closed, dashes, offset)) {
        const QsdChain distinct = withoutRepeats(dash, false);
        if (distinct.size() > 1) {
            std::vector<QsdChain> area = solidArea(distinct, false, width / 2);
            std::move(area.begin(), area.end(), std::back_inserter(rings));
        }
    }
    return rings;
}
