// calc() in the values of properties.
#pragma once

#include "values/length.h"
#include "values/scanner.h"

#include <optional>
#include <string>
#include <string_view>

namespace qsdps {

/// What a calc() comes to: a number, an angle, or a sum of lengths and percentages.
struct CalcResult {
    enum class Kind : unsigned char { Number, Angle, Length };
    Kind kind = Kind::Number;
    double value = 0;       ///< of a number, or degrees
    LengthSum sum = {};     ///< of a length
    Unit unit = Unit::User; ///< of a length: that of its first term

    /// As a length; a number is one in user units. Nothing for an angle.
    [[nodiscard]] std::optional<qsdps::Length> asLength() const;
};

/// Reads "calc(...)" where it is next, with + - * / and parentheses. Nothing, and nothing consumed, where there is none
/// or it has a fault: kinds that do not go together, a division by zero, nesting deeper than anybody writes.
[[nodiscard]] std::optional<CalcResult> scanCalc(Scanner& scanner);
/// The value with each calc() replaced by what it comes to, where that is a number with one unit; sums of several units
/// stay. `clamp` turns a negative result into 0. Nothing where there is a fault.
[[nodiscard]] std::optional<std::string> withoutCalc(std::string_view text, bool clamp);

} // namespace qsdps
