// Reading of the small languages inside attributes: blanks, commas, numbers, words. Never depends on the locale.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace qsdps {

/// XML white space: blank, tab, line feed, carriage return, form feed.
[[nodiscard]] constexpr bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}
[[nodiscard]] constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
[[nodiscard]] constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
[[nodiscard]] constexpr char toLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The text without white space at both ends.
[[nodiscard]] std::string_view trim(std::string_view text);
/// Compares ASCII letters without regard to case; `lower` must be in lower case.
[[nodiscard]] bool equalsNoCase(std::string_view text, std::string_view lower);

/// Walks through a text from left to right.
class Scanner {
public:
    explicit Scanner(std::string_view text) : _text(text) {}

    [[nodiscard]] bool atEnd() const { return _at >= _text.size(); }
    /// The next character, NUL at the end.
    [[nodiscard]] char peek() const { return atEnd() ? '\0' : _text[_at]; }
    void advance(std::size_t count = 1) { _at += count; }
    void skipSpace();
    /// Skips white space with at most one comma in it; true when there was a comma.
    bool skipSeparator();
    /// Consumes `c` where it is next.
    bool take(char c);
    /// A finite number; nothing is consumed where none stands.
    std::optional<double> number();
    /// A single 0 or 1, as arcs have them, needing no separator.
    std::optional<bool> flag();
    /// A run of letters, digits, '-' and '_'; empty where none stands.
    std::string_view word();
    /// Everything up to `end`, which is consumed too; the rest where `end` does not come.
    std::string_view upTo(char end);
    [[nodiscard]] std::string_view rest() const { return _text.substr(_at < _text.size() ? _at : _text.size()); }

private:
    std::string_view _text;
    std::size_t _at = 0;
};

/// The text as one number with white space around it, or nothing.
[[nodiscard]] std::optional<double> parseNumber(std::string_view text);
/// A number or a percentage (50% is 0.5), or nothing.
[[nodiscard]] std::optional<double> parseFraction(std::string_view text);
/// Numbers apart by white space and commas, up to the first fault.
[[nodiscard]] std::vector<double> parseNumberList(std::string_view text);

} // namespace qsdps
