// Markers on the vertices of an outline.
#include "svg/shapes/shapes.h"
#include "svg/shapes/transform_list.h"
#include "svg/shapes/vertices.h"
#include "svg/walker/viewport.h"
#include "svg/walker/walker.h"
#include "values/scanner.h"

#include <cmath>
#include <numbers>

namespace qsdps::svg {
namespace {

Matrix rotation(double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}

double orientation(std::string_view text, double along, bool start)
{
    text = trim(text);
    if (text == "auto") {
        return along;
    }
    if (text == "auto-start-reverse") {
        return start ? along + 180 : along;
    }
    if (text.ends_with("deg")) {
        text.remove_suffix(3);
    }
    return parseNumber(text).value_or(0);
}

/// refX and refY: lengths, or the names of the sides.
double reference(std::string_view text, double low, double size, Axis axis, const LengthBase& base)
{
    text = trim(text);
    if (text == "left" || text == "top") {
        return low;
    }
    if (text == "center") {
        return low + size / 2;
    }
    if (text == "right" || text == "bottom") {
        return low + size;
    }
    return lengthOr(text, axis, base, 0);
}

} // namespace

void Walker::drawMarkers(const Element& element, const Path& path, const State& state, const ContextPaint& context)
{
    const Style& style = element.style;
    const auto find = [&](std::string_view id) {
        const pugi::xml_node node = id.empty() ? pugi::xml_node() : _scene.document().byId(id);
        return _scene.document().tag(node) == Tag::Marker ? node : pugi::xml_node();
    };
    const pugi::xml_node first = find(style.markerStart);
    const pugi::xml_node middle = find(style.markerMid);
    const pugi::xml_node last = find(style.markerEnd);
    if (!first && !middle && !last) {
        return;
    }
    const std::vector<Vertex> vertices = pathVertices(path);
    const double width = qsdps::resolve(style.strokeWidth, Axis::Diagonal, baseOf(state));
    State inner = state;
    inner.context = &context;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vertex& vertex = vertices[i];
        const bool isLast = i + 1 == vertices.size();
        if (i == 0 && first) {
            drawMarker(first, vertex.at, vertex.angle, true, width, inner);
        }
        if (i > 0 && !isLast && middle) {
            drawMarker(middle, vertex.at, vertex.angle, false, width, inner);
        }
        if (isLast && last) {
            drawMarker(last, vertex.at, vertex.angle, false, width, inner);
        }
    }
}

void Walker::drawMarker(const pugi::xml_node& marker, Point at, double angle, bool start, double strokeWidth,
                        State state)
{
    if (state.depth >= MaxDepth || !_scene.spendReferences(1)) {
        return;
    }
    const Scene::Expansion expansion(_scene, marker);
    if (expansion.cyclic()) {
        _scene.badInput("marker refers to itself", marker);
        return;
    }
    const Style& style = _scene.styleOf(marker);
    if (!style.own.display) {
        return;
    }
    const LengthBase base = baseOf(state);
    const Box box{0, 0, lengthOr(attribute(marker, "markerWidth"), Axis::Horizontal, base, 3),
                  lengthOr(attribute(marker, "markerHeight"), Axis::Vertical, base, 3)};
    if (!(box.width > 0) || !(box.height > 0)) {
        return;
    }
    Matrix place = state.toPage * Matrix::translation(at.x, at.y) *
                   rotation(orientation(attribute(marker, "orient"), angle, start));
    if (attribute(marker, "markerUnits") != "userSpaceOnUse") {
        place = place * Matrix::scaling(strokeWidth, strokeWidth);
    }
    Box seen = box;
    if (const auto viewBox = parseViewBox(attribute(marker, "viewBox"))) {
        Matrix fit = fitBox(*viewBox, parseAspectRatio(attribute(marker, "preserveAspectRatio")), box);
        // The reference point is what lands on the vertex, however the box is aligned.
        fit.e = fit.f = 0;
        place = place * fit;
        seen = *viewBox;
    }
    LengthBase inside = base;
    inside.viewport = {seen.width, seen.height};
    const double refX = reference(attribute(marker, "refX"), seen.x, seen.width, Axis::Horizontal, inside);
    const double refY = reference(attribute(marker, "refY"), seen.y, seen.height, Axis::Vertical, inside);
    place = place * Matrix::translation(-refX, -refY);
    if (!std::isfinite(place.determinant()) || place.determinant() == 0 || !std::isfinite(place.e + place.f)) {
        return;
    }
    state.style = &style;
    state.toPage = place;
    state.viewport = {seen.width, seen.height};
    state.referenced = true;
    ++state.depth;
    const bool cut = !style.own.overflowShown;
    if (cut) {
        pushBoxClip(seen, place);
    }
    state.opacity *= style.own.opacity;
    if (state.opacity > 0) {
        drawGroup(marker, state);
    }
    if (cut) {
        _canvas.popClip();
    }
}

} // namespace qsdps::svg
