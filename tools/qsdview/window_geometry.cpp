#include "qsdview/window_geometry.h"

#include <charconv>

namespace qsdview {

namespace {

constexpr std::uint32_t Most = 32767;

/// Takes a number away from the front of a text; none, and nothing taken, when none of that size is there.
std::optional<std::uint32_t> takeNumber(std::string_view& text)
{
    std::uint32_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || number > Most) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

std::optional<WindowGeometry::Distance> takeDistance(std::string_view& text)
{
    if (text.empty() || (text.front() != '+' && text.front() != '-')) {
        return std::nullopt;
    }
    const bool fromFarEdge = text.front() == '-';
    text.remove_prefix(1);
    const std::optional<std::uint32_t> pixels = takeNumber(text);
    if (!pixels) {
        return std::nullopt;
    }
    return WindowGeometry::Distance{static_cast<std::int32_t>(*pixels), fromFarEdge};
}

std::int32_t placed(const WindowGeometry::Distance& distance, std::uint32_t window, std::uint32_t screen)
{
    const auto room = static_cast<std::int32_t>(screen) - static_cast<std::int32_t>(window);
    return distance.fromFarEdge ? room - distance.pixels : distance.pixels;
}

} // namespace

std::optional<WindowGeometry> WindowGeometry::parse(std::string_view text)
{
    WindowGeometry geometry;
    if (text.empty()) {
        return std::nullopt;
    }
    if (text.front() != '+' && text.front() != '-') {
        const std::optional<std::uint32_t> width = takeNumber(text);
        if (!width || !text.starts_with('x')) {
            return std::nullopt;
        }
        text.remove_prefix(1);
        const std::optional<std::uint32_t> height = takeNumber(text);
        if (!height || *width == 0 || *height == 0) {
            return std::nullopt;
        }
        geometry.size = {*width, *height};
    }
    if (!text.empty()) {
        const std::optional<Distance> x = takeDistance(text);
        const std::optional<Distance> y = takeDistance(text);
        if (!x || !y || !text.empty()) {
            return std::nullopt;
        }
        geometry.place = {*x, *y};
    }
    return geometry;
}

std::optional<QsdPoint> WindowGeometry::corner(const Size& window, const QsdRect& screen) const
{
    if (!place) {
        return std::nullopt;
    }
    return QsdPoint{placed(place->x, window.width, screen.width), placed(place->y, window.height, screen.height)};
}

} // namespace qsdview
