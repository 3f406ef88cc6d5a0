// The elements that mean something to a drawing.
#pragma once

#include <string_view>

namespace qsdps::svg {

enum class Tag : unsigned char {
    Unknown,
    A,
    Circle,
    ClipPath,
    Defs,
    Ellipse,
    Filter,
    FlowRoot,
    ForeignObject,
    G,
    Image,
    Line,
    LinearGradient,
    Marker,
    Mask,
    Path,
    Pattern,
    Polygon,
    Polyline,
    RadialGradient,
    Rect,
    Stop,
    Style,
    Svg,
    Switch,
    Symbol,
    Text,
    TextPath,
    Title,
    Tref,
    Tspan,
    Use,
};

/// The element of a local name (without prefix); Unknown for all others.
[[nodiscard]] Tag tagByName(std::string_view localName);
/// True for elements that are a single outline.
[[nodiscard]] bool isShape(Tag tag);
/// True for elements that are drawn where they stand.
[[nodiscard]] bool isDrawn(Tag tag);

} // namespace qsdps::svg
