#include "page/text_encoding.h"

#include "page/characters.h"
#include "values/utf8.h"

#include <optional>

namespace qsdps {

namespace {

struct SpecialCode {
    char32_t character;
    unsigned char code;
};

/// The characters that the prolog's encoding has below those of Latin-1, and look-alikes of others.
constexpr SpecialCode SpecialCodes[] = {
    {0x201A, 0x82}, {0x0192, 0x83}, {0x201E, 0x84}, {0x2026, 0x85}, {0x2020, 0x86}, {0x2021, 0x87},
    {0x02C6, 0x88}, {0x2030, 0x89}, {0x0160, 0x8A}, {0x2039, 0x8B}, {0x0152, 0x8C}, {0x0131, 0x90},
    {0x2018, 0x91}, {0x2019, 0x92}, {0x201C, 0x93}, {0x201D, 0x94}, {0x2022, 0x95}, {0x2013, 0x96},
    {0x2014, 0x97}, {0x02DC, 0x98}, {0x2122, 0x99}, {0x0161, 0x9A}, {0x203A, 0x9B}, {0x0153, 0x9C},
    {0x02DD, 0x9D}, {0x02DB, 0x9E}, {0x0178, 0x9F}, {0x2212, 0x96}, {0x03BC, 0xB5}, {0x2009, ' '},
    {0x200A, ' '},  {0x202F, ' '},  {0x2002, ' '},  {0x2003, ' '},  {0x2010, '-'},  {0x2011, '-'},
};

std::optional<std::string> latinOf(char32_t c)
{
    if (c < 0x7F || (c >= 0xA0 && c <= 0xFF)) {
        return std::string(1, static_cast<char>(c));
    }
    for (const SpecialCode& special : SpecialCodes) {
        if (special.character == c) {
            return std::string(1, static_cast<char>(special.code));
        }
    }
    return std::nullopt;
}

/// A character in another character set; nothing where that, or the C library, lacks it.
std::optional<std::string> converted(const Iconv& iconv, std::string_view character)
{
    std::string out;
    const bool isWhole = iconv.isOpen() && iconv.convert(character, out) == character.size();
    return isWhole ? std::optional(out) : std::nullopt;
}

} // namespace

TextEncoder::TextEncoder(QsEncoding encoding)
{
    if (encoding == QsEncodingEUCJP) {
        _converter = std::make_unique<Iconv>("UTF-8", "EUC-JP");
    } else if (encoding == QsEncodingShiftJIS) {
        _converter = std::make_unique<Iconv>("UTF-8", "SHIFT_JIS");
    }
}

TextEncoder::~TextEncoder() = default;

std::vector<std::string> TextEncoder::encode(std::string_view utf8, unsigned long& missing) const
{
    std::vector<std::string> characters;
    while (!utf8.empty()) {
        std::string_view bytes;
        const char32_t character = takeCharacter(utf8, bytes);
        if (isInvisibleCharacter(character)) {
            continue;
        }
        std::optional<std::string> encoded = _converter ? converted(*_converter, bytes) : latinOf(character);
        if (!encoded) {
            ++missing;
            encoded = "?";
        }
        characters.push_back(std::move(*encoded));
    }
    return characters;
}

} // namespace qsdps
