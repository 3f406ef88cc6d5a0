#include "toolkit/base/QsdUtf8.h"

namespace {

/// How many bytes follow a first byte; none for ASCII and for those that begin no character.
std::size_t followersOf(unsigned lead)
{
    if (lead >= 0xF0 && lead < 0xF5) {
        return 3;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 2;
    }
    return lead >= 0xC2 && lead < 0xE0 ? 1 : 0;
}

bool isCharacter(char32_t c, std::size_t followers)
{
    const bool isTooLong = (followers == 2 && c < 0x800) || (followers == 3 && c < 0x10000);
    return !isTooLong && c <= 0x10FFFF && (c < 0xD800 || c >= 0xE000);
}

} // namespace

char32_t QsdNextUtf8(std::string_view text, std::size_t& at)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(text[i])); };
    const unsigned lead = byteAt(at++);
    if (lead < 0x80) {
        return lead;
    }
    const std::size_t followers = followersOf(lead);
    if (followers == 0 || followers > text.size() - at) {
        return QsdReplacementCharacter;
    }
    char32_t character = lead & (0x3FU >> followers);
    for (std::size_t i = at; i < at + followers; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) {
            return QsdReplacementCharacter;
        }
        character = character << 6 | (byteAt(i) & 0x3FU);
    }
    if (!isCharacter(character, followers)) {
        return QsdReplacementCharacter;
    }
    at += followers;
    return character;
}
