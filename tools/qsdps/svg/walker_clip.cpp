// Clipping: clipPath elements, and masks that are nothing but an outline.
#include "svg/path_metrics.h"
#include "svg/scanner.h"
#include "svg/shapes.h"
#include "svg/walker.h"

namespace qsdps::svg {
namespace {

Matrix boxMatrix(const Box& box)
{
    return {box.width, 0, 0, box.height, box.x, box.y};
}

constexpr Rgb kWhite{255, 255, 255};

} // namespace

void Walker::pushBoxClip(const Box& box, const Matrix& toPage)
{
    ClipPath clip;
    clip.outlines.push_back({outlineOf(box), FillRule::NonZero, toPage, nullptr});
    _canvas.pushClip(clip);
}

Walker::Clip Walker::makeClip(std::string_view id, const State& state, const BoundsOf& bounds)
{
    const pugi::xml_node node = _scene.document().byId(id);
    if (_scene.document().tag(node) != Tag::ClipPath)
        return nullptr;
    const Scene::Expansion expansion(_scene, node);
    if (expansion.cyclic()) {
        _scene.badInput("clipPath element ignored: it refers to itself", node);
        return nullptr;
    }
    const Style& style = _scene.styleOf(node);
    auto clip = std::make_shared<ClipPath>();
    State inner = state;
    inner.style = &style;
    inner.opacity = 1;
    ++inner.depth;
    if (inner.depth >= kMaxDepth)
        return nullptr;
    if (attribute(node, "clipPathUnits") == "objectBoundingBox") {
        const Box box = bounds().value_or(Box{});
        if (!(box.width > 0) || !(box.height > 0))
            return clip;
        inner.toPage = inner.toPage * boxMatrix(box);
        inner.viewport = {1, 1};
    }
    Element element{node, Tag::ClipPath, style, {}};
    if (!applyTransform(element, inner))
        return clip;
    if (!style.own.clipPath.empty())
        clip->within = makeClip(style.own.clipPath, state, bounds);
    std::size_t children = 0;
    for (const pugi::xml_node& child : node.children()) {
        // The first outline of each use of a clip is free, so that ordinary drawings are never short of budget.
        if (child.type() != pugi::node_element)
            continue;
        if (children++ > 0 && !_scene.spendReferences(1))
            break;
        addClipChild(child, inner, *clip);
    }
    return clip;
}

void Walker::addClipChild(const pugi::xml_node& child, const State& state, ClipPath& clip)
{
    const Tag tag = _scene.document().tag(child);
    if (!isShape(tag) && tag != Tag::Use && tag != Tag::Text)
        return;
    const Element element = _scene.resolve(child, *state.style);
    State inner = state;
    inner.style = &element.style;
    if (!element.style.own.display || !applyTransform(element, inner))
        return;
    if (tag != Tag::Use) {
        addOutline(element, inner, clip);
        return;
    }
    const pugi::xml_node target = _scene.document().target(child);
    const Tag targetTag = _scene.document().tag(target);
    if (!isShape(targetTag) && targetTag != Tag::Text)
        return;
    const LengthBase base = baseOf(inner);
    inner.toPage = inner.toPage * Matrix::translation(lengthOr(element.get(Geometry::X), Axis::Horizontal, base, 0),
                                                      lengthOr(element.get(Geometry::Y), Axis::Vertical, base, 0));
    const Element used = _scene.resolve(target, element.style);
    const std::size_t before = clip.outlines.size();
    State usedState = inner;
    usedState.style = &used.style;
    if (!used.style.own.display || !applyTransform(used, usedState))
        return;
    addOutline(used, usedState, clip);
    if (clip.outlines.size() == before || element.style.own.clipPath.empty())
        return;
    // A clip on the use cuts the outline in addition to one that the outline has itself.
    const Clip outer = makeClip(element.style.own.clipPath, inner, [] { return std::optional<Box>(); });
    if (!outer)
        return;
    auto both = std::make_shared<ClipPath>(*outer);
    ClipOutline& outline = clip.outlines.back();
    if (outline.inner) {
        auto deepest = std::make_shared<ClipPath>(*outline.inner);
        if (!deepest->within) {
            deepest->within = both;
            outline.inner = deepest;
        }
    } else {
        outline.inner = both;
    }
}

void Walker::addOutline(const Element& element, State state, ClipPath& clip)
{
    if (!element.style.visible)
        return;
    if (element.tag == Tag::Text) {
        _scene.report().notDrawn("text in a clipPath");
        return;
    }
    Path path = shapePath(element, baseOf(state), faultsOf(element.node));
    if (path.empty() || !isFinite(path, state.toPage))
        return;
    Clip inner;
    if (!element.style.own.clipPath.empty())
        inner = makeClip(element.style.own.clipPath, state, [&] { return pathBounds(path); });
    clip.outlines.push_back({std::move(path), element.style.clipRule, state.toPage, std::move(inner)});
}

/// True when everything in the mask is fully there or not at all, so that it is the same as a clip.
bool Walker::isPlainMask(const pugi::xml_node& mask, const Style& style)
{
    const bool alpha = style.own.alphaMask;
    for (const pugi::xml_node& child : mask.children()) {
        const Tag tag = _scene.document().tag(child);
        if (tag == Tag::Unknown)
            continue;
        Element element = _scene.resolve(child, style);
        if (tag == Tag::Use) {
            const pugi::xml_node target = _scene.document().target(child);
            if (!isShape(_scene.document().tag(target)))
                return false;
            const OwnStyle own = element.style.own;
            element = _scene.resolve(target, element.style);
            if (own.opacity < 1 || own.filter || !own.mask.empty() || !own.clipPath.empty())
                return false;
        } else if (!isShape(tag)) {
            return false;
        }
        const Style& shape = element.style;
        const bool solid = shape.fill.kind == PaintSpec::Kind::Color && shape.fill.color.alpha >= 1 &&
                           shape.fillOpacity >= 1 && (alpha || shape.fill.color.rgb == kWhite);
        const bool plain = shape.own.opacity >= 1 && !shape.own.filter && shape.own.mask.empty();
        const bool stroked = shape.stroke.kind != PaintSpec::Kind::None && shape.strokeWidth.value > 0;
        if (!solid || !plain || stroked)
            return false;
    }
    return true;
}

Walker::Clip Walker::makeMaskClip(std::string_view id, const State& state, const BoundsOf& bounds)
{
    const pugi::xml_node node = _scene.document().byId(id);
    if (_scene.document().tag(node) != Tag::Mask)
        return nullptr;
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
        if (!(box.width > 0) || !(box.height > 0))
            return clip;
    }
    State inner = state;
    inner.style = &style;
    inner.opacity = 1;
    LengthBase base = baseOf(inner);
    if (regionOfBox)
        base.viewport = {1, 1};
    const auto get = [&](const char* name, Axis axis, double initial) {
        const Length length = parseLength(attribute(node, name)).value_or(Length{initial * 100, Unit::Percent});
        return svg::resolve(length, axis, base);
    };
    const Box region{get("x", Axis::Horizontal, -0.1), get("y", Axis::Vertical, -0.1),
                     get("width", Axis::Horizontal, 1.2), get("height", Axis::Vertical, 1.2)};
    auto limits = std::make_shared<ClipPath>();
    limits->outlines.push_back(
        {outlineOf(region), FillRule::NonZero, regionOfBox ? state.toPage * boxMatrix(box) : state.toPage, nullptr});
    clip->within = limits;
    if (contentOfBox) {
        inner.toPage = inner.toPage * boxMatrix(box);
        inner.viewport = {1, 1};
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() != pugi::node_element)
            continue;
        if (!_scene.spendReferences(1))
            break;
        const std::size_t before = clip->outlines.size();
        addClipChild(child, inner, *clip);
        // A mask is painted, so it is the fill rule that counts.
        if (clip->outlines.size() > before) {
            const Element element = _scene.resolve(child, style);
            clip->outlines.back().rule = element.style.fillRule;
        }
    }
    return clip;
}

} // namespace qsdps::svg
