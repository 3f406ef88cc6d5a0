// Text: what an element and the spans inside it say, with which font and paint.
#include "drawing/bounds_canvas.h"
#include "drawing/path_metrics.h"
#include "svg/shapes/shapes.h"
#include "svg/shapes/transform_list.h"
#include "svg/walker/text_builder.h"
#include "svg/walker/walker.h"
#include "svg/xml/conditions.h"
#include "values/scanner.h"

#include <algorithm>
#include <string>

namespace qsdps::svg {
namespace {

std::vector<std::string> familyList(std::string_view text)
{
    std::vector<std::string> families;
    Scanner scanner(text);
    constexpr std::size_t MostFamilies = 32;
    while (!scanner.atEnd() && families.size() < MostFamilies) {
        std::string_view name = trim(scanner.upTo(','));
        if (name.size() >= 2 && (name.front() == '"' || name.front() == '\'') && name.back() == name.front()) {
            name = trim(name.substr(1, name.size() - 2));
        }
        if (!name.empty()) {
            families.emplace_back(name);
        }
    }
    return families;
}

/// How far a baseline of that kind lies above the alphabetic one, in ems, for common proportions of Latin text.
double baselineHeight(Baseline baseline)
{
    switch (baseline) {
    case Baseline::Alphabetic:
        break;
    case Baseline::Middle:
        return 0.26;
    case Baseline::Central:
        return 0.33;
    case Baseline::Hanging:
        return 0.73;
    case Baseline::TextTop:
        return 0.85;
    case Baseline::TextBottom:
        return -0.22;
    }
    return 0;
}

TextAnchor anchorOf(const Style& style)
{
    if (!style.rightToLeft || style.textAnchor == TextAnchor::Middle) {
        return style.textAnchor;
    }
    return style.textAnchor == TextAnchor::Start ? TextAnchor::End : TextAnchor::Start;
}

bool strokeFirst(const Style& style)
{
    const auto& order = style.paintOrder;
    return std::find(order.begin(), order.end(), PaintStep::Stroke) <
           std::find(order.begin(), order.end(), PaintStep::Fill);
}

bool isTextChild(Tag tag)
{
    return tag == Tag::Tspan || tag == Tag::A || tag == Tag::TextPath || tag == Tag::Switch;
}

} // namespace

/// Goes once through a text element and gathers its chunks.
class Walker::TextPass {
public:
    enum class Purpose : unsigned char { Paint, Clip };

    /// A clip takes the outlines of what is visible, whatever its paint: spans have any fill or none.
    TextPass(Walker& walker, const BoundsOf& bounds, Purpose purpose = Purpose::Paint)
        : _walker(walker), _bounds(bounds), _purpose(purpose)
    {
    }

    void element(const Element& element, const State& state, double shift, double opacity)
    {
        TextPositions positions = readPositions(element, state);
        const bool positioned = !positions.empty();
        if (positioned) {
            _builder.pushPositions(std::move(positions));
        }
        const std::optional<double> length = readLength(element, state);
        const std::size_t before = length ? _builder.breakSpan() : 0;
        const TextSpan span = makeSpan(element.style, state, shift, opacity);
        const auto useSpan = [&] { _builder.setSpan(span, anchorOf(element.style), element.style.preserveSpace); };
        useSpan();
        for (const pugi::xml_node& child : element.node.children()) {
            if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
                addText(child.value(), state);
            } else if (child.type() == pugi::node_element && inner(child, state, shift, opacity)) {
                useSpan();
            }
        }
        if (length) {
            applyLength(before, *length);
        }
        if (positioned) {
            _builder.popPositions();
        }
    }

    [[nodiscard]] std::vector<TextChunk> finish() { return _builder.finish(); }

private:
    void addText(std::string_view text, const State& state)
    {
        constexpr std::size_t ShortText = 128;
        if (!state.referenced || _walker._scene.spendReferences(text.size() / ShortText)) {
            _builder.add(text);
        }
    }

    /// A span inside; true when it may have changed what the builder writes with.
    bool inner(const pugi::xml_node& node, const State& parent, double shift, double opacity)
    {
        Scene& scene = _walker._scene;
        const Tag tag = scene.document().tag(node);
        if (tag == Tag::Tref && !_walker.measuring()) {
            scene.report().notDrawn("tref");
        }
        if (!isTextChild(tag)) {
            return false;
        }
        if (parent.depth >= MaxDepth) {
            scene.reportDepth(node);
            return false;
        }
        if (!_walker.spend(node, parent)) {
            return false;
        }
        const Element element = scene.resolve(node, *parent.style);
        if (!element.style.own.display || !conditionsHold(node, scene.options().languages)) {
            return false;
        }
        State state = parent;
        state.style = &element.style;
        ++state.depth;
        shift += baselineShift(element.style, *parent.style);
        opacity *= element.style.own.opacity;
        if (tag == Tag::Switch) {
            chooseFrom(node, state, shift, opacity);
        } else if (tag == Tag::TextPath) {
            onPath(element, state, shift, opacity);
        } else {
            this->element(element, state, shift, opacity);
        }
        return true;
    }

    void chooseFrom(const pugi::xml_node& node, const State& state, double shift, double opacity)
    {
        Scene& scene = _walker._scene;
        pugi::xml_node tref;
        for (const pugi::xml_node& child : node.children()) {
            const Tag tag = scene.document().tag(child);
            if (!conditionsHold(child, scene.options().languages)) {
                continue;
            }
            if (isTextChild(tag)) {
                inner(child, state, shift, opacity);
                return;
            }
            if (tag == Tag::Tref) {
                tref = child;
            }
        }
        if (tref) {
            inner(tref, state, shift, opacity);
        }
    }

    void onPath(const Element& textPath, const State& state, double shift, double opacity)
    {
        Scene& scene = _walker._scene;
        const pugi::xml_node target = scene.document().target(textPath.node);
        if (!isShape(scene.document().tag(target))) {
            return;
        }
        // The path is read, measured and walked anew for each text along it.
        constexpr std::size_t Passes = 4;
        const std::size_t cost = Passes * Walker::costOf(target);
        if (!(_walker.measuring() ? scene.spendMeasuring(cost) : scene.spendReferences(cost))) {
            return;
        }
        const Element shape = scene.resolve(target, scene.styleOf(target.parent()));
        Path path = shapePath(shape, _walker.baseOf(state), [](std::string_view) {});
        double scale = 1;
        const double length = pathLength(path);
        if (const auto stated = parseNumber(attribute(target, "pathLength")); stated && *stated > 0) {
            scale = length / *stated;
        }
        const Length offset = parseLength(attribute(textPath.node, "startOffset")).value_or(Length{});
        const double start = qsdps::resolve(offset, scale > 0 ? length / scale : 0, _walker.baseOf(state)) * scale;
        const auto transform = parseTransform(shape.style.own.transform);
        if (transform) {
            path = path.transformed(*transform);
        }
        if (path.empty() || !isFinite(path, state.toPage)) {
            return;
        }
        _builder.setPath(std::move(path), start);
        element(textPath, state, shift, opacity);
        _builder.setPath({}, 0);
    }

    TextPositions readPositions(const Element& element, const State& state)
    {
        const LengthBase base = _walker.baseOf(state);
        const auto read = [&](std::string_view text, Axis axis) {
            std::vector<double> values;
            const auto lengths = parseLengthList(text);
            if (!lengths && !_walker.measuring()) {
                _walker._scene.badInput(badValue(text, "a list of text positions"), element.node);
            }
            for (const Length& length : lengths.value_or(std::vector<Length>{})) {
                values.push_back(qsdps::resolve(length, axis, base));
            }
            return values;
        };
        TextPositions positions;
        positions.x = read(element.get(Geometry::X), Axis::Horizontal);
        positions.y = read(element.get(Geometry::Y), Axis::Vertical);
        positions.dx = read(attribute(element.node, "dx"), Axis::Horizontal);
        positions.dy = read(attribute(element.node, "dy"), Axis::Vertical);
        positions.rotate = parseNumberList(attribute(element.node, "rotate"));
        return positions;
    }

    [[nodiscard]] std::optional<double> readLength(const Element& element, const State& state) const
    {
        const auto length = parseLength(attribute(element.node, "textLength"));
        if (!length || !(length->value > 0)) {
            return {};
        }
        return qsdps::resolve(*length, Axis::Horizontal, _walker.baseOf(state));
    }

    void applyLength(std::size_t before, double length)
    {
        if (TextSpan* only = _builder.onlySpanSince(before)) {
            only->textLength = length;
        } else if (_builder.anySince(before) && !_walker.measuring()) {
            _walker._scene.report().approximated("textLength");
        }
        static_cast<void>(_builder.breakSpan());
    }

    double baselineShift(const Style& style, const Style& parent) const
    {
        const std::string_view text = style.own.baselineShift;
        if (text.empty() || text == "baseline") {
            return 0;
        }
        if (text == "super") {
            return parent.fontSize * 0.4;
        }
        if (text == "sub") {
            return parent.fontSize * -0.2;
        }
        const auto length = parseLength(text);
        if (!length) {
            return 0;
        }
        return qsdps::resolve(*length, style.fontSize, _walker._scene.lengthBase(style, {}));
    }

    TextSpan makeSpan(const Style& style, const State& state, double shift, double opacity)
    {
        const LengthBase base = _walker.baseOf(state);
        TextSpan span;
        span.font = {familyList(style.fontFamily), style.fontSize, style.fontWeight, style.italic};
        span.strokeStyle = _walker.strokeStyle(style, state);
        span.strokeFirst = strokeFirst(style);
        if (style.visible && _purpose == Purpose::Clip) {
            span.fill = {Rgb{}, 1};
        } else if (style.visible && !_walker.measuring()) {
            span.fill = _walker.makePaint(style.fill, style.fillOpacity, state, _bounds);
            if (span.strokeStyle.width > 0) {
                span.stroke = _walker.makePaint(style.stroke, style.strokeOpacity, state, _bounds);
            }
        }
        span.opacity = opacity;
        span.underline = style.underline;
        span.overline = style.overline;
        span.lineThrough = style.lineThrough;
        span.baselineShift = shift - baselineHeight(style.baseline) * style.fontSize;
        span.letterSpacing = qsdps::resolve(style.letterSpacing, Axis::Horizontal, base);
        span.wordSpacing = qsdps::resolve(style.wordSpacing, Axis::Horizontal, base);
        span.rightToLeft = style.rightToLeft;
        return span;
    }

    Walker& _walker;
    const BoundsOf& _bounds;
    Purpose _purpose;
    TextBuilder _builder;
};

void Walker::reportVertical(const Element& text)
{
    if (!measuring() && text.style.vertical) {
        _scene.report().approximated("vertical text");
    }
}

std::vector<TextChunk> Walker::clipTexts(const Element& element, State state)
{
    reportVertical(element);
    // Long texts count each time that the clip is used.
    state.referenced = true;
    const BoundsOf noBounds = [] { return std::optional<Box>(); };
    TextPass pass(*this, noBounds, TextPass::Purpose::Clip);
    pass.element(element, state, 0, 1);
    return pass.finish();
}

void Walker::drawText(const Element& element, State state)
{
    reportVertical(element);
    // The box is only a guess: how wide the text comes out is known to the painter alone.
    const BoundsOf bounds = [&]() -> std::optional<Box> {
        _scene.report().approximated("paint fitted to text");
        BoundsCanvas canvas(state.toPage.inverse(), false);
        Walker(_scene, canvas, Purpose::Measure).drawText(element, state);
        return canvas.box();
    };
    TextPass pass(*this, bounds);
    pass.element(element, state, 0, 1);
    std::vector<TextChunk> chunks = pass.finish();

    const bool layered = std::any_of(chunks.begin(), chunks.end(), [](const TextChunk& chunk) {
        return std::any_of(chunk.spans.begin(), chunk.spans.end(),
                           [](const TextSpan& span) { return !span.fill.none() && !span.stroke.none(); });
    });
    const bool group = beginGroup(state, layered);
    for (TextChunk& chunk : chunks) {
        for (TextSpan& span : chunk.spans) {
            span.opacity *= state.opacity;
        }
        _canvas.text(chunk, state.toPage);
    }
    endGroup(group);
}

} // namespace qsdps::svg
