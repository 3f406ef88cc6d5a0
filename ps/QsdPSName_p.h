// Names and texts that come from outside, written so that they stay what they are.
#pragma once

#include <string>
#include <string_view>

class QsdPSWriter;

/// Whether a character may stand in a name of the language.
[[nodiscard]] constexpr bool QsdPSIsRegular(char c)
{
    // A switch becomes a look at a table of bits; names are checked at every change of a font.
    switch (c) {
    case '(':
    case ')':
    case '<':
    case '>':
    case '[':
    case ']':
    case '{':
    case '}':
    case '/':
    case '%':
        return false;
    default:
        return c > ' ' && c < '\x7F';
    }
}

/// A text in parentheses, printable and short enough for a line: what is neither is cut off or becomes a blank.
[[nodiscard]] std::string QsdPSQuoted(std::string_view text);

/// The text of a literal name of one or two parts; one that the language cannot write as such is made of a string.
[[nodiscard]] std::string QsdPSLiteralName(std::string_view name, std::string_view suffix);

/// Writes a literal name.
void QsdPSWriteName(QsdPSWriter& out, std::string_view name, std::string_view suffix = "");

/// A font's name for managers of documents, who end it at a blank or a delimiter.
[[nodiscard]] std::string QsdPSCommentName(std::string_view name);
