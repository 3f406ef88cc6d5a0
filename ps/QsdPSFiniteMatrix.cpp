#include "ps/QsdPSFiniteMatrix_p.h"

#include <algorithm>
#include <cmath>

namespace {

double held(double value)
{
    constexpr double Most = 1e20;
    constexpr double Least = 1e-30;
    if (std::isnan(value) || std::fabs(value) < Least) {
        return 0;
    }
    return std::isinf(value) ? 0 : std::clamp(value, -Most, Most);
}

} // namespace

QsdTransformer QsdPSFiniteMatrix(const QsdTransformer& t)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    return {held(x11), held(x12), held(x21), held(x22), held(x0), held(y0)};
}

bool QsdPSIsFlat(const QsdTransformer& t)
{
    // Each value is off by half a unit of its sixth digit at most.
    constexpr double Error = 2e-5;
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    return !(std::fabs(x11 * x22 - x12 * x21) > Error * (std::fabs(x11 * x22) + std::fabs(x12 * x21)));
}

double QsdPSThickness(const QsdTransformer& t)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    const double longer = std::max(std::hypot(x11, x21), std::hypot(x12, x22));
    return longer > 0 ? std::fabs(x11 * x22 - x12 * x21) / longer : 0;
}
