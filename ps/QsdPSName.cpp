#include "ps/QsdPSName_p.h"

#include "ps/QsdPSWriter_p.h"

#include <algorithm>

namespace {

/// The longest text that stands on a line with others.
constexpr std::size_t Limit = 200;

bool isRegular(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), QsdPSIsRegular);
}

void appendQuoted(std::string& quoted, char c)
{
    const auto byte = static_cast<unsigned char>(c);
    if (c == '(' || c == ')' || c == '\\') {
        quoted += '\\';
        quoted += c;
    } else if (byte >= 0x20 && byte < 0x7F) {
        quoted += c;
    } else if (byte > 0x7F) {
        quoted += '\\';
        quoted += static_cast<char>('0' + (byte >> 6));
        quoted += static_cast<char>('0' + ((byte >> 3) & 7));
        quoted += static_cast<char>('0' + (byte & 7));
    } else {
        quoted += ' ';
    }
}

/// Writes a name of any length and any characters: a string that goes on from line to line.
void writeMadeName(QsdPSWriter& out, std::string_view name)
{
    out << "(";
    for (const char c : name) {
        if (out.column() >= Limit) {
            out << "\\" << EOL;
        }
        std::string quoted;
        if (c == '%' && out.column() == 0) {
            quoted = "\\045"; // no comment
        } else {
            appendQuoted(quoted, c);
        }
        out << quoted;
    }
    out << ")cvn";
}

/// A text in parentheses, printable and short enough for a line: what is neither is cut off or becomes a blank.
std::string quoted(std::string_view text)
{
    std::string literal = "(";
    for (const char c : text) {
        if (literal.size() > Limit) {
            break;
        }
        appendQuoted(literal, c);
    }
    return literal + ")";
}

} // namespace

QsdPSLiteralName::QsdPSLiteralName(std::string_view name, std::string_view suffix) : _name(name), _suffix(suffix)
{
    if (!isRegular(name) || !isRegular(suffix)) {
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
    const std::size_t size = name.size() + suffix.size();
    if (size > Limit || !isRegular(name) || !isRegular(suffix)) {
        writeMadeName(out, std::string(name).append(suffix));
        return;
    }
    if (out.column() + size > Limit) {
        out << EOL;
    }
    out << "/" << name << suffix;
}

std::string QsdPSCommentName(std::string_view name)
{
    std::string plain(name);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return !QsdPSIsRegular(c); }, '_');
    return plain;
}

std::string QsdPSShortCommentName(std::string_view name)
{
    return QsdPSCommentName(name.substr(0, Limit));
}
