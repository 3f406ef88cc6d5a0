#include "page/painter.h"

#include "page/line_fit.h"
#include "page/polygons.h"
#include "page/stroker.h"
#include "page/text_painter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

Painter::Painter(const QsdPort& port, const Units& units, const Matrix& pageToPoints, Rgb paper, PaintTools& tools,
                 Report& report)
    : _port(port), _units(units), _pageToUnits(units.fromPoints() * pageToPoints), _tools(tools), _report(report),
      _clips(_pageToUnits, units.tolerance()), _ground(paper)
{
}

std::size_t Painter::groundEndFor(const Ink& ink) const
{
    return ink.isOpaque() && !_groups.empty() ? _groups.back().groundEnd : _ground.count();
}

void Painter::fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    if (const std::optional<Ink> ink = inkOf(paint, _report)) {
        fillArea(ringsOf(flattened(path, _pageToUnits * toPage, _units.tolerance())), rule, *ink);
    }
}

void Painter::fillArea(Rings rings, FillRule rule, const Ink& ink)
{
    const ClipArea& clip = _clips.top();
    if (clip.area) {
        rings = intersection(rings, rule, *clip.area);
        rule = FillRule::NonZero;
    }
    if (isOpaque(ink)) {
        fillOpaque(std::move(rings), rule, ink.color);
        return;
    }
    if (clip.rect && !clip.area) {
        rings = intersection(rings, rule, ringsOf(*clip.rect));
        rule = FillRule::NonZero;
    }
    if (rule == FillRule::EvenOdd) {
        rings = simplified(rings, rule);
    }
    if (rings.empty()) {
        return;
    }
    for (GroundPart& part : _ground.under(rings, groundEndFor(ink))) {
        fillOpaque(std::move(part.area), FillRule::NonZero, blend(ink, groupOpacity(), part.color));
    }
}

void Painter::fillOpaque(Rings rings, FillRule rule, Rgb color)
{
    const QsdRect bounds = boundsOf(rings);
    if (rings.empty() || !clipTo(bounds)) {
        return;
    }
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setFillRule(rule == FillRule::EvenOdd ? QsdEvenOddRule : QsdWindingRule);
    fillPolygons(_port, palette, rings);
    const std::optional<QsdRect>& limit = _clips.top().rect;
    _ground.add(limit ? bounds.intersected(*limit) : bounds, std::move(rings), rule, color);
}

bool Painter::clipTo(const QsdRect& bounds)
{
    const std::optional<QsdRect>& limit = _clips.top().rect;
    if (!limit) {
        _tools.palette->setClipRegion(QsdRegion::Full());
        return true;
    }
    // A shape may be thinner than a unit; it counts as one.
    const QsdRect covered{bounds.x, bounds.y, std::max(bounds.width, 1U), std::max(bounds.height, 1U)};
    const QsdRect visible = covered.intersected(*limit);
    if (visible.isEmpty()) {
        return false;
    }
    // What lies inside the clip anyway is drawn without one, so that the document does not change its clip for nothing.
    _tools.palette->setClipRegion(visible == covered ? QsdRegion::Full() : QsdRegion(*limit));
    return true;
}

void Painter::stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage)
{
    const std::optional<Ink> ink = inkOf(paint, _report);
    if (!ink) {
        return;
    }
    const Matrix toUnits = _pageToUnits * toPage;
    const double unitsPerPixel = _pageToUnits.meanScale();
    const double tolerance = _units.tolerance();
    const auto area = [path, style, toUnits, unitsPerPixel, tolerance] {
        return strokeArea(path, style, toUnits, unitsPerPixel, tolerance);
    };
    if (!_clips.top().area && (toUnits.isUniform() || style.nonScaling) && style.dashes.empty()) {
        const double width = style.width * (style.nonScaling ? unitsPerPixel : toUnits.meanScale());
        if (strokeAsLines(flattened(path, toUnits, tolerance), style, width, *ink, area)) {
            return;
        }
    }
    fillArea(area(), FillRule::NonZero, *ink);
}

bool Painter::strokeAsLines(const std::vector<Chain>& chains, const StrokeStyle& style, double width, const Ink& ink,
                            Ground::AreaMaker area)
{
    constexpr double WidestLine = 65535;
    if (!(width >= 0.5) || width > WidestLine || !fitsLines(chains, style)) {
        return false;
    }
    const Rings lines = linesOf(chains, width);
    QsdRect bounds = boundsOf(lines);
    const auto margin = static_cast<std::int32_t>(std::ceil(width * portMiterLimit / 2));
    bounds = {bounds.x - margin, bounds.y - margin, bounds.width + 2 * static_cast<std::uint32_t>(margin),
              bounds.height + 2 * static_cast<std::uint32_t>(margin)};
    if (!isOpaque(ink) && !_ground.isBare(bounds, groundEndFor(ink))) {
        return false;
    }
    if (lines.empty() || !clipTo(bounds)) {
        return true;
    }
    const Rgb color = blend(ink, groupOpacity(), _ground.paper());
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setLineStyle(nullptr, static_cast<std::uint16_t>(std::lround(width)));
    for (const Ring& line : lines) {
        drawLine(_port, palette, line);
    }
    const std::optional<QsdRect>& limit = _clips.top().rect;
    _ground.add(limit ? bounds.intersected(*limit) : bounds, std::move(area), color);
    return true;
}

void Painter::text(const TextChunk& chunk, const Matrix& toPage)
{
    const ClipArea& clip = _clips.top();
    if (clip.area) {
        _report.approximated("clipped text");
    }
    _tools.palette->setClipRegion(clip.rect ? QsdRegion(*clip.rect) : QsdRegion::Full());
    const auto blender = [this](const Ink& ink, QsdPoint at) {
        return isOpaque(ink) ? ink.color : blend(ink, groupOpacity(), _ground.at(at, groundEndFor(ink)));
    };
    TextPainter(_port, _tools, _report, blender).paint(chunk, _pageToUnits * toPage);
}

void Painter::image(const ImageObject&, double, const Matrix&)
{
    _report.notDrawn("image");
}

void Painter::pushClip(const ClipPath& clip)
{
    _clips.push(clip);
}

void Painter::popClip()
{
    _clips.pop();
}

void Painter::beginGroup(double opacity)
{
    _groups.push_back({groupOpacity() * opacity, _ground.count()});
}

void Painter::endGroup()
{
    if (!_groups.empty()) {
        _groups.pop_back();
    }
}

} // namespace qsdps
