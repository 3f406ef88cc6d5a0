// The ground rules of CSS text: names, quotes, brackets and comments.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace qsdps {

/// Gets a message for each thing of a style sheet or value that is left out.
using SheetFault = std::function<void(const std::string& what)>;

/// True for letters, digits, '-', '_' and all beyond ASCII.
[[nodiscard]] bool isNameChar(char c);
/// Where one of `stops` comes first outside of quotes and brackets; the size where none does.
[[nodiscard]] std::size_t findOutside(std::string_view text, std::string_view stops);
/// The size of the bracketed part that `text` begins with, brackets included; all of it where nothing closes it.
[[nodiscard]] std::size_t bracketSize(std::string_view text);
/// Where a call of a function, `name` with its '(' in lower case, comes first outside of quotes; the size where none
/// does.
[[nodiscard]] std::size_t findFunction(std::string_view text, std::string_view name);
/// The text trimmed and without the quotes around it.
[[nodiscard]] std::string_view unquoted(std::string_view text);
/// The target of "url(...)" at the front of `text`, which loses it; empty, with `text` unchanged, where there is none.
[[nodiscard]] std::string_view takeUrl(std::string_view& text);
/// The text without its comments and without the marks that hide it from old browsers.
[[nodiscard]] std::string withoutComments(std::string_view text);
/// The text in single quotes for a message: one line, shortened where it is long.
[[nodiscard]] std::string quotedForMessage(std::string_view text);

} // namespace qsdps
