#include "toolkit/raster/QsdFlatten.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Tolerance = 0.1;
constexpr int MostSteps = 1000;

int steps(double count)
{
    return std::isfinite(count) ? static_cast<int>(std::clamp(std::ceil(count), 1.0, double{MostSteps})) : MostSteps;
}

} // namespace

QsdChain QsdTamed(const QsdChain& chain, double farthest)
{
    QsdChain tamed;
    for (const QsdRealPoint& p : chain) {
        if (!std::isnan(p.x) && !std::isnan(p.y)) {
            tamed.push_back({std::clamp(p.x, -farthest, farthest), std::clamp(p.y, -farthest, farthest)});
        }
    }
    return tamed;
}

void QsdFlattenCurve(QsdChain& chain, QsdRealPoint control1, QsdRealPoint control2, QsdRealPoint end)
{
    const QsdRealPoint begin = chain.back();
    // The second differences bound how far the curve strays from its chords.
    const double bend =
        std::max(std::hypot(begin.x - 2 * control1.x + control2.x, begin.y - 2 * control1.y + control2.y),
                 std::hypot(control1.x - 2 * control2.x + end.x, control1.y - 2 * control2.y + end.y));
    const int count = steps(std::sqrt(0.75 * bend / Tolerance));
    for (int i = 1; i < count; ++i) {
        const double t = static_cast<double>(i) / count;
        const double u = 1 - t;
        const double b0 = u * u * u;
        const double b1 = 3 * u * u * t;
        const double b2 = 3 * u * t * t;
        const double b3 = t * t * t;
        chain.push_back({b0 * begin.x + b1 * control1.x + b2 * control2.x + b3 * end.x,
                         b0 * begin.y + b1 * control1.y + b2 * control2.y + b3 * end.y});
    }
    chain.push_back(end);
}

QsdChain QsdFlattenArc(QsdRealPoint center, double radiusX, double radiusY, double start, double range)
{
    constexpr double RadiansPerDegree = 3.14159265358979323846 / 180;
    const double sweep = std::clamp(range, -360.0, 360.0) * RadiansPerDegree;
    const double from = std::fmod(start, 360.0) * RadiansPerDegree;
    const double radius = std::max({radiusX, radiusY, 1.0});
    const double step = 2 * std::acos(std::max(0.0, 1 - Tolerance / radius));
    const int count = steps(std::fabs(sweep) / step);
    QsdChain chain;
    for (int i = 0; i <= count; ++i) {
        const double angle = from + sweep * i / count;
        chain.push_back({center.x + radiusX * std::cos(angle), center.y - radiusY * std::sin(angle)});
    }
    return chain;
}
