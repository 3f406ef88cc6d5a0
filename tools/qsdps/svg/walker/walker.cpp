#include "svg/walker/walker.h"

#include "drawing/bounds_canvas.h"
#include "drawing/path_metrics.h"
#include "svg/shapes/shapes.h"
#include "svg/shapes/transform_list.h"
#include "svg/walker/viewport.h"
#include "svg/xml/conditions.h"

#include <cstring>
#include <string>
#include <utility>

namespace qsdps::svg {
namespace {

/// True when something that is drawn stands inside more than once.
bool hasSeveral(const Document& document, const pugi::xml_node& parent)
{
    bool one = false;
    for (const pugi::xml_node& child : parent.children()) {
        if (!isDrawn(document.tag(child))) {
            continue;
        }
        if (one) {
            return true;
        }
        one = true;
    }
    return false;
}

bool isInside(pugi::xml_node node, const pugi::xml_node& outer)
{
    for (int levels = 0; node && levels <= MaxDepth; ++levels, node = node.parent()) {
        if (node == outer) {
            return true;
        }
    }
    return false;
}

/// Filters that bring in something of their own, instead of changing the look of the element.
bool makesContent(const pugi::xml_node& filter)
{
    for (const pugi::xml_node& child : filter.children()) {
        const std::string_view name = localName(child);
        for (const std::string_view maker :
             {"feFlood", "feImage", "feTurbulence", "feDiffuseLighting", "feSpecularLighting", "feTile"}) {
            if (name == maker) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

Walker::Walker(Scene& scene, Canvas& canvas, Purpose purpose) : _scene(scene), _canvas(canvas), _purpose(purpose) {}

std::function<void(std::string_view)> Walker::faultsOf(const pugi::xml_node& node)
{
    return [this, node](std::string_view what) { _scene.badInput(what, node); };
}

LengthBase Walker::baseOf(const State& state) const
{
    return _scene.lengthBase(*state.style, state.viewport);
}

void Walker::drawRoot(const Matrix& toPage)
{
    const Style initial;
    State state;
    state.style = &initial;
    state.toPage = toPage;
    state.viewport = _scene.page();
    drawElement(_scene.document().root(), state);
}

bool Walker::spend(const pugi::xml_node& node, const State& state)
{
    if (measuring()) {
        return _scene.spendMeasuring(costOf(node));
    }
    return !state.referenced || _scene.spendReferences(costOf(node));
}

std::size_t Walker::costOf(const pugi::xml_node& node)
{
    // Attributes are read anew each time they are referred to; long ones cost more than the element.
    constexpr std::size_t ShortText = 512;
    std::size_t size = 0;
    for (const pugi::xml_attribute& text : node.attributes()) {
        size += std::strlen(text.value());
    }
    return 1 + size / ShortText;
}

void Walker::drawElement(const pugi::xml_node& node, const State& parent, const Element* use)
{
    const Tag tag = _scene.document().tag(node);
    if (!isDrawn(tag) && !(use != nullptr && tag == Tag::Symbol)) {
        return;
    }
    if (parent.depth >= MaxDepth) {
        _scene.reportDepth(node);
        return;
    }
    if (!spend(node, parent)) {
        return;
    }
    const Element element = _scene.resolve(node, *parent.style);
    const OwnStyle& own = element.style.own;
    if (!own.display || !conditionsHold(node, _scene.options().languages)) {
        return;
    }
    State state = parent;
    state.style = &element.style;
    ++state.depth;
    if (!applyTransform(element, state)) {
        return;
    }
    // What cuts a use is moved with it.
    if (tag == Tag::Use) {
        state.toPage = state.toPage * shiftOfUse(element, state);
    }
    if (measuring()) {
        drawContent(element, state, use);
        return;
    }
    state.opacity *= own.opacity;
    if (state.opacity <= 0) {
        return;
    }

    reportEffects(element);
    const BoundsOf bounds = [&, known = false, box = std::optional<Box>()]() mutable {
        if (!std::exchange(known, true)) {
            box = boundsOf(element, state, use);
        }
        return box;
    };
    ClipMemo memo;
    const Clip clip = own.clipPath.empty() ? nullptr : makeClip(own.clipPath, state, bounds, memo);
    const Clip mask = own.mask.empty() ? nullptr : makeMaskClip(own.mask, state, bounds);
    if ((clip && clip->outlines.empty()) || (mask && mask->outlines.empty())) {
        return;
    }
    if (clip) {
        _canvas.pushClip(*clip);
    }
    if (mask) {
        _canvas.pushClip(*mask);
    }
    drawContent(element, state, use);
    if (mask) {
        _canvas.popClip();
    }
    if (clip) {
        _canvas.popClip();
    }
}

void Walker::drawContent(const Element& element, const State& state, const Element* use)
{
    switch (element.tag) {
    case Tag::A:
    case Tag::G:
        drawGroup(element.node, state);
        break;
    case Tag::Switch:
        drawSwitch(element.node, state);
        break;
    case Tag::Svg:
    case Tag::Symbol:
        drawViewport(element, state, use);
        break;
    case Tag::Use:
        drawUse(element, state);
        break;
    case Tag::Text:
        drawText(element, state);
        break;
    case Tag::Image:
        drawImage(element, state);
        break;
    case Tag::ForeignObject:
        if (!measuring()) {
            _scene.report().notDrawn("foreignObject");
        }
        break;
    case Tag::FlowRoot:
        if (!measuring()) {
            _scene.report().notDrawn("flowed text");
        }
        break;
    default:
        drawShape(element, state);
        break;
    }
}

void Walker::drawChildren(const pugi::xml_node& parent, const State& state)
{
    for (const pugi::xml_node& child : parent.children()) {
        if (child.type() == pugi::node_element) {
            drawElement(child, state);
        }
    }
}

void Walker::drawGroup(const pugi::xml_node& parent, State state)
{
    const bool group = beginGroup(state, state.opacity < 1 && hasSeveral(_scene.document(), parent));
    drawChildren(parent, state);
    endGroup(group);
}

// What cannot be drawn gives way to the alternatives behind it, and is told when there are none.
void Walker::drawSwitch(const pugi::xml_node& node, const State& state)
{
    pugi::xml_node preferred;
    for (const pugi::xml_node& child : node.children()) {
        const Tag tag = _scene.document().tag(child);
        if (!isDrawn(tag) || !conditionsHold(child, _scene.options().languages)) {
            continue;
        }
        if (tag != Tag::ForeignObject && tag != Tag::FlowRoot) {
            drawElement(child, state);
            return;
        }
        if (!preferred) {
            preferred = child;
        }
    }
    if (preferred) {
        drawElement(preferred, state);
    }
}

void Walker::drawUse(const Element& element, State state)
{
    const pugi::xml_node target = _scene.document().target(element.node);
    if (!target) {
        if (!measuring()) {
            _scene.badInput("use element left out: it refers to nothing in this file", element.node);
        }
        return;
    }
    const Scene::Expansion expansion(_scene, target);
    if (expansion.cyclic() || isInside(element.node, target)) {
        _scene.badInput("use element left out: it refers to itself", element.node);
        return;
    }
    state.referenced = true;
    if (isFinite(state.toPage)) {
        drawElement(target, state, &element);
    }
}

void Walker::drawViewport(const Element& element, State state, const Element* use)
{
    const bool isRoot = element.node == _scene.document().root();
    const LengthBase base = baseOf(state);
    Box box{0, 0, state.viewport.width, state.viewport.height};
    if (!isRoot) {
        const auto size = [&](Geometry which, Axis axis, double full) {
            const double own = lengthOr(element.get(which), axis, base, full);
            return use == nullptr ? own : lengthOr(use->get(which), axis, base, own);
        };
        box = {lengthOr(element.get(Geometry::X), Axis::Horizontal, base, 0),
               lengthOr(element.get(Geometry::Y), Axis::Vertical, base, 0),
               size(Geometry::Width, Axis::Horizontal, box.width), size(Geometry::Height, Axis::Vertical, box.height)};
        if (!(box.width > 0) || !(box.height > 0)) {
            return;
        }
    }
    // What lies outside of a viewport is cut, unless the element says otherwise; the page itself cuts the root.
    const bool cut = !isRoot && !element.style.own.overflowShown && !measuring();
    const Matrix outer = state.toPage;
    const auto viewBox = parseViewBox(attribute(element.node, "viewBox"));
    if (viewBox && box.width > 0 && box.height > 0) {
        const AspectRatio aspect = parseAspectRatio(attribute(element.node, "preserveAspectRatio"));
        state.toPage = outer * fitBox(*viewBox, aspect, box);
        state.viewport = {viewBox->width, viewBox->height};
    } else {
        state.toPage = outer * Matrix::translation(box.x, box.y);
        state.viewport = {box.width, box.height};
    }
    if (!isFinite(state.toPage)) {
        return;
    }
    if (cut) {
        pushBoxClip(box, outer);
    }
    drawGroup(element.node, state);
    if (cut) {
        _canvas.popClip();
    }
}

Matrix Walker::shiftOfUse(const Element& use, const State& state) const
{
    const LengthBase base = baseOf(state);
    return Matrix::translation(lengthOr(use.get(Geometry::X), Axis::Horizontal, base, 0),
                               lengthOr(use.get(Geometry::Y), Axis::Vertical, base, 0));
}

bool Walker::applyTransform(const Element& element, State& state)
{
    const std::string_view text = element.style.own.transform;
    if (text.empty()) {
        return true;
    }
    const auto transform = parseTransform(text);
    if (!transform) {
        if (!measuring()) {
            _scene.badInput(badValue(text, "transform"), element.node);
        }
        return true;
    }
    state.toPage = state.toPage * *transform;
    return isFinite(state.toPage) && state.toPage.determinant() != 0;
}

bool Walker::beginGroup(State& state, bool needed)
{
    if (!needed || state.opacity >= 1 || measuring()) {
        return false;
    }
    _canvas.beginGroup(state.opacity);
    state.opacity = 1;
    return true;
}

void Walker::endGroup(bool begun)
{
    if (begun) {
        _canvas.endGroup();
    }
}

void Walker::reportEffects(const Element& element)
{
    const OwnStyle& own = element.style.own;
    if (own.blend) {
        _scene.report().approximated("blend mode");
    }
    if (!own.filter) {
        return;
    }
    const pugi::xml_node filter = _scene.document().byId(own.filterId);
    if (!own.filterId.empty() && _scene.document().tag(filter) != Tag::Filter) {
        return;
    }
    if (makesContent(filter)) {
        _scene.report().notDrawn("filter");
    } else {
        _scene.report().approximated("filter");
    }
}

std::optional<Box> Walker::boundsOf(const Element& element, const State& state, const Element* use)
{
    if (isShape(element.tag)) {
        return pathBounds(shapePath(element, baseOf(state), [](std::string_view) {}));
    }
    BoundsCanvas canvas(state.toPage.inverse(), false);
    Walker(_scene, canvas, Purpose::Measure).drawContent(element, state, use);
    return canvas.box();
}

} // namespace qsdps::svg
