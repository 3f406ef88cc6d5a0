#include "toolkit/raster/QsdStroke.h"

#include "toolkit/raster/QsdDashes_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Farthest = 1e12; ///< beyond it, doubles no longer tell the dashes apart

QsdRealPoint normalOf(QsdRealPoint direction)
{
    return {-direction.y, direction.x};
}

/// The wedge that fills the outer side of the corner between two directions.
QsdChain cornerArea(QsdRealPoint at, QsdRealPoint in, QsdRealPoint out, double half, double miterLimit)
{
    const double turn = in.x * out.y - in.y * out.x;
    const double side = turn > 0 ? -half : half;
    QsdChain area{at, at + normalOf(in) * side};
    // The mitre of an angle is as long as one over the sine of its half.
    const double cosine = in.x * out.x + in.y * out.y;
    const double halfSine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
    if (halfSine * miterLimit >= 1) {
        const QsdRealPoint middle = normalOf(in) + normalOf(out);
        area.push_back(at + middle * (2 * side / (middle.x * middle.x + middle.y * middle.y)));
    }
    area.push_back(at + normalOf(out) * side);
    return area;
}

QsdChain segmentArea(QsdRealPoint from, QsdRealPoint to, double half)
{
    const QsdRealPoint side = normalOf(QsdDirection(from, to)) * half;
    return {from + side, from - side, to - side, to + side};
}

void strokeSolid(const QsdChain& chain, bool closed, double half, double miterLimit, const QsdPieceReceiver& receive)
{
    const std::size_t segments = closed ? chain.size() : chain.size() - 1;
    for (std::size_t i = 0; i < segments; ++i) {
        const QsdRealPoint from = chain[i];
        const QsdRealPoint to = chain[(i + 1) % chain.size()];
        receive(segmentArea(from, to, half));
        if (closed || i + 1 < segments) {
            const QsdRealPoint next = chain[(i + 2) % chain.size()];
            receive(cornerArea(to, QsdDirection(from, to), QsdDirection(to, next), half, miterLimit));
        }
    }
}

QsdChain withoutRepeats(const QsdChain& chain, bool closed)
{
    QsdChain distinct = QsdTamed(chain, Farthest);
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    while (closed && distinct.size() > 1 && distinct.back() == distinct.front()) {
        distinct.pop_back();
    }
    return distinct;
}

/// Where dashes whose corners are as long as `reach` are seen in `area`. The corners of very wide lines are cut at
/// last, so that no line has more dashes to see than the area has room for.
QsdDashView viewOf(const QsdRect& area, double reach)
{
    constexpr double FarthestCorner = 4096;
    return {{static_cast<double>(area.x), static_cast<double>(area.y)},
            {static_cast<double>(area.right()), static_cast<double>(area.bottom())},
            reach,
            std::min(reach, FarthestCorner)};
}

} // namespace

void QsdStroke(const QsdChain& chain, bool closed, double width, const std::vector<double>& dashes, double miterLimit,
               const QsdRect& area, const QsdPieceReceiver& receive)
{
    QsdChain line = withoutRepeats(chain, closed);
    const double half = width / 2;
    if (line.size() == 1) {
        const QsdRealPoint p = line.front();
        receive(segmentArea({p.x - half, p.y}, {p.x + half, p.y}, half));
        return;
    }
    if (line.empty()) {
        return;
    }
    if (dashes.empty()) {
        strokeSolid(line, closed && line.size() > 2, half, miterLimit, receive);
        return;
    }
    if (closed) {
        line.push_back(line.front());
    }
    QsdCutDashes(line, {dashes, 0}, viewOf(area, width * miterLimit), [&](const QsdChain& dash) {
        const QsdChain distinct = withoutRepeats(dash, false);
        if (distinct.size() > 1) {
            strokeSolid(distinct, false, half, miterLimit, receive);
        }
    });
}
