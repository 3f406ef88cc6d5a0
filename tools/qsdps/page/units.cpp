#include "page/units.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace qsdps {

Units::Units(double extent)
{
    constexpr double SmallPage = 120;
    constexpr double LargePage = 6000;
    constexpr double ShownDots = 10000;
    constexpr double FinestDetail = 0.03; // points; no printer shows less
    _perPoint = extent <= SmallPage ? 1000 : extent <= LargePage ? 100 : 10;
    constexpr double PixelDots = 1250;
    constexpr double FinestPixel = 0.05; // points; finer ones cost more than they show
    _pixel = _perPoint * std::max(FinestPixel, extent / PixelDots);
    _tolerance = std::max(0.5, _perPoint * std::min(FinestDetail, extent / ShownDots));
}

QsdTransformer Units::toPoints() const
{
    return {1 / _perPoint, 0, 0, 1 / _perPoint, 0, 0};
}

QsdPoint rounded(Point p)
{
    static constexpr double Farthest = 1e9;
    const auto held = [](double v) {
        return static_cast<std::int32_t>(std::isnan(v) ? 0 : std::lround(std::clamp(v, -Farthest, Farthest)));
    };
    return {held(p.x), held(p.y)};
}

} // namespace qsdps
