// Lengths with units and what they come to in user units.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace qsdps {

enum class Unit : unsigned char { User, Percent, Em, Ex, Rem, In, Cm, Mm, Q, Pt, Pc, Vw, Vh };

inline constexpr std::size_t UnitCount = 13;

/// A sum of lengths: how much there is of each unit, in the order of Unit.
using LengthSum = std::array<double, UnitCount>;

struct Length {
    double value = 0;
    Unit unit = Unit::User;
    std::shared_ptr<const LengthSum> sum = nullptr; ///< of calc() with different units; takes the place of the others
    bool neverNegative = false;                     ///< a negative result counts as 0
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

/// What a percentage is taken of: the width, the height, or the mean diagonal of the viewport.
enum class Axis : unsigned char { Horizontal, Vertical, Diagonal };

/// What relative units are relative to; lengths in user units (CSS pixels).
struct LengthBase {
    Size viewport;
    double fontSize = 16;
    double rootFontSize = 16;
    double dpi = 96; ///< user units in an inch
};

/// The unit of a name in letters of either case; nothing for others. No name is User, as "px" is.
[[nodiscard]] std::optional<Unit> unitByName(std::string_view name);
/// How many of an absolute unit make an inch; nothing for the others.
[[nodiscard]] std::optional<double> perInch(Unit unit);
/// The name of a unit, '%' for Percent.
[[nodiscard]] std::string_view nameOf(Unit unit);
/// One length with its unit, or calc(); nothing when the text is anything else.
[[nodiscard]] std::optional<Length> parseLength(std::string_view text);
/// Lengths apart by white space and commas; nothing when there is a fault anywhere.
[[nodiscard]] std::optional<std::vector<Length>> parseLengthList(std::string_view text);
/// True when the length hangs on what its percentages are taken of.
[[nodiscard]] bool hasPercent(const Length& length);
/// The length in user units.
[[nodiscard]] double resolve(const Length& length, Axis axis, const LengthBase& base);
/// The same where percentages are of `whole`.
[[nodiscard]] double resolve(const Length& length, double whole, const LengthBase& base);

} // namespace qsdps
