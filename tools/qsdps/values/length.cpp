#include "values/length.h"

#include "values/calc.h"
#include "values/scanner.h"

#include <cmath>
#include <numbers>

namespace qsdps {
namespace {

struct UnitName {
    std::string_view name;
    Unit unit;
};

// The first name of a unit is the one it is written with.
constexpr UnitName UnitNames[] = {
    {"px", Unit::User}, {"", Unit::User}, {"em", Unit::Em}, {"ex", Unit::Ex},     {"rem", Unit::Rem},
    {"in", Unit::In},   {"cm", Unit::Cm}, {"mm", Unit::Mm}, {"q", Unit::Q},       {"pt", Unit::Pt},
    {"pc", Unit::Pc},   {"vw", Unit::Vw}, {"vh", Unit::Vh}, {"%", Unit::Percent},
};

std::optional<Length> scanLength(Scanner& scanner)
{
    if (const auto sum = scanCalc(scanner)) {
        return sum->asLength();
    }
    const auto value = scanner.number();
    if (!value) {
        return {};
    }
    if (scanner.take('%')) {
        return Length{*value, Unit::Percent};
    }
    const auto unit = unitByName(scanner.word());
    return unit ? std::optional(Length{*value, *unit}) : std::nullopt;
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

double resolveUnit(double value, Unit unit, double whole, const LengthBase& base)
{
    switch (unit) {
    case Unit::User:
        break;
    case Unit::Percent:
        return value / 100 * whole;
    case Unit::Em:
        return value * base.fontSize;
    case Unit::Ex:
        return value * base.fontSize / 2;
    case Unit::Rem:
        return value * base.rootFontSize;
    case Unit::In:
    case Unit::Cm:
    case Unit::Mm:
    case Unit::Q:
    case Unit::Pt:
    case Unit::Pc:
        return value * base.dpi / *perInch(unit);
    case Unit::Vw:
        return value / 100 * base.viewport.width;
    case Unit::Vh:
        return value / 100 * base.viewport.height;
    }
    return value;
}

} // namespace

std::optional<Unit> unitByName(std::string_view name)
{
    for (const UnitName& known : UnitNames) {
        if (equalsNoCase(name, known.name)) {
            return known.unit;
        }
    }
    return {};
}

std::optional<double> perInch(Unit unit)
{
    switch (unit) {
    case Unit::In:
        return 1;
    case Unit::Cm:
        return 2.54;
    case Unit::Mm:
        return 25.4;
    case Unit::Q:
        return 101.6;
    case Unit::Pt:
        return 72;
    case Unit::Pc:
        return 6;
    default:
        return std::nullopt;
    }
}

std::string_view nameOf(Unit unit)
{
    for (const UnitName& known : UnitNames) {
        if (unit == known.unit) {
            return known.name;
        }
    }
    return {};
}

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
        if (!length) {
            return {};
        }
        lengths.push_back(*length);
        scanner.skipSeparator();
    }
    return lengths;
}

bool hasPercent(const Length& length)
{
    if (length.sum) {
        return (*length.sum)[static_cast<std::size_t>(Unit::Percent)] != 0;
    }
    return length.unit == Unit::Percent;
}

double resolve(const Length& length, Axis axis, const LengthBase& base)
{
    return resolve(length, percentBase(axis, base.viewport), base);
}

double resolve(const Length& length, double whole, const LengthBase& base)
{
    double value = 0;
    if (length.sum) {
        for (std::size_t i = 0; i < UnitCount; ++i) {
            value += (*length.sum)[i] == 0 ? 0 : resolveUnit((*length.sum)[i], static_cast<Unit>(i), whole, base);
        }
    } else {
        value = resolveUnit(length.value, length.unit, whole, base);
    }
    return length.neverNegative && value < 0 ? 0 : value;
}

} // namespace qsdps
