// Clipping: clipPath elements, and masks that are nothing but an outline.
#include "drawing/bounds_canvas.h"
#include "drawing/path_metrics.h"
#include "svg/shapes/shapes.h"
#include "svg/walker/walker.h"
#include "values/scanner.h"

#include <utility>

namespace qsdps::svg {
namespace {

Matrix boxMatrix(const Box& box)
{
    return {box.width, 0, 0, box.height, box.x, box.y};
}

constexpr Rgb White{255, 255, 255};

} // namespace

void Walker::pushBoxClip(const Box& box, const Matrix& toPage)
{
    ClipPath clip;
    clip.outlines.push_back({outlineOf(box), FillRule::NonZero, toPage, nullptr});
    _canvas.pushClip(clip);
}

/// True when the clip, or one that cuts it, is fitted to the object.
bool Walker::fitsBox(pugi::xml_node clip)
{
    for (int levels = 0; _scene.document().tag(clip) == Tag::ClipPath && levels < MaxDepth; ++levels) {
        if (attribute(clip, "clipPathUnits") == "objectBoundingBox") {
            return true;
        }
        clip = _scene.document().byId(_scene.styleOf(clip).own.clipPath);
    }
    return false;
}

Walker::Clip Walker::makeClip(std::string_view id, const State& state, const BoundsOf& bounds, ClipMemo& memo)
{
    const pugi::xml_node node = _scene.document().byId(id);
    if (_scene.document().tag(node) != Tag::ClipPath) {
        return nullptr;
    }
    const Scene::Expansion expansion(_scene, node);
    if (expansion.cyclic()) {
        _scene.badInput("clipPath element ignored: it refers to itself", node);
        return nullptr;
    }
    if (state.depth + 1 >= MaxDepth) {
        _scene.reportDepth(node);
        return nullptr;
    }
    ClipMemo::Place place{node, state.toPage, state.viewport, {}};
    if (fitsBox(node)) {
        place.box = bounds().value_or(Box{});
        if (!(place.box->width > 0) || !(place.box->height > 0)) {
            return std::make_shared<ClipPath>();
        }
    }
    if (const Clip* known = memo.find(place)) {
        return *known;
    }
    // The first clip of each object is free, so that ordinary drawings are never short of budget.
    if (memo.count() > 0 && !_scene.spendReferences(1)) {
        return nullptr;
    }
    if (!memo.begin()) {
        _scene.report().notDrawn("clip path inside a clip path (too many)");
        return nullptr;
    }
    Clip clip = makeClipAt(place, state, memo);
    memo.add(place, clip);
    return clip;
}

Walker::Clip Walker::makeClipAt(const ClipMemo::Place& place, const State& state, ClipMemo& memo)
{
    const pugi::xml_node& node = place.node;
    const bool outermost = memo.count() == 1;
    const Style& style = _scene.styleOf(node);
    auto clip = std::make_shared<ClipPath>();
    State inner = state;
    inner.opacity = 1;
    ++inner.depth;
    if (!style.own.clipPath.empty()) {
        clip->within = makeClip(
            style.own.clipPath, inner, [&] { return place.box; }, memo);
    }
    inner.style = &style;
    if (place.box && attribute(node, "clipPathUnits") == "objectBoundingBox") {
        inner.toPage = inner.toPage * boxMatrix(*place.box);
        inner.viewport = {1, 1};
    }
    Element element{node, Tag::ClipPath, style, {}};
    if (!applyTransform(element, inner)) {
        return clip;
    }
    bool free = outermost;
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element) {
            continue;
        }
        if (!std::exchange(free, false) && !_scene.spendReferences(outermost ? 1 : costOf(child))) {
            break;
        }
        addClipChild(child, inner, *clip, memo);
    }
    return clip;
}

void Walker::addClipChild(const pugi::xml_node& child, const State& state, ClipPath& clip, ClipMemo& memo)
{
    const Tag tag = _scene.document().tag(child);
    if (!isShape(tag) && tag != Tag::Use && tag != Tag::Text) {
        return;
    }
    const Element element = _scene.resolve(child, *state.style);
    State inner = state;
    inner.style = &element.style;
    if (!element.style.own.display || !applyTransform(element, inner)) {
        return;
    }
    if (tag != Tag::Use) {
        addOutline(element, inner, clip, memo);
        return;
    }
    const pugi::xml_node target = _scene.document().target(child);
    const Tag targetTag = _scene.document().tag(target);
    if (!isShape(targetTag) && targetTag != Tag::Text) {
        return;
    }
    inner.toPage = inner.toPage * shiftOfUse(element, inner);
    const Element used = _scene.resolve(target, element.style);
    const std::size_t before = clip.outlines.size();
    State usedState = inner;
    usedState.style = &used.style;
    if (!used.style.own.display || !applyTransform(used, usedState)) {
        return;
    }
    addOutline(used, usedState, clip, memo);
    if (clip.outlines.size() == before || element.style.own.clipPath.empty()) {
        return;
    }
    const BoundsOf bounds = [&] {
        BoundsCanvas canvas(inner.toPage.inverse(), false);
        Walker(_scene, canvas, Purpose::Measure).drawContent(used, usedState, nullptr);
        return canvas.box();
    };
    clip.outlines.back().around = makeClip(element.style.own.clipPath, inner, bounds, memo);
}

void Walker::addOutline(const Element& element, const State& state, ClipPath& clip, ClipMemo& memo)
{
    if (!element.style.visible && element.tag != Tag::Text) {
        return;
    }
    ClipOutline outline{{}, element.style.clipRule, state.toPage, nullptr};
    if (element.tag == Tag::Text) {
        outline.texts = clipTexts(element, state);
        if (outline.texts.empty()) {
            return;
        }
    } else {
        outline.path = shapePath(element, baseOf(state), faultsOf(element.node));
        if (outline.path.empty() || !isFinite(outline.path, state.toPage)) {
            return;
        }
    }
    const BoundsOf bounds = [&] { return boundsOf(element, state, nullptr); };
    if (!element.style.own.clipPath.empty()) {
        outline.inner = makeClip(element.style.own.clipPath, state, bounds, memo);
    }
    clip.outlines.push_back(std::move(outline));
}

/// True when everything in the mask is fully there or not at all, so that it is the same as a clip.
bool Walker::isPlainMask(const pugi::xml_node& mask, const Style& style)
{
    const bool alpha = style.own.alphaMask;
    for (const pugi::xml_node& child : mask.children()) {
        const Tag tag = _scene.document().tag(child);
        if (tag == Tag::Unknown) {
            continue;
        }
        Element element = _scene.resolve(child, style);
        if (tag == Tag::Use) {
            const pugi::xml_node target = _scene.document().target(child);
            if (!isShape(_scene.document().tag(target))) {
                return false;
            }
            const OwnStyle own = element.style.own;
            element = _scene.resolve(target, element.style);
            if (own.opacity < 1 || own.filter || !own.mask.empty() || !own.clipPath.empty()) {
                return false;
            }
        } else if (!isShape(tag)) {
            return false;
        }
        const Style& shape = element.style;
        const bool solid = shape.fill.kind == PaintSpec::Kind::Color && shape.fill.color.alpha >= 1 &&
                           shape.fillOpacity >= 1 && (alpha || shape.fill.color.rgb == White);
        const bool plain = shape.own.opacity >= 1 && !shape.own.filter && shape.own.mask.empty();
        const bool stroked = shape.stroke.kind != PaintSpec::Kind::None && shape.strokeWidth.value > 0;
        if (!solid || !plain || stroked) {
            return false;
        }
    }
    return true;
}

Walker::Clip Walker::makeMaskClip(std::string_view id, const State& state, const BoundsOf& bounds)
{
    const pugi::xml_node node = _scene.document().byId(id);
    if (_scene.document().tag(node) != Tag::Mask) {
        return nullptr;
    }
    const Style& style = _scene.styleOf(node);
    if (style.own.filter || !style.own.mask.empty() || !style.own.clipPath.empty() || !isPlainMask(node, style)) {
        _scene.report().notDrawn("mask");
        return nullptr;
    }
    const bool contentOfBox = attribute(node, "maskContentUnits") == "objectBoundingBox";
    const bool regionOfBox = attribute(node, "maskUnits") != "userSpaceOnUse";
    Box box;
    auto clip = std::make_shared<ClipPath>();
    if (contentOfBox || regionOfBox) {
        box = bounds().value_or(Box{});
        if (!(box.width > 0) || !(box.height > 0)) {
            return clip;
        }
    }
    State inner = state;
    inner.style = &style;
    inner.opacity = 1;
    LengthBase base = baseOf(inner);
    if (regionOfBox) {
        base.viewport = {1, 1};
    }
    const auto get = [&](const char* name, Axis axis, double initial) {
        const Length length = parseLength(attribute(node, name)).value_or(Length{initial * 100, Unit::Percent});
        return qsdps::resolve(length, axis, base);
    };
    const Box region{get("x", Axis::Horizontal, -0.1), get("y", Axis::Vertical, -0.1),
                     get("width", Axis::Horizontal, 1.2), get("height", Axis::Vertical, 1.2)};
    ClipMemo memo;
    auto limits = std::make_shared<ClipPath>();
    limits->outlines.push_back(
        {outlineOf(region), FillRule::NonZero, regionOfBox ? state.toPage * boxMatrix(box) : state.toPage, nullptr});
    clip->within = limits;
    if (contentOfBox) {
        inner.toPage = inner.toPage * boxMatrix(box);
        inner.viewport = {1, 1};
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element) {
            continue;
        }
        if (!_scene.spendReferences(1)) {
            break;
        }
        const std::size_t before = clip->outlines.size();
        addClipChild(child, inner, *clip, memo);
        // A mask is painted, so it is the fill rule that counts.
        if (clip->outlines.size() > before) {
            const Element element = _scene.resolve(child, style);
            clip->outlines.back().rule = element.style.fillRule;
        }
    }
    return clip;
}

} // namespace qsdps::svg
