// Lengths with units and what they come to in user units.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace qsdps::svg {

enum class Unit : unsigned char { User, Percent, Em, Ex, Rem, In, Cm, Mm, Q, Pt, Pc, Vw, Vh };

struct Length {
    double value = 0;
    Unit unit = Unit::User;
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

/// One length with its unit; nothing when the text is anything else.
[[nodiscard]] std::optional<Length> parseLength(std::string_view text);
/// Lengths apart by white space and commas; nothing when there is a fault anywhere.
[[nodiscard]] std::optional<std::vector<Length>> parseLengthList(std::string_view text);
/// The length in user units.
[[nodiscard]] double resolve(const Length& length, Axis axis, const LengthBase& base);

} // namespace qsdps::svg
