#include "ps/QsdPSName_p.h"

#include "ps/QsdPSWriter_p.h"

#include <algorithm>

namespace {

/// A text in parentheses, printable and short enough for a line: what is neither is cut off or becomes a blank.
std::string quoted(std::string_view text)
{
    constexpr std::size_t Limit = 200;
    std::string literal = "(";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (literal.size() > Limit) {
            break;
        }
        if (c == '(' || c == ')' || c == '\\') {
            literal += '\\';
            literal += c;
        } else if (byte >= 0x20 && byte < 0x7F) {
            literal += c;
        } else if (byte > 0x7F) {
            literal += '\\';
            literal += static_cast<char>('0' + (byte >> 6));
            literal += static_cast<char>('0' + ((byte >> 3) & 7));
            literal += static_cast<char>('0' + (byte & 7));
        } else {
            literal += ' ';
        }
    }
    return literal + ")";
}

} // namespace

QsdPSLiteralName::QsdPSLiteralName(std::string_view name, std::string_view suffix) : _name(name), _suffix(suffix)
{
    const auto regular = [](std::string_view text) { return std::all_of(text.begin(), text.end(), QsdPSIsRegular); };
    if (!regular(name) || !regular(suffix)) {
        _quoted = quoted(std::string(name).append(suffix)) + "cvn";
    }
}

void QsdPSLiteralName::write(QsdPSWriter& out) const
{
    if (_quoted.empty()) {
        out << "/" << _name << _suffix;
    } else {
        out << _quoted;
    }
}

void QsdPSWriteName(QsdPSWriter& out, std::string_view name, std::string_view suffix)
{
    QsdPSLiteralName(name, suffix).write(out);
}

std::string QsdPSCommentName(std::string_view name)
{
    std::string plain(name);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return !QsdPSIsRegular(c); }, '_');
    return plain;
}
