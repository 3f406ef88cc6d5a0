// Numbers, lengths and sizes of paper as people write them in options.
#pragma once

#include <optional>
#include <string_view>

namespace qsdps {

/// A number in these limits; none for other text.
[[nodiscard]] std::optional<double> parseNumberWithin(std::string_view text, double least, double most);

/// A length in points of a text such as "12", "2.5cm" or "1in": mm, cm, in, pt, pc and px (1/96 inch); a bare number
/// counts in `unit` points. None when the text is no finite length.
[[nodiscard]] std::optional<double> parsePoints(std::string_view text, double unit);

/// One length for all four sides or four of them, left, top, right and bottom, separated by commas; none below 0.
struct Margins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};
[[nodiscard]] std::optional<Margins> parseMargins(std::string_view text);

struct PaperSize {
    double width = 0; ///< points
    double height = 0;
};
/// A paper by its name ("a4", "letter", case does not count) or as WIDTHxHEIGHT, lengths above 0: bare numbers are
/// points, and where one of the two has a unit, the other has the same.
[[nodiscard]] std::optional<PaperSize> parsePaper(std::string_view text);

/// Whether something can be drawn inside the margins of a paper.
[[nodiscard]] bool leavesRoom(const PaperSize& paper, const Margins& margins);

} // namespace qsdps
