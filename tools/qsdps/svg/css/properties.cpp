#include "svg/css/properties.h"

#include "values/css_text.h"
#include "values/scanner.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>

namespace qsdps::svg {
namespace {

template <typename T>
struct Keyword {
    std::string_view name;
    T value;
};

/// Sets `to` from a keyword of the list; false where the text is none of them.
template <typename T, std::size_t N>
bool applyKeyword(T& to, std::string_view text, const Keyword<T> (&keywords)[N])
{
    for (const Keyword<T>& keyword : keywords) {
        if (equalsNoCase(text, keyword.name)) {
            to = keyword.value;
            return true;
        }
    }
    return false;
}

bool applyFraction(double& to, std::string_view text)
{
    const auto value = parseFraction(text);
    if (value) {
        to = std::clamp(*value, 0.0, 1.0);
    }
    return value.has_value();
}

bool applyLength(Length& to, std::string_view text)
{
    const auto value = parseLength(text);
    if (value) {
        to = *value;
    }
    return value.has_value();
}

bool applySpacing(Length& to, std::string_view text)
{
    if (equalsNoCase(text, "normal")) {
        to = {};
        return true;
    }
    return applyLength(to, text);
}

/// A reference to an element of the file, or "none".
bool applyReference(std::string_view& to, std::string_view text)
{
    const std::string_view id = parseUrl(text);
    if (id.empty() && text != "none") {
        return false;
    }
    to = id;
    return true;
}

/// A colour by itself, as the fallback of a reference too.
bool applySolid(PaintSpec::Kind& kind, Color& color, std::string_view text)
{
    if (equalsNoCase(text, "none")) {
        kind = PaintSpec::Kind::None;
        return true;
    }
    if (equalsNoCase(text, "currentcolor")) {
        kind = PaintSpec::Kind::CurrentColor;
        return true;
    }
    text = trim(text.substr(0, text.find("icc-color")));
    const auto parsed = parseColor(text);
    if (!parsed) {
        return false;
    }
    kind = PaintSpec::Kind::Color;
    color = *parsed;
    return true;
}

bool applyPaint(PaintSpec& to, std::string_view text)
{
    PaintSpec paint;
    if (text.starts_with("url(")) {
        const std::size_t close = text.find(')');
        if (close == text.npos) {
            return false;
        }
        paint.kind = PaintSpec::Kind::Reference;
        paint.reference = parseUrl(text.substr(0, close + 1));
        const std::string_view fallback = trim(text.substr(close + 1));
        if (!fallback.empty() && !applySolid(paint.fallback, paint.color, fallback)) {
            return false;
        }
    } else if (text == "context-fill") {
        paint.kind = PaintSpec::Kind::ContextFill;
    } else if (text == "context-stroke") {
        paint.kind = PaintSpec::Kind::ContextStroke;
    } else if (!applySolid(paint.kind, paint.color, text)) {
        return false;
    }
    to = paint;
    return true;
}

constexpr Keyword<FillRule> FillRules[] = {{"nonzero", FillRule::NonZero}, {"evenodd", FillRule::EvenOdd}};
constexpr Keyword<LineCap> Caps[] = {{"butt", LineCap::Butt}, {"round", LineCap::Round}, {"square", LineCap::Square}};
constexpr Keyword<LineJoin> Joins[] = {{"miter", LineJoin::Miter},
                                       {"miter-clip", LineJoin::Miter},
                                       {"arcs", LineJoin::Miter},
                                       {"round", LineJoin::Round},
                                       {"bevel", LineJoin::Bevel}};
constexpr Keyword<bool> Visibilities[] = {{"visible", true}, {"hidden", false}, {"collapse", false}};
constexpr Keyword<bool> ImageRenderings[] = {{"auto", true},       {"optimizequality", true},
                                             {"smooth", true},     {"optimizespeed", false},
                                             {"pixelated", false}, {"crisp-edges", false}};
constexpr Keyword<bool> FontStyles[] = {{"normal", false}, {"italic", true}, {"oblique", true}};
constexpr Keyword<TextAnchor> Anchors[] = {
    {"start", TextAnchor::Start}, {"middle", TextAnchor::Middle}, {"end", TextAnchor::End}};
constexpr Keyword<Baseline> Baselines[] = {
    {"auto", Baseline::Alphabetic},          {"baseline", Baseline::Alphabetic},
    {"alphabetic", Baseline::Alphabetic},    {"middle", Baseline::Middle},
    {"central", Baseline::Central},          {"hanging", Baseline::Hanging},
    {"text-before-edge", Baseline::TextTop}, {"text-after-edge", Baseline::TextBottom},
    {"before-edge", Baseline::TextTop},      {"after-edge", Baseline::TextBottom},
    {"text-top", Baseline::TextTop},         {"text-bottom", Baseline::TextBottom},
    {"ideographic", Baseline::TextBottom},   {"mathematical", Baseline::Middle},
};
constexpr Keyword<bool> Spaces[] = {{"default", false}, {"preserve", true}};
constexpr Keyword<bool> WhiteSpaces[] = {{"normal", false}, {"nowrap", false},  {"pre-line", false},
                                         {"pre", true},     {"pre-wrap", true}, {"break-spaces", true}};
constexpr Keyword<bool> WritingModes[] = {{"lr", false},         {"lr-tb", false},      {"rl", false},
                                          {"rl-tb", false},      {"tb", true},          {"tb-rl", true},
                                          {"vertical-rl", true}, {"vertical-lr", true}, {"horizontal-tb", false}};
constexpr Keyword<bool> Directions[] = {{"ltr", false}, {"rtl", true}};
constexpr Keyword<bool> Overflows[] = {
    {"visible", true}, {"auto", true}, {"hidden", false}, {"scroll", false}, {"clip", false}};
constexpr Keyword<bool> VectorEffects[] = {{"none", false}, {"non-scaling-stroke", true}};
constexpr Keyword<bool> MaskTypes[] = {{"luminance", false}, {"alpha", true}};
constexpr Keyword<double> FontSizes[] = {{"xx-small", 9.6}, {"x-small", 12}, {"small", 14.2}, {"medium", 16},
                                         {"large", 19.2},   {"x-large", 24}, {"xx-large", 32}};

bool applyFontSize(Style& style, std::string_view text, const StyleBase& base)
{
    const double parent = base.parent.fontSize;
    if (equalsNoCase(text, "larger")) {
        style.fontSize = parent * 1.2;
        return true;
    }
    if (equalsNoCase(text, "smaller")) {
        style.fontSize = parent / 1.2;
        return true;
    }
    if (applyKeyword(style.fontSize, text, FontSizes)) {
        return true;
    }
    auto length = parseLength(text);
    if (!length || length->value < 0) {
        return false;
    }
    length->neverNegative = true;
    style.fontSize = resolve(*length, parent, {{}, parent, base.rootFontSize, base.dpi});
    return true;
}

bool applyFontWeight(Style& style, std::string_view text, const StyleBase& base)
{
    const int parent = base.parent.fontWeight;
    if (equalsNoCase(text, "normal")) {
        style.fontWeight = 400;
    } else if (equalsNoCase(text, "bold")) {
        style.fontWeight = 700;
    } else if (equalsNoCase(text, "bolder")) {
        style.fontWeight = parent < 350 ? 400 : parent < 550 ? 700 : 900;
    } else if (equalsNoCase(text, "lighter")) {
        style.fontWeight = parent < 550 ? 100 : parent < 750 ? 400 : 700;
    } else {
        const auto value = parseNumber(text);
        if (!value || *value < 1 || *value > 1000) {
            return false;
        }
        style.fontWeight = std::clamp(static_cast<int>(*value), 100, 900);
    }
    return true;
}

/// The shorthand: style, variant and weight in any order, then the size, then the families.
bool applyFont(Style& to, std::string_view text, const StyleBase& base)
{
    Style style = to;
    style.italic = false;
    style.fontWeight = 400;
    while (!text.empty()) {
        const std::size_t end = findOutside(text, " \t\r\n\f");
        const std::string_view word = text.substr(0, end);
        text = trim(text.substr(end));
        const std::size_t slash = findOutside(word, "/");
        if (applyFontSize(style, word.substr(0, slash), base) && !parseNumber(word)) {
            if (text.starts_with('/')) {
                text = trim(text.substr(std::min(text.find_first_of(" \t\r\n", 2), text.size())));
            }
            style.fontFamily = text;
            if (!text.empty()) {
                to = style;
            }
            return !text.empty();
        }
        if (!applyKeyword(style.italic, word, FontStyles)) {
            applyFontWeight(style, word, base);
        }
    }
    return false;
}

bool applyPaintOrder(Style& style, std::string_view text)
{
    constexpr Keyword<PaintStep> Steps[] = {
        {"fill", PaintStep::Fill}, {"stroke", PaintStep::Stroke}, {"markers", PaintStep::Markers}};
    auto order = Style().paintOrder;
    if (!equalsNoCase(text, "normal")) {
        Scanner scanner(text);
        for (std::size_t at = 0; !scanner.atEnd(); ++at) {
            PaintStep step{};
            if (at == order.size() || !applyKeyword(step, scanner.word(), Steps)) {
                return false;
            }
            // What is named moves forward; the rest keeps its order.
            const auto from = std::find(order.begin() + static_cast<std::ptrdiff_t>(at), order.end(), step);
            if (from == order.end()) {
                return false;
            }
            std::rotate(order.begin() + static_cast<std::ptrdiff_t>(at), from, from + 1);
            scanner.skipSpace();
        }
    }
    style.paintOrder = order;
    return true;
}

/// Lines of the elements around go on through what is inside.
bool applyDecoration(Style& style, std::string_view text, const Style& parent)
{
    const auto has = [text](std::string_view line) { return text.find(line) != text.npos; };
    style.underline = parent.underline || has("underline");
    style.overline = parent.overline || has("overline");
    style.lineThrough = parent.lineThrough || has("line-through");
    return true;
}

bool applyStrokeWidth(Style& style, std::string_view text)
{
    const auto width = parseLength(text);
    if (!width || width->value < 0) {
        return false;
    }
    style.strokeWidth = *width;
    style.strokeWidth.neverNegative = true;
    return true;
}

bool applyDashArray(Style& style, std::string_view text)
{
    if (equalsNoCase(text, "none")) {
        style.dashArray = {};
        return true;
    }
    // The text is read for every stroke; no person writes a pattern this long.
    constexpr std::size_t Longest = 16384;
    const auto dashes = text.size() <= Longest ? parseLengthList(text) : std::nullopt;
    if (!dashes || std::any_of(dashes->begin(), dashes->end(), [](const Length& dash) { return dash.value < 0; })) {
        return false;
    }
    style.dashArray = text;
    return true;
}

bool applyMiterLimit(Style& style, std::string_view text)
{
    const auto limit = parseNumber(text);
    if (!limit || *limit < 1) {
        return false;
    }
    style.miterLimit = *limit;
    return true;
}

bool applyColor(Style& style, std::string_view text)
{
    const auto color = parseColor(text);
    if (color) {
        style.color = *color;
    }
    return color || equalsNoCase(text, "currentcolor");
}

bool applyStopColor(OwnStyle& own, std::string_view text)
{
    const bool current = equalsNoCase(text, "currentcolor");
    const auto color = parseColor(text.substr(0, text.find("icc-color")));
    if (!color && !current) {
        return false;
    }
    own.stopCurrent = current;
    own.stopColor = color.value_or(own.stopColor);
    return true;
}

using Base = const StyleBase&;
using Text = std::string_view;

template <auto... Members>
void copyMembers(Style& to, const Style& from)
{
    ((to.*Members = from.*Members), ...);
}

template <auto... Members>
void copyOwn(Style& to, const Style& from)
{
    ((to.own.*Members = from.own.*Members), ...);
}

bool keepText(Style&, Text, Base)
{
    return true;
}
void keepNothing(Style&, const Style&) {}

constexpr Property PropertyTable[] = {
    {"x", true, keepText, keepNothing},
    {"y", true, keepText, keepNothing},
    {"width", true, keepText, keepNothing},
    {"height", true, keepText, keepNothing},
    {"cx", true, keepText, keepNothing},
    {"cy", true, keepText, keepNothing},
    {"r", true, keepText, keepNothing},
    {"rx", true, keepText, keepNothing},
    {"ry", true, keepText, keepNothing},
    // Shorthands come before what they set.
    {"font", false, applyFont,
     copyMembers<&Style::fontFamily, &Style::fontSize, &Style::fontWeight, &Style::italic>},
    {"marker", false,
     [](Style& s, Text t, Base) {
         if (!applyReference(s.markerStart, t)) {
             return false;
}
         s.markerMid = s.markerEnd = s.markerStart;
         return true;
     },
     copyMembers<&Style::markerStart, &Style::markerMid, &Style::markerEnd>},
    {"color", true, [](Style& s, Text t, Base) { return applyColor(s, t); }, copyMembers<&Style::color>},
    {"fill", true, [](Style& s, Text t, Base) { return applyPaint(s.fill, t); }, copyMembers<&Style::fill>},
    {"fill-opacity", true, [](Style& s, Text t, Base) { return applyFraction(s.fillOpacity, t); },
     copyMembers<&Style::fillOpacity>},
    {"fill-rule", true, [](Style& s, Text t, Base) { return applyKeyword(s.fillRule, t, FillRules); },
     copyMembers<&Style::fillRule>},
    {"clip-rule", true, [](Style& s, Text t, Base) { return applyKeyword(s.clipRule, t, FillRules); },
     copyMembers<&Style::clipRule>},
    {"stroke", true, [](Style& s, Text t, Base) { return applyPaint(s.stroke, t); }, copyMembers<&Style::stroke>},
    {"stroke-opacity", true, [](Style& s, Text t, Base) { return applyFraction(s.strokeOpacity, t); },
     copyMembers<&Style::strokeOpacity>},
    {"stroke-width", true, [](Style& s, Text t, Base) { return applyStrokeWidth(s, t); },
     copyMembers<&Style::strokeWidth>},
    {"stroke-linecap", true, [](Style& s, Text t, Base) { return applyKeyword(s.cap, t, Caps); },
     copyMembers<&Style::cap>},
    {"stroke-linejoin", true, [](Style& s, Text t, Base) { return applyKeyword(s.join, t, Joins); },
     copyMembers<&Style::join>},
    {"stroke-miterlimit", true, [](Style& s, Text t, Base) { return applyMiterLimit(s, t); },
     copyMembers<&Style::miterLimit>},
    {"stroke-dasharray", true,
     [](Style& s, Text t, Base) { return applyDashArray(s, t); },
     copyMembers<&Style::dashArray>},
    {"stroke-dashoffset", true, [](Style& s, Text t, Base) { return applyLength(s.dashOffset, t); },
     copyMembers<&Style::dashOffset>},
    {"paint-order", true, [](Style& s, Text t, Base) { return applyPaintOrder(s, t); },
     copyMembers<&Style::paintOrder>},
    {"marker-start", true, [](Style& s, Text t, Base) { return applyReference(s.markerStart, t); },
     copyMembers<&Style::markerStart>},
    {"marker-mid", true, [](Style& s, Text t, Base) { return applyReference(s.markerMid, t); },
     copyMembers<&Style::markerMid>},
    {"marker-end", true, [](Style& s, Text t, Base) { return applyReference(s.markerEnd, t); },
     copyMembers<&Style::markerEnd>},
    {"visibility", true, [](Style& s, Text t, Base) { return applyKeyword(s.visible, t, Visibilities); },
     copyMembers<&Style::visible>},
    {"image-rendering", true, [](Style& s, Text t, Base) { return applyKeyword(s.smoothImages, t, ImageRenderings); },
     copyMembers<&Style::smoothImages>},
    {"font-family", true,
     [](Style& s, Text t, Base) {
         s.fontFamily = t;
         return true;
     },
     copyMembers<&Style::fontFamily>},
    {"font-size", true, applyFontSize, copyMembers<&Style::fontSize>},
    {"font-weight", true, applyFontWeight, copyMembers<&Style::fontWeight>},
    {"font-style", true,
     [](Style& s, Text t, Base) { return applyKeyword(s.italic, t.substr(0, t.find(' ')), FontStyles); },
     copyMembers<&Style::italic>},
    {"text-anchor", true, [](Style& s, Text t, Base) { return applyKeyword(s.textAnchor, t, Anchors); },
     copyMembers<&Style::textAnchor>},
    {"letter-spacing", true, [](Style& s, Text t, Base) { return applySpacing(s.letterSpacing, t); },
     copyMembers<&Style::letterSpacing>},
    {"word-spacing", true, [](Style& s, Text t, Base) { return applySpacing(s.wordSpacing, t); },
     copyMembers<&Style::wordSpacing>},
    {"dominant-baseline", true, [](Style& s, Text t, Base) { return applyKeyword(s.baseline, t, Baselines); },
     copyMembers<&Style::baseline>},
    {"alignment-baseline", true, [](Style& s, Text t, Base) { return applyKeyword(s.baseline, t, Baselines); },
     copyMembers<&Style::baseline>},
    {"xml:space", true, [](Style& s, Text t, Base) { return applyKeyword(s.preserveSpace, t, Spaces); },
     copyMembers<&Style::preserveSpace>},
    {"white-space", true, [](Style& s, Text t, Base) { return applyKeyword(s.preserveSpace, t, WhiteSpaces); },
     copyMembers<&Style::preserveSpace>},
    {"writing-mode", true, [](Style& s, Text t, Base) { return applyKeyword(s.vertical, t, WritingModes); },
     copyMembers<&Style::vertical>},
    {"direction", true, [](Style& s, Text t, Base) { return applyKeyword(s.rightToLeft, t, Directions); },
     copyMembers<&Style::rightToLeft>},
    {"text-decoration", true, [](Style& s, Text t, Base b) { return applyDecoration(s, t, b.parent); },
     copyMembers<&Style::underline, &Style::overline, &Style::lineThrough>},
    {"text-decoration-line", true, [](Style& s, Text t, Base b) { return applyDecoration(s, t, b.parent); },
     copyMembers<&Style::underline, &Style::overline, &Style::lineThrough>},
    {"display", true,
     [](Style& s, Text t, Base) {
         s.own.display = !equalsNoCase(t, "none");
         return true;
     },
     copyOwn<&OwnStyle::display>},
    {"opacity", true, [](Style& s, Text t, Base) { return applyFraction(s.own.opacity, t); },
     copyOwn<&OwnStyle::opacity>},
    {"clip-path", true, [](Style& s, Text t, Base) { return applyReference(s.own.clipPath, t); },
     copyOwn<&OwnStyle::clipPath>},
    {"mask", true, [](Style& s, Text t, Base) { return applyReference(s.own.mask, t); }, copyOwn<&OwnStyle::mask>},
    {"filter", true,
     [](Style& s, Text t, Base) {
         s.own.filter = !equalsNoCase(t, "none");
         s.own.filterId = parseUrl(t);
         return true;
     },
     copyOwn<&OwnStyle::filter, &OwnStyle::filterId>},
    {"mix-blend-mode", false,
     [](Style& s, Text t, Base) {
         s.own.blend = !equalsNoCase(t, "normal");
         return true;
     },
     copyOwn<&OwnStyle::blend>},
    {"overflow", true,
     [](Style& s, Text t, Base) {
         const bool valid = applyKeyword(s.own.overflowShown, t, Overflows);
         s.own.overflowSet |= valid;
         return valid;
     },
     copyOwn<&OwnStyle::overflowShown, &OwnStyle::overflowSet>},
    {"stop-color", true, [](Style& s, Text t, Base) { return applyStopColor(s.own, t); },
     copyOwn<&OwnStyle::stopColor, &OwnStyle::stopCurrent>},
    {"stop-opacity", true, [](Style& s, Text t, Base) { return applyFraction(s.own.stopOpacity, t); },
     copyOwn<&OwnStyle::stopOpacity>},
    {"vector-effect", true, [](Style& s, Text t, Base) { return applyKeyword(s.own.nonScalingStroke, t, VectorEffects); },
     copyOwn<&OwnStyle::nonScalingStroke>},
    {"baseline-shift", true,
     [](Style& s, Text t, Base) {
         s.own.baselineShift = t;
         return true;
     },
     copyOwn<&OwnStyle::baselineShift>},
    {"transform", true,
     [](Style& s, Text t, Base) {
         s.own.transform = t;
         return true;
     },
     copyOwn<&OwnStyle::transform>},
    {"mask-type", true, [](Style& s, Text t, Base) { return applyKeyword(s.own.alphaMask, t, MaskTypes); },
     copyOwn<&OwnStyle::alphaMask>},
};
static_assert(std::size(PropertyTable) == PropertyCount);

} // namespace

const Property& property(std::size_t index)
{
    return PropertyTable[index];
}

std::optional<std::size_t> propertyIndex(std::string_view name)
{
    static const auto Index = [] {
        std::unordered_map<std::string_view, std::size_t> index;
        for (std::size_t i = 0; i < PropertyCount; ++i) {
            index.emplace(PropertyTable[i].name, i);
        }
        return index;
    }();
    auto found = Index.find(name);
    if (found == Index.end() && std::any_of(name.begin(), name.end(), [](char c) { return c != toLower(c); })) {
        std::string lower(name);
        std::transform(lower.begin(), lower.end(), lower.begin(), toLower);
        found = Index.find(lower);
    }
    if (found == Index.end()) {
        return {};
    }
    return found->second;
}

} // namespace qsdps::svg
