#include "svg/walker/gradient.h"

#include "drawing/path_metrics.h"
#include "svg/shapes/transform_list.h"
#include "svg/walker/reference_chain.h"
#include "values/scanner.h"

#include <algorithm>
#include <cmath>

namespace qsdps::svg {
namespace {

bool isGradient(Tag tag)
{
    return tag == Tag::LinearGradient || tag == Tag::RadialGradient;
}

bool hasStops(const Document& document, const pugi::xml_node& gradient)
{
    for (const pugi::xml_node& child : gradient.children()) {
        if (document.tag(child) == Tag::Stop) {
            return true;
        }
    }
    return false;
}

std::vector<GradientStop> readStops(Scene& scene, const pugi::xml_node& gradient)
{
    std::vector<GradientStop> stops;
    const Style& parent = scene.styleOf(gradient);
    double least = 0;
    for (const pugi::xml_node& child : gradient.children()) {
        if (scene.document().tag(child) != Tag::Stop) {
            continue;
        }
        const Style style = scene.resolve(child, parent).style;
        least = std::clamp(parseFraction(attribute(child, "offset")).value_or(0), least, 1.0);
        const Color& color = style.own.stopCurrent ? style.color : style.own.stopColor;
        stops.push_back({least, color.rgb, color.alpha * style.own.stopOpacity});
    }
    return stops;
}

/// Reads the coordinates of a gradient in its own units.
class Coordinates {
public:
    Coordinates(const ReferenceChain& chain, const LengthBase& base, bool ofBox) : _chain(chain), _base(base)
    {
        if (ofBox) {
            _base.viewport = {1, 1};
        }
    }

    [[nodiscard]] double get(const char* name, Axis axis, Length initial) const
    {
        const std::string_view text = _chain.get(name);
        return resolve(parseLength(text).value_or(initial), axis, _base);
    }

private:
    const ReferenceChain& _chain;
    LengthBase _base;
};

void placeLinear(Gradient& gradient, const Coordinates& read)
{
    gradient.start = {read.get("x1", Axis::Horizontal, {0, Unit::Percent}),
                      read.get("y1", Axis::Vertical, {0, Unit::Percent})};
    gradient.end = {read.get("x2", Axis::Horizontal, {100, Unit::Percent}),
                    read.get("y2", Axis::Vertical, {0, Unit::Percent})};
}

void placeRadial(Gradient& gradient, const Coordinates& read)
{
    const Length Half{50, Unit::Percent};
    gradient.kind = Gradient::Kind::Radial;
    gradient.end = {read.get("cx", Axis::Horizontal, Half), read.get("cy", Axis::Vertical, Half)};
    gradient.endRadius = read.get("r", Axis::Diagonal, Half);
    gradient.start = {read.get("fx", Axis::Horizontal, {gradient.end.x}),
                      read.get("fy", Axis::Vertical, {gradient.end.y})};
    gradient.startRadius = std::max(0.0, read.get("fr", Axis::Diagonal, {0}));
    // A focus on or outside of the circle would leave part of the plane without a colour.
    constexpr double Inside = 0.99;
    const double dx = gradient.start.x - gradient.end.x;
    const double dy = gradient.start.y - gradient.end.y;
    const double distance = std::hypot(dx, dy);
    const double most = gradient.endRadius * Inside;
    if (distance > most) {
        const double factor = most / distance;
        gradient.start = {gradient.end.x + dx * factor, gradient.end.y + dy * factor};
    }
    gradient.startRadius = std::min(gradient.startRadius, gradient.endRadius);
}

bool isDegenerate(const Gradient& gradient)
{
    if (gradient.kind == Gradient::Kind::Linear) {
        return gradient.start == gradient.end;
    }
    return !(gradient.endRadius > 0);
}

Paint solid(const GradientStop& stop)
{
    return {stop.color, stop.opacity};
}

} // namespace

Paint makeGradient(Scene& scene, const pugi::xml_node& node, const LengthBase& base, const BoundsOf& bounds)
{
    const ReferenceChain chain(scene.document(), node, isGradient);
    if (chain.endsEarly()) {
        scene.badInput("gradient refers to itself, or through too many others", node);
    }
    const auto owner = std::find_if(chain.nodes().begin(), chain.nodes().end(), [&](const pugi::xml_node& candidate) {
        return hasStops(scene.document(), candidate);
    });
    if (owner == chain.nodes().end()) {
        return {};
    }
    const auto& stops = scene.stops(*owner, [&] { return readStops(scene, *owner); });
    // Long lists are copied for every shape that uses them.
    constexpr std::size_t ShortList = 64;
    if (!scene.spendReferences(stops.size() / ShortList)) {
        return solid(stops.back());
    }
    if (stops.size() == 1) {
        return solid(stops.front());
    }

    auto gradient = std::make_shared<Gradient>();
    const bool ofBox = chain.get("gradientUnits") != "userSpaceOnUse";
    if (ofBox) {
        const auto box = bounds();
        if (!box || !(box->width > 0) || !(box->height > 0)) {
            return {};
        }
        gradient->toUser = {box->width, 0, 0, box->height, box->x, box->y};
    }
    const Coordinates coordinates(chain, base, ofBox);
    if (scene.document().tag(node) == Tag::LinearGradient) {
        placeLinear(*gradient, coordinates);
    } else {
        placeRadial(*gradient, coordinates);
    }
    if (const std::string_view text = chain.get("gradientTransform"); !text.empty()) {
        const auto transform = parseTransform(text);
        if (!transform) {
            scene.badInput(badValue(text, "gradientTransform"), node);
        }
        gradient->toUser = gradient->toUser * transform.value_or(Matrix{});
    }
    if (isDegenerate(*gradient)) {
        return solid(stops.back());
    }
    if (!isFinite(gradient->toUser) || gradient->toUser.determinant() == 0) {
        return {};
    }
    const std::string_view spread = chain.get("spreadMethod");
    gradient->spread = spread == "reflect" ? Spread::Reflect : spread == "repeat" ? Spread::Repeat : Spread::Pad;
    gradient->stops = stops;
    return {std::shared_ptr<const Gradient>(std::move(gradient)), 1};
}

} // namespace qsdps::svg
