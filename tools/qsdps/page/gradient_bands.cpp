#include "page/gradient_bands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace qsdps {

namespace {

constexpr double ColorStep = 4;    // of 255; neighbouring bands that differ by that much look smooth
constexpr double MostBands = 1500; // of one gradient
constexpr double BandDots = 20;    // width of the narrowest band, in the finest details that show

struct Mixed {
    double r;
    double g;
    double b;
    double alpha;
};

/// The colour between two stops.
Mixed between(const GradientStop& a, const GradientStop& b, double part)
{
    const auto mix = [part](double first, double second) { return first + (second - first) * part; };
    return {mix(a.color.r, b.color.r), mix(a.color.g, b.color.g), mix(a.color.b, b.color.b), mix(a.opacity, b.opacity)};
}

Ink inkFrom(const Mixed& mixed)
{
    const auto component = [](double v) { return static_cast<std::uint8_t>(std::lround(std::clamp(v, 0.0, 255.0))); };
    return {{component(mixed.r), component(mixed.g), component(mixed.b)}, std::clamp(mixed.alpha, 0.0, 1.0)};
}

/// How much the look changes between two stops, in steps of 8-bit colours.
double changeBetween(const GradientStop& a, const GradientStop& b)
{
    const double color =
        std::max({std::abs(a.color.r - b.color.r), std::abs(a.color.g - b.color.g), std::abs(a.color.b - b.color.b)});
    return color * std::max(a.opacity, b.opacity) + 255 * std::fabs(a.opacity - b.opacity);
}

/// Bands of the gradient itself, offsets 0 to 1.
std::vector<GradientBand> onePeriod(const Gradient& gradient, double narrowest)
{
    std::vector<GradientBand> bands;
    const std::vector<GradientStop>& stops = gradient.stops;
    if (stops.front().offset > 0) {
        bands.push_back({0, stops.front().offset, inkFrom(between(stops.front(), stops.front(), 0))});
    }
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const GradientStop& a = stops[i - 1];
        const GradientStop& b = stops[i];
        const double length = b.offset - a.offset;
        if (!(length > 0)) {
            continue;
        }
        const double wanted = std::min(std::ceil(changeBetween(a, b) / ColorStep), std::floor(length / narrowest));
        const int count = static_cast<int>(std::clamp(wanted, 1.0, 64.0));
        for (int k = 0; k < count; ++k) {
            bands.push_back({a.offset + length * k / count, a.offset + length * (k + 1) / count,
                             inkFrom(between(a, b, (k + 0.5) / count))});
        }
    }
    if (stops.back().offset < 1) {
        bands.push_back({stops.back().offset, 1, inkFrom(between(stops.back(), stops.back(), 0))});
    }
    return bands;
}

/// Corners of an upright rectangle, mapped.
std::array<Point, 4> cornersOf(const QsdRect& rect, const Matrix& map)
{
    const double left = rect.x;
    const double top = rect.y;
    const auto right = static_cast<double>(rect.right());
    const auto bottom = static_cast<double>(rect.bottom());
    return {map.map({left, top}), map.map({right, top}), map.map({right, bottom}), map.map({left, bottom})};
}

std::vector<BandArea> linearAreas(const Gradient& gradient, const Matrix& toUnits, const QsdRect& bounds,
                                  double tolerance, double overlap)
{
    const Point axis{gradient.end.x - gradient.start.x, gradient.end.y - gradient.start.y};
    const double square = axis.x * axis.x + axis.y * axis.y;
    if (!(square > 0)) {
        return {};
    }
    // In the frame of the gradient the first coordinate is the offset.
    const Matrix frame{axis.x, axis.y, -axis.y, axis.x, gradient.start.x, gradient.start.y};
    const Matrix frameToUnits = toUnits * frame;
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    double near = std::numeric_limits<double>::infinity();
    double far = -std::numeric_limits<double>::infinity();
    for (const Point& p : cornersOf(bounds, frameToUnits.inverse())) {
        low = std::min(low, p.x);
        high = std::max(high, p.x);
        near = std::min(near, p.y);
        far = std::max(far, p.y);
    }
    const double margin = (far - near) * 0.01; // outside of the bounds anyway
    // The distance between lines of equal offset, one apart.
    const double across = std::fabs(frameToUnits.determinant()) / std::hypot(frameToUnits.c, frameToUnits.d);
    std::vector<BandArea> areas;
    const double narrowest = BandDots * tolerance / across;
    const std::vector<GradientBand> bands = bandsOf(gradient, low, high, narrowest);
    for (std::size_t i = 0; i < bands.size(); ++i) {
        // Each band reaches under the next one, so far that no smoothed edge shows what is under both, and no farther:
        // the edges of what it fills are smoothed twice there.
        const double end =
            i + 1 < bands.size() ? std::min(bands[i + 1].to, bands[i + 1].from + overlap / across) : bands[i].to;
        const double start = bands[i].from;
        Chain band{{}, true};
        for (const Point& p : {Point{start, near - margin}, Point{end, near - margin}, Point{end, far + margin},
                               Point{start, far + margin}}) {
            band.points.push_back(frameToUnits.map(p));
        }
        areas.push_back({simplified(ringsOf({band}), FillRule::NonZero), bands[i].ink});
    }
    return areas;
}

/// The circle that a radial gradient has at an offset, as a ring.
Rings circleAt(const Gradient& gradient, double offset, const Matrix& toUnits, double tolerance)
{
    const Point centre{gradient.start.x + (gradient.end.x - gradient.start.x) * offset,
                       gradient.start.y + (gradient.end.y - gradient.start.y) * offset};
    const double radius = gradient.startRadius + (gradient.endRadius - gradient.startRadius) * offset;
    const double size = radius * std::max(std::hypot(toUnits.a, toUnits.b), std::hypot(toUnits.c, toUnits.d));
    // The edge between two bands is hardly seen, so it may be rough.
    constexpr double Rough = 4;
    const double corners = std::numbers::pi / std::sqrt(2 * Rough * tolerance / std::max(size, tolerance));
    const int count = static_cast<int>(std::clamp(std::ceil(corners), 8.0, 200.0));
    Chain circle{{}, true};
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        circle.points.push_back(
            toUnits.map({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)}));
    }
    return simplified(ringsOf({circle}), FillRule::NonZero);
}

std::vector<BandArea> radialAreas(const Gradient& gradient, const Matrix& toUnits, const QsdRect& bounds,
                                  double tolerance, double overlap)
{
    const double growth = gradient.endRadius - gradient.startRadius;
    if (!(growth > 0)) {
        return {};
    }
    // The offset at which the circle holds the farthest corner.
    const double shift = std::hypot(gradient.end.x - gradient.start.x, gradient.end.y - gradient.start.y);
    double corner = 0;
    for (const Point& p : cornersOf(bounds, toUnits.inverse())) {
        corner = std::max(corner, std::hypot(p.x - gradient.start.x, p.y - gradient.start.y));
    }
    const double closing = std::max(growth - shift, growth * 1e-3);
    const double high = std::max(1.0, (corner - gradient.startRadius) / closing);
    const double scale = std::max(std::hypot(toUnits.a, toUnits.b), std::hypot(toUnits.c, toUnits.d));
    const std::vector<GradientBand> bands =
        bandsOf(gradient, 0, high, BandDots * tolerance / (scale * (growth + shift)));
    // Where its circles lie closest.
    const double narrow = std::min(std::hypot(toUnits.a, toUnits.b), std::hypot(toUnits.c, toUnits.d));
    const double reach = overlap / (narrow * closing);
    std::vector<BandArea> areas;
    for (std::size_t i = bands.size(); i > 0; --i) {
        const GradientBand& band = bands[i - 1];
        const bool outermost = i == bands.size();
        const double hidden = band.from - reach;
        areas.push_back({outermost ? ringsOf(bounds) : circleAt(gradient, band.to, toUnits, tolerance), band.ink,
                         i > 1 && hidden > 0 ? circleAt(gradient, hidden, toUnits, tolerance) : Rings()});
    }
    return areas;
}

} // namespace

std::vector<GradientBand> bandsOf(const Gradient& gradient, double from, double to, double narrowest)
{
    std::vector<GradientBand> period = onePeriod(gradient, narrowest);
    const double periods = std::ceil(to) - std::floor(from);
    if (gradient.spread != Spread::Pad && periods * static_cast<double>(period.size()) > MostBands) {
        // Fewer in each period, so that all periods are shown.
        period = onePeriod(gradient, std::max(narrowest, std::min(1.0, periods / MostBands)));
    }
    std::vector<GradientBand> bands;
    if (gradient.spread == Spread::Pad) {
        // A stop at an end counts even where it leaves no room inside.
        if (from < 0) {
            bands.push_back({from, 0, inkFrom(between(gradient.stops.front(), gradient.stops.front(), 0))});
        }
        bands.insert(bands.end(), period.begin(), period.end());
        if (to > 1) {
            bands.push_back({1, to, inkFrom(between(gradient.stops.back(), gradient.stops.back(), 0))});
        }
    } else {
        const double room = MostBands / static_cast<double>(std::max<std::size_t>(period.size(), 1));
        const double first = std::max(std::floor(from), std::ceil(-room / 2));
        const double last = std::min(std::ceil(to), std::floor(first + room) + 1);
        for (double start = first; start < last; ++start) {
            const bool mirrored = gradient.spread == Spread::Reflect && std::fmod(std::fabs(start), 2) == 1;
            for (std::size_t i = 0; i < period.size(); ++i) {
                const GradientBand& band = period[mirrored ? period.size() - 1 - i : i];
                bands.push_back({start + (mirrored ? 1 - band.to : band.from),
                                 start + (mirrored ? 1 - band.from : band.to), band.ink});
            }
        }
    }
    if (!bands.empty()) {
        // Where there are too many periods all the same, the last ones go on.
        bands.front().from = std::min(bands.front().from, from);
        bands.back().to = std::max(bands.back().to, to);
    }
    std::erase_if(bands, [&](const GradientBand& band) { return band.to <= from || band.from >= to; });
    return bands;
}

std::vector<BandArea> bandAreas(const Gradient& gradient, const Matrix& toUnits, const QsdRect& bounds,
                                double tolerance, double overlap)
{
    const double area = toUnits.determinant();
    if (!std::isfinite(area) || area == 0) {
        return {};
    }
    return gradient.kind == Gradient::Kind::Linear ? linearAreas(gradient, toUnits, bounds, tolerance, overlap)
                                                   : radialAreas(gradient, toUnits, bounds, tolerance, overlap);
}

} // namespace qsdps
