#include "svg/xml/tags.h"

#include <unordered_map>

namespace qsdps::svg {

Tag tagByName(std::string_view localName)
{
    static const std::unordered_map<std::string_view, Tag> Tags = {
        {"a", Tag::A},
        {"circle", Tag::Circle},
        {"clipPath", Tag::ClipPath},
        {"defs", Tag::Defs},
        {"ellipse", Tag::Ellipse},
        {"filter", Tag::Filter},
        {"flowRoot", Tag::FlowRoot},
        {"foreignObject", Tag::ForeignObject},
        {"g", Tag::G},
        {"image", Tag::Image},
        {"line", Tag::Line},
        {"linearGradient", Tag::LinearGradient},
        {"marker", Tag::Marker},
        {"mask", Tag::Mask},
        {"path", Tag::Path},
        {"pattern", Tag::Pattern},
        {"polygon", Tag::Polygon},
        {"polyline", Tag::Polyline},
        {"radialGradient", Tag::RadialGradient},
        {"rect", Tag::Rect},
        {"stop", Tag::Stop},
        {"style", Tag::Style},
        {"svg", Tag::Svg},
        {"switch", Tag::Switch},
        {"symbol", Tag::Symbol},
        {"text", Tag::Text},
        {"textPath", Tag::TextPath},
        {"title", Tag::Title},
        {"tref", Tag::Tref},
        {"tspan", Tag::Tspan},
        {"use", Tag::Use},
    };
    const auto found = Tags.find(localName);
    return found == Tags.end() ? Tag::Unknown : found->second;
}

bool isShape(Tag tag)
{
    switch (tag) {
    case Tag::Circle:
    case Tag::Ellipse:
    case Tag::Line:
    case Tag::Path:
    case Tag::Polygon:
    case Tag::Polyline:
    case Tag::Rect:
        return true;
    default:
        return false;
    }
}

bool isDrawn(Tag tag)
{
    switch (tag) {
    case Tag::A:
    case Tag::FlowRoot:
    case Tag::ForeignObject:
    case Tag::G:
    case Tag::Image:
    case Tag::Svg:
    case Tag::Switch:
    case Tag::Text:
    case Tag::Use:
        return true;
    default:
        return isShape(tag);
    }
}

} // namespace qsdps::svg
