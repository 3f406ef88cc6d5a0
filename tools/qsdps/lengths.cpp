#include "lengths.h"

#include "lower_case.h"

#include <charconv>
#include <cmath>
#include <string>

namespace qsdps {

namespace {

struct Unit {
    std::string_view name;
    double points;
};

constexpr Unit Units[] = {{"mm", 72 / 25.4}, {"cm", 72 / 2.54}, {"in", 72}, {"pt", 1}, {"pc", 12}, {"px", 0.75}};

struct Paper {
    std::string_view name;
    PaperSize size;
};

constexpr Paper Papers[] = {
    {"a0", {2384, 3370}},    {"a1", {1684, 2384}},     {"a2", {1191, 1684}},      {"a3", {842, 1191}},
    {"a4", {595, 842}},      {"a5", {420, 595}},       {"a6", {298, 420}},        {"b3", {1001, 1417}},
    {"b4", {709, 1001}},     {"b5", {499, 709}},       {"letter", {612, 792}},    {"legal", {612, 1008}},
    {"ledger", {1224, 792}}, {"tabloid", {792, 1224}}, {"executive", {522, 756}},
};

struct NamedColor {
    std::string_view name;
    Rgb color;
};

constexpr NamedColor NamedColors[] = {
    {"black", {0, 0, 0}},    {"white", {255, 255, 255}}, {"red", {255, 0, 0}},
    {"green", {0, 128, 0}},  {"blue", {0, 0, 255}},      {"yellow", {255, 255, 0}},
    {"cyan", {0, 255, 255}}, {"magenta", {255, 0, 255}}, {"gray", {128, 128, 128}},
};

std::optional<std::uint8_t> hexComponent(std::string_view digits)
{
    unsigned value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(digits.size() == 1 ? value * 17 : value);
}

} // namespace

std::optional<double> parseLength(std::string_view text, double unit)
{
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || !std::isfinite(value)) {
        return std::nullopt;
    }
    const std::string name = lowerCase(std::string_view(rest, static_cast<std::size_t>(end - rest)));
    if (name.empty()) {
        return value * unit;
    }
    for (const Unit& known : Units) {
        if (known.name == name) {
            return value * known.points;
        }
    }
    return std::nullopt;
}

std::optional<Margins> parseMargins(std::string_view text)
{
    std::array<double, 4> sides{};
    std::size_t count = 0;
    while (count < sides.size()) {
        const std::size_t comma = text.find(',');
        const std::optional<double> side = parseLength(text.substr(0, comma), 1);
        if (!side || *side < 0) {
            return std::nullopt;
        }
        sides[count++] = *side;
        if (comma == std::string_view::npos) {
            text = {};
            break;
        }
        text.remove_prefix(comma + 1);
        if (count == sides.size()) {
            return std::nullopt;
        }
    }
    if (count == 1) {
        return Margins{sides[0], sides[0], sides[0], sides[0]};
    }
    if (count == sides.size()) {
        return Margins{sides[0], sides[1], sides[2], sides[3]};
    }
    return std::nullopt;
}

std::optional<PaperSize> parsePaper(std::string_view text)
{
    const std::string name = lowerCase(text);
    for (const Paper& paper : Papers) {
        if (paper.name == name) {
            return paper.size;
        }
    }
    // The x of "px" is no separator.
    std::size_t cross = name.find('x');
    if (cross != std::string::npos && cross > 0 && name[cross - 1] == 'p') {
        cross = name.find('x', cross + 1);
    }
    if (cross == std::string::npos) {
        return std::nullopt;
    }
    const std::optional<double> width = parseLength(std::string_view(name).substr(0, cross), 1);
    const std::optional<double> height = parseLength(std::string_view(name).substr(cross + 1), 1);
    if (!width || !height || !(*width > 0) || !(*height > 0)) {
        return std::nullopt;
    }
    return PaperSize{*width, *height};
}

std::optional<Rgb> parseColor(std::string_view text)
{
    const std::string name = lowerCase(text);
    for (const NamedColor& known : NamedColors) {
        if (known.name == name) {
            return known.color;
        }
    }
    if (name.empty() || name[0] != '#' || (name.size() != 4 && name.size() != 7)) {
        return std::nullopt;
    }
    const std::size_t digits = name.size() / 3;
    const std::string_view hex = std::string_view(name).substr(1);
    const auto red = hexComponent(hex.substr(0, digits));
    const auto green = hexComponent(hex.substr(digits, digits));
    const auto blue = hexComponent(hex.substr(2 * digits, digits));
    if (!red || !green || !blue) {
        return std::nullopt;
    }
    return Rgb{*red, *green, *blue};
}

} // namespace qsdps
