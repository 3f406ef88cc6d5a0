#include "page/characters.h"
#include "values/utf8.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(Characters, AreTakenOneByOne)
{
    std::string_view text = "a\u3042\xFF\xE3\x81";
    std::string_view bytes;
    EXPECT_EQ(takeCharacter(text, bytes), U'a');
    EXPECT_EQ(takeCharacter(text, bytes), U'\u3042');
    EXPECT_EQ(bytes.size(), 3U);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(takeCharacter(text, bytes), U'\uFFFD');
    }
    EXPECT_TRUE(text.empty());
}

TEST(Characters, SomeAreInvisible)
{
    for (const char32_t c : {U'\u0007', U'\u00AD', U'\u200B', U'\u202E', U'\u2066', U'\uFE0F', U'\U000E0100'}) {
        EXPECT_TRUE(isInvisibleCharacter(c)) << static_cast<unsigned>(c);
    }
    for (const char32_t c : {U' ', U'\u00A0', U'\u2010', U'\u3000', U'\U0010FFFD'}) {
        EXPECT_FALSE(isInvisibleCharacter(c)) << static_cast<unsigned>(c);
    }
}

TEST(Characters, SomeAreReadFromRightToLeft)
{
    EXPECT_TRUE(isRightToLeft(U'\u05D0'));
    EXPECT_TRUE(isRightToLeft(U'\u0628'));
    EXPECT_FALSE(isRightToLeft(U'A'));
    EXPECT_FALSE(isRightToLeft(U'\u0915'));
}

TEST(Characters, SomeDependOnOthers)
{
    for (const char32_t c : {U'\u0301', U'\u05B0', U'\u0628', U'\u0915', U'\u0E34', U'\u3099'}) {
        EXPECT_TRUE(isShaped(c)) << static_cast<unsigned>(c);
    }
    for (const char32_t c : {U'A', U'\u00E9', U'\u03B1', U'\u05D0', U'\u3042', U'\u65E5', U'\uAC00', U'\u0E01'}) {
        EXPECT_FALSE(isShaped(c)) << static_cast<unsigned>(c);
    }
}
