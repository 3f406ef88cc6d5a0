// Font files become text that interpreters and spoolers take, or are known for what they are.
#include "ps/QsdPSFontText_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>

namespace {

using Fault = QsdPSFontText::Fault;

const std::string FirstLine = "%!PS-AdobeFont-1.0: Brought 001.000\n";
const std::string Zeros = [] {
    std::string lines;
    for (int i = 0; i < 8; ++i) {
        lines += std::string(64, '0') + "\n";
    }
    return lines;
}();
const std::string Clear = FirstLine + "11 dict begin\n/FontName /Brought def\ncurrentfile eexec\n";
const std::string Tail = Zeros + "cleartomark\n";

/// What the interpreter makes the encrypted part of.
std::string encrypted(const std::string& plain)
{
    std::string result;
    std::uint16_t key = 55665;
    for (const char c : plain) {
        const auto byte = static_cast<unsigned char>(static_cast<unsigned char>(c) ^ (key >> 8));
        key = static_cast<std::uint16_t>((byte + key) * 52845U + 22719U);
        result += static_cast<char>(byte);
    }
    return result;
}

std::string hexadecimal(const std::string& bytes)
{
    std::string text;
    std::size_t digits = 0;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 0xF];
        digits += 2;
        if (digits % 64 == 0) {
            text += '\n';
        }
    }
    return digits % 64 == 0 ? text : text + "\n";
}

std::string segment(char kind, const std::string& bytes)
{
    std::string head = {'\x80', kind};
    for (int i = 0; i < 4; ++i) {
        head += static_cast<char>(bytes.size() >> (8 * i));
    }
    return head + bytes;
}

struct Result {
    Fault fault = Fault::None;
    std::string text;
    bool sevenBits = true;
};

/// Puts the file in pieces of `piece` bytes.
Result textOf(const std::string& file, std::size_t piece = 4096)
{
    std::ostringstream stream;
    Result result;
    {
        QsdPSWriter out(&stream);
        QsdPSFontText text(out);
        for (std::size_t i = 0; i < file.size() && text.put(std::string_view(file).substr(i, piece)); i += piece) {
        }
        result.fault = text.finish();
        result.sevenBits = text.isSevenBits();
    }
    result.text = stream.str();
    return result;
}

std::size_t longestLine(const std::string& text)
{
    std::size_t longest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        longest = std::max(longest, line.size());
    }
    return longest;
}

const std::string Secret =
    encrypted("abcddup /Private 8 dict dup begin\n" + std::string(70, '\xE9') + "mark currentfile closefile\n");

TEST(FontText, OfHexadecimalFilesStaysAsItIs)
{
    const std::string file = Clear + hexadecimal(Secret) + Tail;
    for (const std::size_t piece : {1U, 7U, 4096U}) {
        const Result result = textOf(file, piece);
        EXPECT_EQ(result.fault, Fault::None);
        EXPECT_EQ(result.text, file);
        EXPECT_TRUE(result.sevenBits);
    }
}

TEST(FontText, UnpacksSegments)
{
    const std::string expected = Clear + hexadecimal(Secret) + Tail;
    const std::string end = "\x80\x03";
    const std::size_t half = Clear.size() / 2;
    for (const std::string& file :
         {segment(1, Clear) + segment(2, Secret) + segment(1, Tail) + end,
          segment(1, Clear) + segment(2, Secret) + segment(1, Tail),
          segment(1, Clear) + segment(2, Secret) + segment(1, Tail) + end + "anything",
          segment(1, Clear.substr(0, half)) + segment(1, Clear.substr(half)) + segment(2, Secret.substr(0, 50)) +
              segment(2, Secret.substr(50)) + segment(1, Tail) + end,
          segment(1, Clear.substr(0, Clear.size() - 1)) + segment(2, Secret) + segment(1, "\n" + Tail) + end}) {
        for (const std::size_t piece : {1U, 4096U}) {
            Result result = textOf(file, piece);
            EXPECT_EQ(result.fault, Fault::None);
            if (const std::size_t empty = result.text.find("\n\n"); empty != std::string::npos) {
                result.text.erase(empty, 1);
            }
            EXPECT_EQ(result.text, expected);
            EXPECT_TRUE(result.sevenBits);
        }
    }
}

TEST(FontText, FindsTheEndOfBytesWithoutSegments)
{
    for (const char* const between : {"", "\n"}) {
        Result result = textOf(Clear + Secret + between + Tail);
        EXPECT_EQ(result.fault, Fault::None);
        if (const std::size_t empty = result.text.find("\n\n"); empty != std::string::npos) {
            result.text.erase(empty, 1);
        }
        EXPECT_EQ(result.text, Clear + hexadecimal(Secret) + Tail);
    }
}

TEST(FontText, EndsLinesAlike)
{
    std::string file = Clear + hexadecimal(Secret) + Tail;
    const std::string expected = file;
    for (const char* const ending : {"\r", "\r\n"}) {
        std::string other;
        for (const char c : expected) {
            other += c == '\n' ? ending : std::string(1, c);
        }
        EXPECT_EQ(textOf(other).text, expected);
    }
}

TEST(FontText, KnowsWhatIsNoFont)
{
    for (const std::string& file :
         {std::string(), std::string("%"), std::string("%!PS-AdobeFont-1.0"), std::string("%!PS-Adobe-3.0\nshowpage\n"),
          std::string("{\\rtf1}\n"), std::string("\0\1\0\0\0\x0Fglyf", 10), std::string("OTTO\0\n", 6),
          std::string("\x80"), std::string("\x80\x04\0\0\0\0", 6),
          std::string("\x7F"
                      "ELF\n"),
          FirstLine + std::string(1, '\0'), FirstLine + "\x04", segment(2, "abc") + "\x80\x03",
          segment(1, Clear) + "currentfile", segment(1, "hello\n") + "\x80\x03"}) {
        EXPECT_NE(textOf(file).fault, Fault::None) << file;
        EXPECT_NE(textOf(file).fault, Fault::Structure) << file;
    }
    EXPECT_EQ(textOf("hello\n").fault, Fault::NoFont);
    EXPECT_EQ(textOf(FirstLine + std::string(1, '\0')).fault, Fault::NoFont);
}

// Whatever is missing at the end shows, down to the last word.
TEST(FontText, KnowsWhatIsCutShort)
{
    for (const std::string& file : {Clear + hexadecimal(Secret) + Tail, Clear + Secret + Tail,
                                    segment(1, Clear) + segment(2, Secret) + segment(1, Tail),
                                    FirstLine + "8 dict begin /FontType 3 def\ncurrentdict end definefont\n"}) {
        const std::size_t word = std::max(file.rfind("definefont") + 10, file.rfind("cleartomark") + 11);
        EXPECT_EQ(textOf(file.substr(0, word)).fault, file[0] == '%' ? Fault::None : Fault::CutShort);
        for (std::size_t size = FirstLine.size() + 6; size < word - 1; ++size) {
            ASSERT_EQ(textOf(file.substr(0, size)).fault, Fault::CutShort) << size << " of " << file.size();
        }
    }
    EXPECT_EQ(textOf(FirstLine + "(definefont\n").fault, Fault::CutShort);
    EXPECT_EQ(textOf(FirstLine + "% definefont\n/definefont\n").fault, Fault::CutShort);
}

TEST(FontText, MakesCommentsOfTheHeadPlain)
{
    const std::string rest = "8 dict begin\ncurrentdict end definefont pop\n";
    const Result result = textOf(FirstLine + "%%Title: Brought\n%%Creator: somebody\n%%+ else\n%%EndComments\n" + rest);
    EXPECT_EQ(result.fault, Fault::None);
    EXPECT_EQ(result.text, FirstLine + "%Title: Brought\n%Creator: somebody\n%+ else\n%EndComments\n" + rest);
}

TEST(FontText, RefusesOtherStructuringComments)
{
    const std::string rest = "8 dict begin\ncurrentdict end definefont pop\n";
    for (const char* const comment : {"%%Page: 1 1", "%%Trailer", "%%EOF", "%%BeginResource: font Other",
                                      "%%IncludeResource: font Symbol", "%%BoundingBox: 0 0 1 1", "%%", "%!PS"}) {
        EXPECT_EQ(textOf(FirstLine + comment + "\n" + rest).fault, Fault::Structure) << comment;
        EXPECT_EQ(textOf(FirstLine + rest + comment).fault, Fault::Structure) << comment;
    }
    EXPECT_EQ(textOf(FirstLine + "8 dict begin\n%%Title: late\n" + rest).fault, Fault::Structure);
    EXPECT_EQ(textOf(FirstLine + "/Notice (\n%%Page: 1 1\n) def\n" + rest).fault, Fault::Structure);
    EXPECT_EQ(textOf(FirstLine + "% plain\n 1 %%Page: 1 1\n" + rest).fault, Fault::None);
}

TEST(FontText, BreaksLongLines)
{
    std::string words;
    for (int i = 0; i < 100; ++i) {
        words += "/name" + std::to_string(i) + " " + std::to_string(i) + " def ";
    }
    std::string octal;
    for (int i = 0; i < 300; ++i) {
        octal += "\\351";
    }
    const std::string end = "\ncurrentdict end definefont pop\n";
    for (const std::string& code :
         {words, "/Notice (" + std::string(600, 'x') + "(nested))def", "/Notice (" + octal + ") def",
          "/Notice (" + std::string(600, '%') + ") def", "<" + std::string(1000, 'a') + "> pop",
          "% " + std::string(1000, 'c'), "[" + std::string(500, '{') + std::string(3, '}'),
          words + "%% no comment of the structure", std::string(130, ' ') + "%% neither"}) {
        const Result result = textOf(FirstLine + code + end);
        const bool unbreakable = code.find("(%%") != std::string::npos;
        EXPECT_EQ(result.fault, unbreakable ? Fault::LongWord : Fault::None) << code;
        EXPECT_LE(longestLine(result.text), 255U);
        EXPECT_EQ(result.text.find("\n%%"), std::string::npos) << code;
    }
    const std::string folded = textOf(FirstLine + "/Notice (" + octal + ") def" + end).text;
    EXPECT_NE(folded.find("\\351\\\n\\351"), std::string::npos) << folded;
    EXPECT_EQ(textOf(FirstLine + std::string(300, 'x') + end).fault, Fault::LongWord);
}

TEST(FontText, TellsOfOtherBytes)
{
    const Result result = textOf(FirstLine + "/Notice (\xA9) def\ncurrentdict end definefont pop\n");
    EXPECT_EQ(result.fault, Fault::None);
    EXPECT_FALSE(result.sevenBits);
}

// The fonts that a system has are all taken.
TEST(FontText, OfRealFonts)
{
    namespace fs = std::filesystem;
    std::size_t seen = 0;
    for (const char* const folder : {"/usr/share/fonts/X11/Type1", "/usr/share/fonts/type1/urw-base35"}) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
            const std::string suffix = entry.path().extension();
            if (suffix != ".pfb" && suffix != ".pfa" && suffix != ".t1") {
                continue;
            }
            std::ifstream file(entry.path(), std::ios_base::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
            const Result result = textOf(bytes);
            EXPECT_EQ(result.fault, Fault::None) << entry.path();
            EXPECT_LE(longestLine(result.text), 255U) << entry.path();
            EXPECT_TRUE(result.sevenBits) << entry.path();
            EXPECT_EQ(textOf(bytes.substr(0, bytes.size() / 2)).fault, Fault::CutShort) << entry.path();
            ++seen;
        }
    }
    if (seen == 0) {
        GTEST_SKIP() << "no Type 1 fonts at hand";
    }
}

} // namespace
