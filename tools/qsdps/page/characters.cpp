#include "page/characters.h"

namespace qsdps {

char32_t takeCharacter(std::string_view& text, std::string_view& bytes)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    std::size_t length = lead < 0x80                   ? 1
                         : lead >= 0xC2 && lead < 0xE0 ? 2
                         : lead >= 0xE0 && lead < 0xF0 ? 3
                         : lead >= 0xF0 && lead < 0xF5 ? 4
                                                       : 0;
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= text.size() || (byteAt(i) & 0xC0) != 0x80) {
            length = 0;
            break;
        }
        character = character << 6 | (byteAt(i) & 0x3FU);
    }
    if (length == 0) {
        character = 0xFFFD;
        length = 1;
    }
    bytes = text.substr(0, length);
    text.remove_prefix(length);
    return character;
}

bool isInvisibleCharacter(char32_t c)
{
    return c < 0x20 || c == 0x7F || (c >= 0x80 && c < 0xA0) || c == 0xAD || (c >= 0x200B && c <= 0x200F) ||
           c == 0xFEFF || (c >= 0xFE00 && c <= 0xFE0F);
}

} // namespace qsdps
