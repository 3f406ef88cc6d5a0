// Characters of UTF-8 texts, one by one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qsdps {

/// Takes the first character off `text`, which is not empty, and gives its bytes; bytes that are no UTF-8 count one by
/// one as the replacement character.
[[nodiscard]] char32_t takeCharacter(std::string_view& text, std::string_view& bytes);
/// Appends one character; U+FFFD in place of what is no character.
void appendUtf8(std::string& out, char32_t c);
/// How many characters a text has, by the bytes that begin one.
[[nodiscard]] std::size_t countCharacters(std::string_view text);
/// Whether a byte is not the first of its character.
[[nodiscard]] constexpr bool continuesCharacter(char byte)
{
    return (byte & 0xC0) == 0x80;
}

} // namespace qsdps
