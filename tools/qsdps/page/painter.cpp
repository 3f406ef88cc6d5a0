#include "page/painter.h"

#include "page/line_fit.h"
#include "page/polygons.h"
#include "page/stroker.h"
#include "page/text_painter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

Painter::Painter(const QsdPort& port, const Units& units, const Matrix& pageToPoints, PaintTools& tools, Report& report)
    : _port(port), _units(units), _pageToUnits(units.fromPoints() * pageToPoints), _tools(tools), _report(report),
      _clips(_pageToUnits, units.tolerance())
{
}

void Painter::fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    if (const std::optional<Rgb> color = flatColor(paint, groupOpacity(), _report)) {
        fillArea(ringsOf(flattened(path, _pageToUnits * toPage, _units.tolerance())), rule, *color);
    }
}

void Painter::fillArea(Rings rings, FillRule rule, Rgb color)
{
    if (_clips.top().area) {
        rings = intersection(rings, rule, *_clips.top().area);
        rule = FillRule::NonZero;
    }
    if (rings.empty() || !clipTo(boundsOf(rings))) {
        return;
    }
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setFillRule(rule == FillRule::EvenOdd ? QsdEvenOddRule : QsdWindingRule);
    fillPolygons(_port, palette, rings);
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
    const std::optional<Rgb> color = flatColor(paint, groupOpacity(), _report);
    if (!color) {
        return;
    }
    const Matrix toUnits = _pageToUnits * toPage;
    const double unitsPerPixel = _pageToUnits.meanScale();
    if (!_clips.top().area && (toUnits.isUniform() || style.nonScaling) && style.dashes.empty()) {
        const double width = style.width * (style.nonScaling ? unitsPerPixel : toUnits.meanScale());
        if (strokeAsLines(flattened(path, toUnits, _units.tolerance()), style, width, *color)) {
            return;
        }
    }
    fillArea(strokeArea(path, style, toUnits, unitsPerPixel, _units.tolerance()), FillRule::NonZero, *color);
}

bool Painter::strokeAsLines(const std::vector<Chain>& chains, const StrokeStyle& style, double width, Rgb color)
{
    constexpr double WidestLine = 65535;
    if (!(width >= 0.5) || width > WidestLine || !fitsLines(chains, style)) {
        return false;
    }
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setLineStyle(nullptr, static_cast<std::uint16_t>(std::lround(width)));
    for (const Ring& line : linesOf(chains, width)) {
        QsdRect bounds = boundsOf({line});
        const auto margin = static_cast<std::int32_t>(std::ceil(width * portMiterLimit / 2));
        bounds = {bounds.x - margin, bounds.y - margin, bounds.width + 2 * static_cast<std::uint32_t>(margin),
                  bounds.height + 2 * static_cast<std::uint32_t>(margin)};
        if (clipTo(bounds)) {
            drawLine(_port, palette, line);
        }
    }
    return true;
}

void Painter::text(const TextChunk& chunk, const Matrix& toPage)
{
    const ClipArea& clip = _clips.top();
    if (clip.area) {
        _report.approximated("clipped text");
    }
    _tools.palette->setClipRegion(clip.rect ? QsdRegion(*clip.rect) : QsdRegion::Full());
    TextPainter(_port, _tools, _report, groupOpacity()).paint(chunk, _pageToUnits * toPage);
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
    _opacities.push_back(groupOpacity() * opacity);
}

void Painter::endGroup()
{
    if (!_opacities.empty()) {
        _opacities.pop_back();
    }
}

} // namespace qsdps
