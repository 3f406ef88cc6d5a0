#include "values/css_text.h"

#include "values/scanner.h"
#include "values/utf8.h"

#include <algorithm>

namespace qsdps {
namespace {

bool isQuote(char c)
{
    return c == '"' || c == '\'';
}

/// The size of the quoted part that `text` begins with; it ends with its line where nothing closes it.
std::size_t quotedSize(std::string_view text)
{
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == text.front() || text[i] == '\n') {
            return i + 1;
        }
    }
    return text.size();
}

} // namespace

bool isNameChar(char c)
{
    return isLetter(c) || isDigit(c) || c == '-' || c == '_' || (c & 0x80) != 0;
}

std::size_t findOutside(std::string_view text, std::string_view stops)
{
    std::size_t depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\\') {
            ++i;
        } else if (isQuote(c)) {
            i += quotedSize(text.substr(i)) - 1;
        } else if (depth == 0 && stops.find(c) != stops.npos) {
            return i;
        } else if (c == '(' || c == '[' || c == '{') {
            ++depth;
        } else if ((c == ')' || c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return text.size();
}

std::size_t bracketSize(std::string_view text)
{
    const std::string_view close = text.front() == '(' ? ")" : text.front() == '[' ? "]" : "}";
    const std::size_t size = 1 + findOutside(text.substr(1), close);
    return size < text.size() ? size + 1 : size;
}

std::size_t findFunction(std::string_view text, std::string_view name)
{
    for (std::size_t i = 0; i + name.size() <= text.size(); ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (isQuote(text[i])) {
            i += quotedSize(text.substr(i)) - 1;
        } else if (toLower(text[i]) == name.front() && (i == 0 || !isNameChar(text[i - 1])) &&
                   equalsNoCase(text.substr(i, name.size()), name)) {
            return i;
        }
    }
    return text.size();
}

std::string_view unquoted(std::string_view text)
{
    text = trim(text);
    if (text.size() >= 2 && isQuote(text.front()) && text.back() == text.front()) {
        text = trim(text.substr(1, text.size() - 2));
    }
    return text;
}

std::string_view takeUrl(std::string_view& text)
{
    constexpr std::string_view Url = "url";
    if (!equalsNoCase(text.substr(0, Url.size() + 1), "url(")) {
        return {};
    }
    // What is not quoted ends with the next parenthesis, whatever stands before it.
    const std::string_view inside = text.substr(Url.size() + 1);
    const bool quoted = !trim(inside).empty() && isQuote(trim(inside).front());
    const std::size_t end = quoted ? findOutside(inside, ")") : std::min(inside.find(')'), inside.size());
    text = inside.substr(std::min(end + 1, inside.size()));
    return unquoted(inside.substr(0, end));
}

std::string withoutComments(std::string_view text)
{
    text = trim(text);
    if (text.starts_with("<!--")) {
        text.remove_prefix(4);
    }
    if (text.ends_with("-->")) {
        text.remove_suffix(3);
    }
    std::string out;
    std::size_t kept = 0;
    std::size_t i = 0;
    while (i < text.size()) {
        if (isQuote(text[i])) {
            i += quotedSize(text.substr(i));
        } else if (text.substr(i).starts_with("/*")) {
            out.append(text.substr(kept, i - kept));
            const std::size_t close = text.find("*/", i + 2);
            kept = i = close == text.npos ? text.size() : close + 2;
        } else {
            ++i;
        }
    }
    return out.append(text.substr(kept));
}

std::string quotedForMessage(std::string_view text)
{
    constexpr std::size_t Longest = 60;
    std::string out = "'";
    for (const char c : trim(text)) {
        if (out.size() > Longest && !continuesCharacter(c)) {
            return out + "...'";
        }
        out.push_back((c & 0x80) == 0 && (c < ' ' || c == 0x7F) ? ' ' : c);
    }
    return out + "'";
}

} // namespace qsdps
