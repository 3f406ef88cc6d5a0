#include "page/ground.h"

#include "page/colors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

namespace {

constexpr std::size_t MostPoints = 4'000'000; ///< remembered
constexpr std::size_t MostParts = 200;        ///< of one translucent area
constexpr std::size_t MostWork = 60'000'000;  ///< layers looked at and points cut on a page, roughly

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

/// A point well inside an area that is not empty: in the middle of its widest stretch half way down.
QsdPoint insideOf(const Rings& rings)
{
    struct Edge {
        double x;
        int turn;
    };
    const QsdRect bounds = boundsOf(rings);
    const double y = bounds.y + std::floor(bounds.height / 2.0) + 0.5; // no corner lies there
    std::vector<Edge> edges;
    for (const Ring& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const QsdPoint& a = ring[i];
            const QsdPoint& b = ring[(i + 1) % ring.size()];
            if ((a.y < y) != (b.y < y)) {
                edges.push_back({a.x + (y - a.y) * (static_cast<double>(b.x) - a.x) / (static_cast<double>(b.y) - a.y),
                                 a.y < y ? 1 : -1});
            }
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.x < b.x; });
    double widest = -1;
    double x = bounds.x;
    int winding = 0;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        winding += edges[i].turn;
        const double width = edges[i + 1].x - edges[i].x;
        if (winding != 0 && width > widest) {
            widest = width;
            x = edges[i].x + width / 2;
        }
    }
    return {static_cast<std::int32_t>(std::lround(x)), static_cast<std::int32_t>(std::floor(y))};
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
        layer.bounds = boundsOf(layer.area);
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

Rings Ground::reaching(Rings part, const Rings& shown, const Rings& area, const Rings& open) const
{
    const Rings reach = intersection(grown(shown, _overlap), FillRule::NonZero, difference(area, open));
    // Where edges cross, the reach sticks out a little, too; that is no use.
    Rings missing = difference(reach, part);
    std::erase_if(missing, [&](const Ring& ring) { return surfaceOf({ring}) < 8 * _overlap * _overlap; });
    return missing.empty() ? part : unionOf(part, missing);
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
        const std::optional<QsdRect> rect = asRectangle(covering);
        if (rect && rect->intersected(bounds) == bounds) {
            parts.push_back({area, layer.color, i});
            return parts;
        }
        if (!spend(pointsOf(covering) + pointsOf(area) + pointsOf(open))) {
            break;
        }
        const Rings shown = intersection(open, FillRule::NonZero, covering);
        if (surfaceOf(shown) < least) {
            continue;
        }
        Rings part = intersection(area, FillRule::NonZero, covering);
        if (!parts.empty()) {
            part = reaching(std::move(part), shown, area, open);
        }
        open = difference(open, covering);
        const bool isLast = surfaceOf(open) < least;
        if (isLast && !open.empty()) {
            part = unionOf(part, open);
        }
        parts.push_back({std::move(part), layer.color, i});
        if (isLast) {
            return parts;
        }
        openBounds = boundsOf(open);
    }
    parts.push_back({area, i == 0 ? _paper : topmostColor(insideOf(open), i), i});
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
            parts.back().newest = std::max(parts.back().newest, layer->newest);
        } else {
            parts.push_back(std::move(*layer));
        }
    }
    return parts;
}

std::optional<Rgb> Ground::colorOf(Layer& layer, QsdPoint point)
{
    if (!layer.bounds.contains(point)) {
        return std::nullopt;
    }
    if (layer.picture == nullptr) {
        return windingOf(areaOf(layer), point) != 0 ? std::optional(layer.color) : std::nullopt;
    }
    const std::optional<std::size_t> pixel =
        layer.picture->frame.indexAt({static_cast<double>(point.x), static_cast<double>(point.y)});
    const std::vector<std::uint8_t>& rgba = layer.picture->pixels.rgba;
    if (!pixel || rgba[4 * *pixel + 3] == 0) {
        return std::nullopt;
    }
    return Rgb{rgba[4 * *pixel], rgba[4 * *pixel + 1], rgba[4 * *pixel + 2]};
}

Rgb Ground::topmostColor(QsdPoint point, std::size_t end)
{
    constexpr std::size_t MostLooks = 5000; // points of areas
    std::size_t looks = 0;
    for (std::size_t i = end; i > 0; --i) {
        Layer& layer = _layers[i - 1];
        if (!layer.bounds.contains(point)) {
            continue;
        }
        if (looks > MostLooks) {
            return layer.color;
        }
        if (const std::optional<Rgb> color = colorOf(layer, point)) {
            return *color;
        }
        looks += 1 + pointsOf(layer.area);
    }
    return _paper;
}

Rgb Ground::at(QsdPoint point, std::size_t end)
{
    std::size_t i = std::min(end, count());
    for (; i > 0 && spend(1); --i) {
        Layer& layer = _layers[i - 1];
        if (!layer.bounds.contains(point)) {
            continue;
        }
        if (const std::optional<Rgb> color = colorOf(layer, point)) {
            return *color;
        }
        if (!spend(pointsOf(layer.area))) {
            break;
        }
    }
    return topmostColor(point, i);
}

} // namespace qsdps
