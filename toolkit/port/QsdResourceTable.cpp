#include "toolkit/port/QsdResourceTable_p.h"

#include <istream>
#include <utility>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isOctal(char c)
{
    return c >= '0' && c <= '7';
}

std::string unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result.push_back(text[i]);
            continue;
        }
        ++i;
        if (i + 2 < text.size() && isOctal(text[i]) && isOctal(text[i + 1]) && isOctal(text[i + 2])) {
            result.push_back(static_cast<char>((text[i] - '0') * 64 + (text[i + 1] - '0') * 8 + (text[i + 2] - '0')));
            i += 2;
        } else if (text[i] == 'n') {
            result.push_back('\n');
        } else if (text[i] == 't') {
            result.push_back('\t');
        } else {
            result.push_back(text[i]);
        }
    }
    return result;
}

/// An odd number of backslashes at the end joins the next line; two of them are one character.
bool isContinued(const std::string& line)
{
    std::size_t backslashes = 0;
    while (backslashes < line.size() && line[line.size() - 1 - backslashes] == '\\') {
        ++backslashes;
    }
    return backslashes % 2 == 1;
}

} // namespace

const char* QsdResourceTable::find(std::string_view name) const
{
    const auto found = _entries.find(name);
    return found == _entries.end() ? nullptr : found->second.c_str();
}

void QsdResourceTable::set(std::string_view name, std::string value)
{
    _entries.insert_or_assign(std::string(name), std::move(value));
}

void QsdResourceTable::remove(std::string_view name)
{
    if (const auto found = _entries.find(name); found != _entries.end()) {
        _entries.erase(found);
    }
}

void QsdResourceTable::read(std::istream& stream)
{
    std::string line;
    while (std::getline(stream, line)) {
        std::string next;
        while (isContinued(line)) {
            line.pop_back();
            if (!std::getline(stream, next)) {
                break;
            }
            line += next;
        }
        const std::string_view entry = trimmed(line);
        const std::size_t colon = entry.find(':');
        if (entry.empty() || entry.front() == '!' || entry.front() == '#' || colon == std::string_view::npos) {
            continue;
        }
        std::string_view name = trimmed(entry.substr(0, colon));
        if (!name.empty() && (name.front() == '*' || name.front() == '.')) {
            name.remove_prefix(1);
        }
        if (!name.empty()) {
            set(name, unescaped(trimmed(entry.substr(colon + 1))));
        }
    }
}
