#include "page/ground.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace qsdps {

namespace {

constexpr std::size_t MostPoints = 4'000'000; ///< remembered
constexpr std::size_t MostParts = 200;        ///< of one translucent area
constexpr std::size_t MostWork = 60'000'000;  ///< layers looked at and points cut on a page, roughly

std::size_t pointsOf(const Rings& rings)
{
    std::size_t count = 0;
    for (const Ring& ring : rings) {
        count += ring.size();
    }
    return count;
}

/// Twice the surface, holes counted against the rest.
double surfaceOf(const Rings& rings)
{
    double sum = 0;
    for (const Ring& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const QsdPoint& a = ring[i];
            const QsdPoint& b = ring[(i + 1) % ring.size()];
            sum += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
        }
    }
    return std::fabs(sum);
}

QsdPoint middleOf(const QsdRect& rect)
{
    return {static_cast<std::int32_t>(rect.x + static_cast<std::int64_t>(rect.width / 2)),
            static_cast<std::int32_t>(rect.y + static_cast<std::int64_t>(rect.height / 2))};
}

/// How far two colours are apart where they differ most.
int differenceOf(Rgb a, Rgb b)
{
    return std::max({std::abs(a.r - b.r), std::abs(a.g - b.g), std::abs(a.b - b.b)});
}

/// How often the rings run around a point.
int windingOf(const Rings& rings, QsdPoint p)
{
    int winding = 0;
    for (const Ring& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const QsdPoint& a = ring[i];
            const QsdPoint& b = ring[(i + 1) % ring.size()];
            if ((a.y <= p.y) == (b.y <= p.y)) {
                continue;
            }
            const double x = a.x + (static_cast<double>(p.y) - a.y) * (static_cast<double>(b.x) - a.x) /
                                       (static_cast<double>(b.y) - a.y);
            if (x > p.x) {
                winding += a.y <= p.y ? 1 : -1;
            }
        }
    }
    return winding;
}

} // namespace

void Ground::add(const QsdRect& bounds, Rings area, FillRule rule, Rgb color)
{
    _points += pointsOf(area);
    if (_points <= MostPoints) {
        const bool ready = rule == FillRule::NonZero && boundsOf(area) == bounds;
        _layers.push_back({bounds, std::move(area), {}, rule, ready, color, nullptr});
    }
}

void Ground::add(const QsdRect& bounds, AreaMaker area, Rgb color)
{
    constexpr std::size_t Weight = 16; // what a maker holds, in points
    _points += Weight;
    if (_points <= MostPoints) {
        _layers.push_back({bounds, {}, std::move(area), FillRule::NonZero, false, color, nullptr});
    }
}

void Ground::add(const QsdRect& bounds, Rings area, Rgb color, RasterPicture picture, std::size_t kept)
{
    constexpr std::size_t PixelsOfAPoint = 4; // in memory
    if (count() > kept && _layers.back().picture != nullptr && _layers.back().picture->unite(picture)) {
        Layer& top = _layers.back();
        top.area = unionOf(top.area, area);
        top.bounds = boundsOf(top.area);
        top.color = color;
        return;
    }
    _points += pointsOf(area) + picture.frame.pixels() / PixelsOfAPoint;
    if (_points <= MostPoints) {
        _layers.push_back({bounds,
                           std::move(area),
                           {},
                           FillRule::NonZero,
                           true,
                           color,
                           std::make_unique<RasterPicture>(std::move(picture))});
    }
}

bool Ground::isIntricate(const QsdRect& bounds, std::size_t end) const
{
    if (_work > MostWork) {
        return true;
    }
    return std::any_of(
        _layers.begin(), _layers.begin() + static_cast<std::ptrdiff_t>(std::min(end, count())),
        [&](const Layer& layer) { return layer.picture != nullptr && !layer.bounds.intersected(bounds).isEmpty(); });
}

std::vector<Rgb> Ground::pixelsOf(const RasterFrame& frame, std::size_t end)
{
    std::vector<Rgb> colors(frame.pixels(), _paper);
    const QsdRect bounds = frame.bounds();
    for (std::size_t i = 0; i < std::min(end, count()); ++i) {
        Layer& layer = _layers[i];
        if (layer.bounds.intersected(bounds).isEmpty()) {
            continue;
        }
        if (layer.picture == nullptr) {
            fillRaster(frame, areaOf(layer), FillRule::NonZero, [&](std::size_t p) { colors[p] = layer.color; });
        } else {
            const std::vector<std::uint8_t>& rgba = layer.picture->pixels.rgba;
            forEachShared(frame, layer.picture->frame, [&](std::size_t to, std::size_t from) {
                if (rgba[4 * from + 3] != 0) {
                    colors[to] = {rgba[4 * from], rgba[4 * from + 1], rgba[4 * from + 2]};
                }
            });
        }
    }
    return colors;
}

const Rings& Ground::areaOf(Layer& layer)
{
    if (!layer.ready) {
        if (layer.maker) {
            layer.area = layer.maker();
            layer.maker = nullptr;
        }
        layer.area = intersection(layer.area, layer.rule, ringsOf(layer.bounds));
        layer.rule = FillRule::NonZero;
        layer.ready = true;
    }
    return layer.area;
}

bool Ground::spend(std::size_t work)
{
    _work = std::min(_work + work, MostWork + 1);
    return _work <= MostWork;
}

bool Ground::isBare(const QsdRect& bounds, std::size_t end) const
{
    return std::none_of(_layers.begin(), _layers.begin() + static_cast<std::ptrdiff_t>(std::min(end, count())),
                        [&](const Layer& layer) { return !layer.bounds.intersected(bounds).isEmpty(); });
}

std::vector<GroundPart> Ground::visibleLayers(const Rings& area, std::size_t end)
{
    const QsdRect bounds = boundsOf(area);
    const double whole = surfaceOf(area);
    const double least = std::min(whole / 2, std::max(whole * 1e-4, 2 * _detail * _detail));
    Rings open = area; // not yet known to cover anything
    QsdRect openBounds = bounds;
    std::vector<GroundPart> parts;
    std::size_t i = std::min(end, count());
    for (; i > 0 && parts.size() < MostParts && spend(1); --i) {
        Layer& layer = _layers[i - 1];
        if (layer.bounds.intersected(openBounds).isEmpty()) {
            continue;
        }
        const Rings& covering = areaOf(layer);
        if (asRectangle(covering) && layer.bounds.intersected(bounds) == bounds) {
            parts.push_back({area, layer.color});
            return parts;
        }
        if (!spend(pointsOf(covering) + pointsOf(area) + pointsOf(open))) {
            break;
        }
        if (surfaceOf(intersection(open, FillRule::NonZero, covering)) < least) {
            continue;
        }
        parts.push_back({intersection(area, FillRule::NonZero, covering), layer.color});
        open = difference(open, covering);
        openBounds = boundsOf(open);
        if (surfaceOf(open) < least) {
            return parts;
        }
    }
    parts.push_back({area, i == 0 || open.empty() ? _paper : topmostColor(middleOf(openBounds), i)});
    return parts;
}

std::vector<GroundPart> Ground::under(const Rings& area, std::size_t end, double colorStep)
{
    std::vector<GroundPart> layers = visibleLayers(area, end);
    // The more layers, the less each of them is told from its neighbours.
    constexpr double ManyLayers = 30;
    colorStep *= 1 + static_cast<double>(layers.size()) / ManyLayers;
    std::vector<GroundPart> parts;
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
        if (!parts.empty() && differenceOf(parts.back().color, layer->color) <= colorStep) {
            parts.back().area = unionOf(parts.back().area, layer->area);
        } else {
            parts.push_back(std::move(*layer));
        }
    }
    return parts;
}

Rgb Ground::topmostColor(QsdPoint point, std::size_t end) const
{
    for (std::size_t i = end; i > 0; --i) {
        if (_layers[i - 1].bounds.contains(point)) {
            return _layers[i - 1].color;
        }
    }
    return _paper;
}

Rgb Ground::at(QsdPoint point, std::size_t end)
{
    for (std::size_t i = std::min(end, count()); i > 0 && spend(1); --i) {
        Layer& layer = _layers[i - 1];
        if (!layer.bounds.contains(point)) {
            continue;
        }
        const Rings& area = areaOf(layer);
        if (spend(pointsOf(area)) && windingOf(area, point) != 0) {
            return layer.color;
        }
    }
    return _paper;
}

} // namespace qsdps
