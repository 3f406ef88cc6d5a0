#include "toolkit/base/QsdUtf8.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::u32string charactersOf(std::string_view text)
{
    std::u32string characters;
    for (std::size_t at = 0; at < text.size();) {
        characters += QsdNextUtf8(text, at);
    }
    return characters;
}

} // namespace

TEST(Utf8, CharactersHaveOneToFourBytes)
{
    EXPECT_EQ(charactersOf("A\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
              U"A\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF");
}

TEST(Utf8, BytesOfNoCharacterAreReplacedOneByOne)
{
    const char* const faults[] = {"\x80",             // follows nothing
                                  "\xC1\xBF",         // longer than it needs to be
                                  "\xE0\x9F\xBF",     //
                                  "\xF0\x8F\xBF\xBF", //
                                  "\xED\xA0\x80",     // a surrogate
                                  "\xF4\x90\x80\x80", // beyond the last character
                                  "\xF5\x80\x80\x80", //
                                  "\xC3",
                                  "\xE2\x82", // broken off
                                  "\xF0\x9F\x98",
                                  "\xFF"};
    for (const std::string fault : faults) {
        EXPECT_EQ(charactersOf(fault), std::u32string(fault.size(), QsdReplacementCharacter)) << fault;
        EXPECT_EQ(charactersOf(fault + "A"), std::u32string(fault.size(), QsdReplacementCharacter) + U"A") << fault;
    }
}
