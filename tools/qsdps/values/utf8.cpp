#include "values/utf8.h"

#include "toolkit/base/QsdUtf8.h"

#include <algorithm>

namespace qsdps {

char32_t takeCharacter(std::string_view& text, std::string_view& bytes)
{
    std::size_t length = 0;
    const char32_t character = QsdNextUtf8(text, length);
    bytes = text.substr(0, length);
    text.remove_prefix(length);
    return character;
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
        c = QsdReplacementCharacter;
    }
    const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

std::size_t countCharacters(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !continuesCharacter(c); }));
}

} // namespace qsdps
