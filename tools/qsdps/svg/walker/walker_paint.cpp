// Paints: colours, gradients, patterns, and the paints of a marker's shape.
#include "drawing/path_metrics.h"
#include "svg/shapes/shapes.h"
#include "svg/shapes/transform_list.h"
#include "svg/walker/reference_chain.h"
#include "svg/walker/viewport.h"
#include "svg/walker/walker.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

Paint solid(const Color& color, double opacity)
{
    return {color.rgb, color.alpha * opacity};
}

/// The same paint seen from another user space.
Paint moved(Paint paint, const Matrix& change)
{
    if (const auto* gradient = std::get_if<std::shared_ptr<const Gradient>>(&paint.source)) {
        auto copy = std::make_shared<Gradient>(**gradient);
        copy->toUser = change * copy->toUser;
        paint.source = std::shared_ptr<const Gradient>(std::move(copy));
    } else if (const auto* tile = std::get_if<std::shared_ptr<const Tile>>(&paint.source)) {
        auto copy = std::make_shared<Tile>(**tile);
        copy->toUser = change * copy->toUser;
        paint.source = std::shared_ptr<const Tile>(std::move(copy));
    }
    return paint;
}

bool hasElements(const pugi::xml_node& node)
{
    return std::any_of(node.children().begin(), node.children().end(),
                       [](const pugi::xml_node& child) { return child.type() == pugi::node_element; });
}

} // namespace

Paint Walker::makePaint(const PaintSpec& wanted, double opacity, const State& state, const BoundsOf& bounds)
{
    const auto fromContext = [&](const Paint& paint) {
        Paint seen = moved(paint, state.toPage.inverse() * state.context->toPage);
        seen.opacity *= opacity;
        return seen;
    };
    switch (wanted.kind) {
    case PaintSpec::Kind::None:
        break;
    case PaintSpec::Kind::Color:
        return solid(wanted.color, opacity);
    case PaintSpec::Kind::CurrentColor:
        return solid(state.style->color, opacity);
    case PaintSpec::Kind::Reference: {
        Paint paint = makeReference(wanted, state, bounds);
        paint.opacity *= opacity;
        return paint;
    }
    case PaintSpec::Kind::ContextFill:
        return state.context != nullptr ? fromContext(state.context->fill) : Paint{};
    case PaintSpec::Kind::ContextStroke:
        return state.context != nullptr ? fromContext(state.context->stroke) : Paint{};
    }
    return {};
}

Paint Walker::makeReference(const PaintSpec& wanted, const State& state, const BoundsOf& bounds)
{
    const pugi::xml_node node = _scene.document().byId(wanted.reference);
    Paint paint;
    switch (_scene.document().tag(node)) {
    case Tag::LinearGradient:
    case Tag::RadialGradient:
        return makeGradient(_scene, node, baseOf(state), bounds);
    case Tag::Pattern:
        return makeTile(node, state, bounds);
    default:
        break;
    }
    if (wanted.fallback == PaintSpec::Kind::Color) {
        return solid(wanted.color, 1);
    }
    if (wanted.fallback == PaintSpec::Kind::CurrentColor) {
        return solid(state.style->color, 1);
    }
    return {};
}

Paint Walker::makeTile(const pugi::xml_node& node, const State& state, const BoundsOf& bounds)
{
    const ReferenceChain chain(_scene.document(), node, [](Tag tag) { return tag == Tag::Pattern; });
    if (chain.endsEarly()) {
        _scene.badInput("pattern refers to itself, or through too many others", node);
    }
    const auto content = std::find_if(chain.nodes().begin(), chain.nodes().end(), hasElements);
    if (content == chain.nodes().end() || state.depth >= MaxDepth) {
        return {};
    }
    const bool cellOfBox = chain.get("patternUnits") != "userSpaceOnUse";
    const auto viewBox = parseViewBox(chain.get("viewBox"));
    const bool contentOfBox = chain.get("patternContentUnits") == "objectBoundingBox" && !viewBox;
    Box box;
    if (cellOfBox || contentOfBox) {
        box = bounds().value_or(Box{});
        if (!(box.width > 0) || !(box.height > 0)) {
            return {};
        }
    }
    LengthBase base = baseOf(state);
    if (cellOfBox) {
        base.viewport = {1, 1};
    }
    const auto get = [&](const char* name, Axis axis) { return lengthOr(chain.get(name), axis, base, 0); };
    Box cell{get("x", Axis::Horizontal), get("y", Axis::Vertical), get("width", Axis::Horizontal),
             get("height", Axis::Vertical)};
    if (cellOfBox) {
        cell = {box.x + cell.x * box.width, box.y + cell.y * box.height, cell.width * box.width,
                cell.height * box.height};
    }
    if (!(cell.width > 0) || !(cell.height > 0) || !isFinite(outlineOf(cell), state.toPage)) {
        return {};
    }

    auto tile = std::make_shared<Tile>();
    tile->cell = cell;
    if (const auto transform = parseTransform(chain.get("patternTransform"))) {
        tile->toUser = *transform;
    }
    if (!isFinite(tile->toUser) || tile->toUser.determinant() == 0) {
        return {};
    }
    State inner = state;
    inner.opacity = 1;
    inner.context = nullptr;
    ++inner.depth;
    // The content's own space begins at the corner of the cell.
    if (viewBox) {
        inner.toPage = fitBox(*viewBox, parseAspectRatio(chain.get("preserveAspectRatio")), cell);
        inner.viewport = {viewBox->width, viewBox->height};
    } else {
        inner.toPage = Matrix::translation(cell.x, cell.y);
        if (contentOfBox) {
            inner.toPage = inner.toPage * Matrix::scaling(box.width, box.height);
        }
    }
    Scene& scene = _scene;
    tile->draw = [&scene, inner, cell, source = *content](Canvas& canvas, const Matrix& toPage) {
        Walker(scene, canvas).drawTile(source, inner, cell, toPage);
    };
    return {std::shared_ptr<const Tile>(std::move(tile)), 1};
}

void Walker::drawTile(const pugi::xml_node& content, const State& state, const Box& cell, const Matrix& patternToPage)
{
    const Scene::Expansion expansion(_scene, content);
    if (expansion.cyclic()) {
        _scene.badInput("tile of a pattern left out: the pattern refers to itself", content);
        return;
    }
    const Style& style = _scene.styleOf(content);
    State inner = state;
    inner.style = &style;
    inner.toPage = patternToPage * state.toPage;
    // How often a cell is drawn is the painter's choice; a tile within a tile multiplies that.
    inner.referenced = _scene.tiles > 0;
    const bool cut = !style.own.overflowShown;
    if (cut) {
        pushBoxClip(cell, patternToPage);
    }
    ++_scene.tiles;
    drawChildren(content, inner);
    --_scene.tiles;
    if (cut) {
        _canvas.popClip();
    }
}

} // namespace qsdps::svg
