#include "ps/QsdPSTitle_p.h"

#include "toolkit/base/QsdUtf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace {

using Characters = std::vector<char32_t>;

/// The characters of PDFDocEncoding from 128 on that are not those of Latin-1.
constexpr char32_t DocCharacters[] = {0x2022, 0x2020, 0x2021, 0x2026, 0x2014, 0x2013, 0x0192, 0x2044,
                                      0x2039, 0x203A, 0x2212, 0x2030, 0x201E, 0x201C, 0x201D, 0x2018,
                                      0x2019, 0x201A, 0x2122, 0xFB01, 0xFB02, 0x0141, 0x0152, 0x0160,
                                      0x0178, 0x017D, 0x0131, 0x0142, 0x0153, 0x0161, 0x017E};
constexpr char32_t Euro = 0x20AC;
constexpr unsigned EuroCode = 0xA0;

/// The code of a character in PDFDocEncoding; 0 where it has none.
unsigned docCodeOf(char32_t c)
{
    if ((c >= 0x20 && c < 0x7F) || (c > 0xA0 && c <= 0xFF && c != 0xAD)) {
        return c;
    }
    const auto* const found = std::find(std::begin(DocCharacters), std::end(DocCharacters), c);
    if (found != std::end(DocCharacters)) {
        return 0x80 + static_cast<unsigned>(found - std::begin(DocCharacters));
    }
    return c == Euro ? EuroCode : 0;
}

bool isControl(char32_t c)
{
    constexpr char32_t LineSeparator = 0x2028;
    constexpr char32_t ParagraphSeparator = 0x2029;
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == LineSeparator || c == ParagraphSeparator;
}

Characters charactersOf(std::string_view text)
{
    Characters characters;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t first = at;
        const char32_t c = QsdNextUtf8(text, at);
        if (c == QsdReplacementCharacter && at == first + 1) {
            characters.clear();
            std::transform(text.begin(), text.end(), std::back_inserter(characters),
                           [](char byte) { return char32_t{static_cast<unsigned char>(byte)}; });
            return characters;
        }
        characters.push_back(c);
    }
    return characters;
}

/// The characters that can be shown, a blank for a run of others, none of them at the ends.
Characters shownOf(const Characters& characters)
{
    Characters shown;
    bool isRun = false;
    for (const char32_t c : characters) {
        if (!isControl(c)) {
            shown.push_back(c);
        } else if (!isRun) {
            shown.push_back(' ');
        }
        isRun = isControl(c);
    }
    const auto isBlank = [](char32_t c) { return c == ' '; };
    shown.erase(shown.begin(), std::find_if_not(shown.begin(), shown.end(), isBlank));
    shown.erase(std::find_if_not(shown.rbegin(), shown.rend(), isBlank).base(), shown.end());
    return shown;
}

std::string octal(unsigned byte)
{
    return {'\\', static_cast<char>('0' + (byte >> 6)), static_cast<char>('0' + ((byte >> 3) & 7)),
            static_cast<char>('0' + (byte & 7))};
}

bool isDigit(char32_t c)
{
    return c >= '0' && c <= '9';
}

/// Characters as bytes of PDFDocEncoding; a line that begins with a parenthesis, and a backslash before a digit, would
/// be taken for something else.
std::vector<std::string> inDocEncoding(const Characters& characters)
{
    std::vector<std::string> pieces;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const char32_t c = characters[i];
        const bool isSpecial =
            (c == '(' && i == 0) || (c == '\\' && i + 1 < characters.size() && isDigit(characters[i + 1]));
        const unsigned code = docCodeOf(c);
        pieces.push_back(isSpecial || code >= 0x7F ? octal(code) : std::string(1, static_cast<char>(code)));
    }
    return pieces;
}

void putUnit(std::string& piece, char32_t unit)
{
    for (const unsigned byte : {static_cast<unsigned>(unit >> 8), static_cast<unsigned>(unit & 0xFF)}) {
        const auto letter = static_cast<char>(byte | 0x20U);
        const bool isPlain = isDigit(byte) || (byte < 0x80 && letter >= 'a' && letter <= 'z');
        piece += isPlain ? std::string(1, static_cast<char>(byte)) : octal(byte);
    }
}

std::vector<std::string> inUtf16(const Characters& characters)
{
    std::vector<std::string> pieces;
    for (const char32_t c : characters) {
        std::string piece;
        if (c < 0x10000) {
            putUnit(piece, c);
        } else {
            putUnit(piece, 0xD7C0 + (c >> 10));
            putUnit(piece, 0xDC00 + (c & 0x3FF));
        }
        pieces.push_back(piece);
    }
    return pieces;
}

/// The pieces joined behind `mark`, as far as there is room for them and, where there is not, for the ending.
std::string joined(const std::string& mark, const std::vector<std::string>& pieces, const std::string& ending)
{
    constexpr std::size_t LongestLine = 254; // with its end 255
    constexpr std::size_t Room = LongestLine - std::string_view("%%Title: ").size();
    std::string text = mark;
    std::size_t whole = text.size(); // how much may stay when the ending has to follow
    for (const std::string& piece : pieces) {
        text += piece;
        if (text.size() + ending.size() <= Room) {
            whole = text.size();
        }
        if (text.size() > Room) {
            return text.substr(0, whole) + ending;
        }
    }
    return text;
}

} // namespace

std::string QsdPSTitleText(std::string_view title)
{
    const Characters characters = shownOf(charactersOf(title));
    if (characters.empty()) {
        return {};
    }
    const bool fits = std::all_of(characters.begin(), characters.end(), [](char32_t c) { return docCodeOf(c) != 0; });
    if (fits) {
        return joined("", inDocEncoding(characters), "...");
    }
    std::string dots;
    for (int i = 0; i < 3; ++i) {
        putUnit(dots, '.');
    }
    return joined("\\376\\377", inUtf16(characters), dots);
}
