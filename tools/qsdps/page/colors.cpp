#include "page/colors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace qsdps {

namespace {

struct Mixed {
    double r = 0;
    double g = 0;
    double b = 0;
    double alpha = 0;
};

std::uint8_t mix(std::uint8_t above, std::uint8_t below, double alpha)
{
    return static_cast<std::uint8_t>(std::lround(below + (above - below) * alpha));
}

std::uint8_t component(double value)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

/// The colour that a gradient has on the whole: its stops weighted by how far each reaches.
Mixed averageOf(const Gradient& gradient)
{
    Mixed sum;
    double weights = 0;
    const auto add = [&](const GradientStop& stop, double weight) {
        sum.r += stop.color.r * stop.opacity * weight;
        sum.g += stop.color.g * stop.opacity * weight;
        sum.b += stop.color.b * stop.opacity * weight;
        sum.alpha += stop.opacity * weight;
        weights += weight;
    };
    const std::vector<GradientStop>& stops = gradient.stops;
    for (std::size_t i = 0; i + 1 < stops.size(); ++i) {
        const double half = (stops[i + 1].offset - stops[i].offset) / 2;
        add(stops[i], half);
        add(stops[i + 1], half);
    }
    add(stops.front(), stops.front().offset);
    add(stops.back(), 1 - stops.back().offset);
    if (weights > 0 && sum.alpha > 0) {
        sum = {sum.r / sum.alpha, sum.g / sum.alpha, sum.b / sum.alpha, sum.alpha / weights};
    }
    return sum;
}

} // namespace

const QsdColor* ColorTable::get(Rgb color)
{
    const std::uint32_t key = std::uint32_t{color.r} << 16 | std::uint32_t{color.g} << 8 | color.b;
    if (_colors.size() >= MostColors && !_colors.contains(key)) {
        _colors.clear();
    }
    QsdHandle<const QsdColor>& entry = _colors[key];
    if (!entry) {
        const auto widened = [](std::uint8_t c) { return static_cast<std::uint16_t>(c * 257); };
        entry = QsdHandle<const QsdColor>::Adopt(new QsdColor(widened(color.r), widened(color.g), widened(color.b)));
    }
    return entry.get();
}

std::optional<Ink> inkOf(const Paint& paint, Report& report)
{
    if (paint.none()) {
        return std::nullopt;
    }
    Ink ink;
    ink.alpha = paint.opacity;
    if (const auto* const color = std::get_if<Rgb>(&paint.source)) {
        ink.color = *color;
    } else if (const auto* const gradient = std::get_if<std::shared_ptr<const Gradient>>(&paint.source)) {
        report.approximated("gradient");
        const Mixed mixed = averageOf(**gradient);
        ink.color = {component(mixed.r), component(mixed.g), component(mixed.b)};
        ink.alpha *= mixed.alpha;
    } else {
        report.notDrawn("pattern fill");
        return std::nullopt;
    }
    return ink.isInvisible() ? std::nullopt : std::optional(ink);
}

int differenceOf(Rgb a, Rgb b)
{
    return std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)});
}

Rgb blend(const Ink& ink, double opacity, Rgb ground)
{
    const double alpha = std::clamp(ink.alpha * opacity, 0.0, 1.0);
    return {mix(ink.color.r, ground.r, alpha), mix(ink.color.g, ground.g, alpha), mix(ink.color.b, ground.b, alpha)};
}

} // namespace qsdps
