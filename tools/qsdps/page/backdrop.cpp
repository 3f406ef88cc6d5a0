#include "page/backdrop.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

namespace {

constexpr double ColorStep = 3; ///< of 255; what differs by no more looks alike

void add(std::array<float, 3>& sum, Rgb color, double weight)
{
    sum[0] += static_cast<float>(color.r * weight);
    sum[1] += static_cast<float>(color.g * weight);
    sum[2] += static_cast<float>(color.b * weight);
}

/// A part that is told apart as far as some of the groups.
struct Rough {
    BackdropPart part;
    std::size_t newest; ///< see GroundPart
};

} // namespace

void GroupStack::begin(double opacity, std::size_t groundEnd)
{
    _groups.push_back({opacity, groundEnd, 0});
    weigh();
}

void GroupStack::end()
{
    if (!_groups.empty()) {
        _groups.pop_back();
        weigh();
    }
}

void GroupStack::weigh()
{
    double inner = 1;
    for (auto group = _groups.rbegin(); group != _groups.rend(); ++group) {
        group->showing = inner * (1 - group->opacity);
        inner *= group->opacity;
    }
}

double GroupStack::opacity() const
{
    double all = 1;
    for (const Group& group : _groups) {
        all *= group.opacity;
    }
    return all;
}

bool GroupStack::isOpaque(const Ink& ink) const
{
    return Ink{ink.color, ink.alpha * opacity()}.isOpaque();
}

std::size_t GroupStack::endFor(const Ink& ink, std::size_t groundEnd) const
{
    return ink.isOpaque() && !_groups.empty() ? start() : groundEnd;
}

std::vector<BackdropPart> GroupStack::under(Ground& ground, const Rings& area, const Ink& ink,
                                            std::size_t groundEnd) const
{
    const double step = ColorStep / std::max(1 - ink.alpha * opacity(), 0.01); // the less shines through, the larger
    std::vector<Rough> parts;
    for (GroundPart& part : ground.under(area, endFor(ink, groundEnd), step)) {
        parts.push_back({{std::move(part.area), {part.color, {}}}, part.newest});
    }
    // From the newest page to the oldest: where all that shows is older than a page, that one looks the same.
    std::vector<Rgb> colors;
    for (auto group = _groups.rbegin(); group != _groups.rend(); ++group) {
        std::vector<Rough> finer;
        std::vector<Rgb> finerColors;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            Rough& rough = parts[i];
            const Rgb known = colors.empty() ? rough.part.backdrop.below : colors[i];
            const auto take = [&](Rings rings, Rgb color, std::size_t newest) {
                Backdrop backdrop = rough.part.backdrop;
                add(backdrop.around, color, group->showing);
                finer.push_back({{std::move(rings), backdrop}, newest});
                finerColors.push_back(color);
            };
            if (rough.newest <= group->groundEnd) {
                take(std::move(rough.part.area), known, rough.newest);
                continue;
            }
            for (GroundPart& part : ground.under(rough.part.area, group->groundEnd, step)) {
                take(std::move(part.area), part.color, part.newest);
            }
        }
        parts = std::move(finer);
        colors = std::move(finerColors);
    }
    std::vector<BackdropPart> result;
    result.reserve(parts.size());
    for (Rough& rough : parts) {
        result.push_back(std::move(rough.part));
    }
    return result;
}

Backdrop GroupStack::at(Ground& ground, QsdPoint point, std::size_t groundEnd) const
{
    Backdrop backdrop{ground.at(point, groundEnd), {}};
    for (const Group& group : _groups) {
        add(backdrop.around, ground.at(point, group.groundEnd), group.showing);
    }
    return backdrop;
}

std::vector<Backdrop> GroupStack::pixelsOf(Ground& ground, const RasterFrame& frame, std::size_t groundEnd) const
{
    std::vector<Backdrop> backdrops(frame.pixels());
    const auto use = [&](std::size_t end, auto put) {
        const std::vector<Rgb> colors = ground.pixelsOf(frame, end);
        for (std::size_t i = 0; i < colors.size(); ++i) {
            put(backdrops[i], colors[i]);
        }
    };
    use(groundEnd, [](Backdrop& backdrop, Rgb color) { backdrop.below = color; });
    for (const Group& group : _groups) {
        use(group.groundEnd, [&](Backdrop& backdrop, Rgb color) { add(backdrop.around, color, group.showing); });
    }
    return backdrops;
}

// What the ink hides of its group lets the pages before the groups shine through all the same; so its own colour is
// mixed with those first. That is exact for groups in groups, too.
Rgb GroupStack::shown(const Ink& ink, const Backdrop& backdrop) const
{
    const double alpha = std::clamp(ink.alpha, 0.0, 1.0);
    const double all = opacity();
    const auto mixed = [&](std::uint8_t above, float around, std::uint8_t below) {
        const double value = alpha * (above * all + static_cast<double>(around)) + (1 - alpha) * below;
        return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
    };
    return {mixed(ink.color.r, backdrop.around[0], backdrop.below.r),
            mixed(ink.color.g, backdrop.around[1], backdrop.below.g),
            mixed(ink.color.b, backdrop.around[2], backdrop.below.b)};
}

} // namespace qsdps
