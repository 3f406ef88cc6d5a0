#include "values/lengths.h"

#include "values/lower_case.h"

#include <charconv>
#include <cmath>
#include <string>
#include <utility>

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

/// A number at the beginning of a text, and what stands behind it; none where there is no finite one.
std::optional<std::pair<double, std::string_view>> takeNumber(std::string_view text)
{
    // The library takes no plus sign.
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return std::pair(value, std::string_view(rest, static_cast<std::size_t>(end - rest)));
}

std::optional<double> pointsOf(std::string_view unit)
{
    const std::string name = lowerCase(unit);
    for (const Unit& known : Units) {
        if (known.name == name) {
            return known.points;
        }
    }
    return std::nullopt;
}

/// Where the x between two lengths stands; that of "px" is none.
std::size_t findCross(std::string_view text)
{
    std::size_t cross = text.find('x');
    while (cross != std::string_view::npos && cross > 0 && text[cross - 1] == 'p') {
        cross = text.find('x', cross + 1);
    }
    return cross;
}

} // namespace

std::optional<double> parseNumber(std::string_view text, double least, double most)
{
    const auto number = takeNumber(text);
    const bool isOne = number && number->second.empty() && number->first >= least && number->first <= most;
    return isOne ? std::optional(number->first) : std::nullopt;
}

std::optional<double> parseLength(std::string_view text, double unit)
{
    const auto number = takeNumber(text);
    const std::optional<double> points = !number                  ? std::nullopt
                                         : number->second.empty() ? std::optional(unit)
                                                                  : pointsOf(number->second);
    if (!points || !std::isfinite(number->first * *points)) {
        return std::nullopt;
    }
    return number->first * *points;
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
    const std::size_t cross = findCross(name);
    if (cross == std::string::npos) {
        return std::nullopt;
    }
    const std::string_view across = std::string_view(name).substr(0, cross);
    const std::string_view down = std::string_view(name).substr(cross + 1);
    // A unit at one of them is meant for both.
    const auto unitOf = [](std::string_view length) {
        const auto number = takeNumber(length);
        return number ? pointsOf(number->second) : std::nullopt;
    };
    const std::optional<double> width = parseLength(across, unitOf(down).value_or(1));
    const std::optional<double> height = parseLength(down, unitOf(across).value_or(1));
    if (!width || !height || !(*width > 0) || !(*height > 0)) {
        return std::nullopt;
    }
    return PaperSize{*width, *height};
}

bool leavesRoom(const PaperSize& paper, const Margins& margins)
{
    return margins.left + margins.right < paper.width && margins.top + margins.bottom < paper.height;
}

} // namespace qsdps
