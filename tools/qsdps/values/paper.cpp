#include "values/paper.h"

#include "values/length.h"
#include "values/lower_case.h"
#include "values/scanner.h"

#include <array>
#include <cmath>
#include <string>

namespace qsdps {

namespace {

constexpr double PointsPerInch = 72;
constexpr double PixelsPerInch = 96;

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

/// The points in a unit that paper is measured in, by its name; none for others.
std::optional<double> pointsOf(std::string_view name)
{
    const std::optional<Unit> unit = name.empty() ? std::nullopt : unitByName(name);
    if (!unit || *unit == Unit::Q) {
        return std::nullopt;
    }
    const std::optional<double> count = *unit == Unit::User ? PixelsPerInch : perInch(*unit);
    return count ? std::optional(PointsPerInch / *count) : std::nullopt;
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

std::optional<double> parseNumberWithin(std::string_view text, double least, double most)
{
    Scanner scanner(text);
    const std::optional<double> number = scanner.number();
    const bool isOne = number && scanner.atEnd() && *number >= least && *number <= most;
    return isOne ? number : std::nullopt;
}

std::optional<double> parsePoints(std::string_view text, double unit)
{
    Scanner scanner(text);
    const std::optional<double> number = scanner.number();
    const std::optional<double> points = scanner.atEnd() ? std::optional(unit) : pointsOf(scanner.rest());
    if (!number || !points || !std::isfinite(*number * *points)) {
        return std::nullopt;
    }
    return *number * *points;
}

std::optional<Margins> parseMargins(std::string_view text)
{
    std::array<double, 4> sides{};
    std::size_t count = 0;
    while (count < sides.size()) {
        const std::size_t comma = text.find(',');
        const std::optional<double> side = parsePoints(text.substr(0, comma), 1);
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
        Scanner scanner(length);
        return scanner.number() ? pointsOf(scanner.rest()) : std::nullopt;
    };
    const std::optional<double> width = parsePoints(across, unitOf(down).value_or(1));
    const std::optional<double> height = parsePoints(down, unitOf(across).value_or(1));
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
