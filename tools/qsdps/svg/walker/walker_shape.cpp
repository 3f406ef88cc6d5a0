// Shapes: fill, stroke and markers in the order the style asks for.
#include "drawing/path_metrics.h"
#include "svg/shapes/shapes.h"
#include "svg/walker/walker.h"
#include "values/scanner.h"

#include <algorithm>
#include <numeric>

namespace qsdps::svg {
namespace {

bool hasMarkers(const Element& element)
{
    const Style& style = element.style;
    const bool named = !style.markerStart.empty() || !style.markerMid.empty() || !style.markerEnd.empty();
    return named && (element.tag == Tag::Path || element.tag == Tag::Line || element.tag == Tag::Polyline ||
                     element.tag == Tag::Polygon);
}

std::vector<double> dashLengths(std::string_view text, const LengthBase& base)
{
    const auto lengths = parseLengthList(text);
    if (!lengths) {
        return {};
    }
    std::vector<double> dashes;
    for (const Length& length : *lengths) {
        dashes.push_back(resolve(length, Axis::Diagonal, base));
    }
    const bool negative = std::any_of(dashes.begin(), dashes.end(), [](double d) { return !(d >= 0); });
    if (negative || !(std::accumulate(dashes.begin(), dashes.end(), 0.0) > 0)) {
        return {};
    }
    if (dashes.size() % 2 != 0) {
        const std::size_t count = dashes.size();
        dashes.reserve(2 * count);
        for (std::size_t i = 0; i < count; ++i) {
            dashes.push_back(dashes[i]);
        }
    }
    return dashes;
}

/// Dashes count in the author's own measure of the outline where pathLength gives one.
void scaleDashes(StrokeStyle& stroke, const Element& element, const Path& path)
{
    const auto stated = parseNumber(attribute(element.node, "pathLength"));
    if (!stated || !(*stated > 0) || stroke.dashes.empty()) {
        return;
    }
    const double factor = pathLength(path) / *stated;
    if (!(factor > 0)) {
        return;
    }
    for (double& dash : stroke.dashes) {
        dash *= factor;
    }
    stroke.dashOffset *= factor;
}

} // namespace

StrokeStyle Walker::strokeStyle(const Style& style, const State& state) const
{
    const LengthBase base = baseOf(state);
    StrokeStyle stroke;
    stroke.width = qsdps::resolve(style.strokeWidth, Axis::Diagonal, base);
    stroke.cap = style.cap;
    stroke.join = style.join;
    stroke.miterLimit = style.miterLimit;
    stroke.dashes = dashLengths(style.dashArray, base);
    stroke.dashOffset = qsdps::resolve(style.dashOffset, Axis::Diagonal, base);
    stroke.nonScaling = style.own.nonScalingStroke;
    return stroke;
}

void Walker::drawShape(const Element& element, State state)
{
    const Style& style = element.style;
    const auto ignore = [](std::string_view) {};
    const Path path = measuring() ? shapePath(element, baseOf(state), ignore)
                                  : shapePath(element, baseOf(state), faultsOf(element.node));
    if (path.empty()) {
        return;
    }
    if (!isFinite(path, state.toPage)) {
        if (!measuring()) {
            _scene.badInput("shape left out: its coordinates are out of range", element.node);
        }
        return;
    }
    StrokeStyle stroke = strokeStyle(style, state);
    const bool hasStroke = stroke.width > 0 && style.stroke.kind != PaintSpec::Kind::None;
    if (measuring()) {
        _canvas.fill(path, style.fillRule, {Rgb{}, 1}, state.toPage);
        if (hasStroke) {
            _canvas.stroke(path, stroke, {Rgb{}, 1}, state.toPage);
        }
        return;
    }
    const BoundsOf bounds = [&] { return pathBounds(path); };
    ContextPaint paints;
    paints.toPage = state.toPage;
    if (element.tag != Tag::Line) {
        paints.fill = makePaint(style.fill, style.fillOpacity, state, bounds);
    }
    if (hasStroke) {
        paints.stroke = makePaint(style.stroke, style.strokeOpacity, state, bounds);
    }
    const bool markers = hasMarkers(element);
    if (!style.visible || (paints.fill.none() && paints.stroke.none() && !markers)) {
        return;
    }

    const bool group = beginGroup(state, markers || (!paints.fill.none() && !paints.stroke.none()));
    paints.fill.opacity *= state.opacity;
    paints.stroke.opacity *= state.opacity;
    for (const PaintStep step : style.paintOrder) {
        if (step == PaintStep::Fill && !paints.fill.none()) {
            _canvas.fill(path, style.fillRule, paints.fill, state.toPage);
        } else if (step == PaintStep::Stroke && !paints.stroke.none()) {
            scaleDashes(stroke, element, path);
            _canvas.stroke(path, stroke, paints.stroke, state.toPage);
        } else if (step == PaintStep::Markers && markers) {
            drawMarkers(element, path, state, paints);
        }
    }
    endGroup(group);
}

} // namespace qsdps::svg
