// Names and texts that come from outside, written so that they stay what they are.
#pragma once

#include <array>
#include <string>
#include <string_view>

class QsdPSWriter;

/// Whether each character may stand in a name of the language. A table, as names are checked at every change of a font.
inline constexpr auto QsdPSRegularCharacters = [] {
    std::array<bool, 256> regular{};
    for (unsigned char c = '!'; c < 0x7F; ++c) {
        regular[c] = std::string_view("()<>[]{}/%").find(static_cast<char>(c)) == std::string_view::npos;
    }
    return regular;
}();

/// Whether a character may stand in a name of the language.
[[nodiscard]] constexpr bool QsdPSIsRegular(char c)
{
    return QsdPSRegularCharacters[static_cast<unsigned char>(c)];
}

/// A literal name of one or two parts; one that the language cannot write as such is made of a string. It needs no
/// memory once it is there, so the line that it belongs to becomes whole.
class QsdPSLiteralName {
public:
    /// The parts are not copied.
    QsdPSLiteralName(std::string_view name, std::string_view suffix);
    void write(QsdPSWriter& out) const;

private:
    std::string_view _name;
    std::string_view _suffix;
    std::string _quoted; ///< empty for a name that can be written as such
};

/// Writes a literal name, on lines that do not become too long.
void QsdPSWriteName(QsdPSWriter& out, std::string_view name, std::string_view suffix = "");

/// A font's name for managers of documents, who end it at a blank or a delimiter.
[[nodiscard]] std::string QsdPSCommentName(std::string_view name);

/// The same, cut off where a line with a comment would become too long.
[[nodiscard]] std::string QsdPSShortCommentName(std::string_view name);
