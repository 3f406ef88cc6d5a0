#include "svg/length.h"

#include "svg/scanner.h"

#include <cmath>
#include <numbers>

namespace qsdps::svg {
namespace {

struct UnitName {
    std::string_view name;
    Unit unit;
};

constexpr UnitName kUnits[] = {
    {"px", Unit::User}, {"em", Unit::Em}, {"ex", Unit::Ex}, {"rem", Unit::Rem}, {"in", Unit::In}, {"cm", Unit::Cm},
    {"mm", Unit::Mm},   {"q", Unit::Q},   {"pt", Unit::Pt}, {"pc", Unit::Pc},   {"vw", Unit::Vw}, {"vh", Unit::Vh},
};

std::optional<Length> scanLength(Scanner& scanner)
{
    const auto value = scanner.number();
    if (!value)
        return {};
    if (scanner.take('%'))
        return Length{*value, Unit::Percent};
    const std::string_view unit = scanner.word();
    if (unit.empty())
        return Length{*value, Unit::User};
    for (const UnitName& known : kUnits) {
        if (equalsNoCase(unit, known.name))
            return Length{*value, known.unit};
    }
    return {};
}

double percentBase(Axis axis, const Size& viewport)
{
    switch (axis) {
    case Axis::Horizontal:
        return viewport.width;
    case Axis::Vertical:
        return viewport.height;
    case Axis::Diagonal:
        break;
    }
    return std::hypot(viewport.width, viewport.height) / std::numbers::sqrt2;
}

} // namespace

std::optional<Length> parseLength(std::string_view text)
{
    Scanner scanner(trim(text));
    const auto length = scanLength(scanner);
    return scanner.atEnd() ? length : std::nullopt;
}

std::optional<std::vector<Length>> parseLengthList(std::string_view text)
{
    std::vector<Length> lengths;
    Scanner scanner(trim(text));
    while (!scanner.atEnd()) {
        const auto length = scanLength(scanner);
        if (!length)
            return {};
        lengths.push_back(*length);
        scanner.skipSeparator();
    }
    return lengths;
}

double resolve(const Length& length, Axis axis, const LengthBase& base)
{
    switch (length.unit) {
    case Unit::User:
        break;
    case Unit::Percent:
        return length.value / 100 * percentBase(axis, base.viewport);
    case Unit::Em:
        return length.value * base.fontSize;
    case Unit::Ex:
        return length.value * base.fontSize / 2;
    case Unit::Rem:
        return length.value * base.rootFontSize;
    case Unit::In:
        return length.value * base.dpi;
    case Unit::Cm:
        return length.value * base.dpi / 2.54;
    case Unit::Mm:
        return length.value * base.dpi / 25.4;
    case Unit::Q:
        return length.value * base.dpi / 101.6;
    case Unit::Pt:
        return length.value * base.dpi / 72;
    case Unit::Pc:
        return length.value * base.dpi / 6;
    case Unit::Vw:
        return length.value / 100 * base.viewport.width;
    case Unit::Vh:
        return length.value / 100 * base.viewport.height;
    }
    return length.value;
}

} // namespace qsdps::svg
