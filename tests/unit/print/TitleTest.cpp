#include "ps/QsdPSTitle_p.h"

#include <gtest/gtest.h>

TEST(Title, PrintableAsciiStaysAsItIs)
{
    EXPECT_EQ(QsdPSTitleText("Profit & loss (2nd draft) {1} 50%"), "Profit & loss (2nd draft) {1} 50%");
    EXPECT_EQ(QsdPSTitleText("a) b ("), "a) b (");
    EXPECT_EQ(QsdPSTitleText("C:\\temp\\"), "C:\\temp\\");
}

TEST(Title, WhatWouldMeanSomethingElseIsOctal)
{
    EXPECT_EQ(QsdPSTitleText("(atend)"), "\\050atend)");
    EXPECT_EQ(QsdPSTitleText("((x)"), "\\050(x)");
    EXPECT_EQ(QsdPSTitleText("C:\\374"), "C:\\134374");
}

TEST(Title, ControlsAreBlanks)
{
    EXPECT_EQ(QsdPSTitleText(" a\r\n%%EOF\tb\x7F"), "a %%EOF b");
    EXPECT_EQ(QsdPSTitleText("two  blanks"), "two  blanks");
    EXPECT_EQ(QsdPSTitleText(" \n"), "");
    EXPECT_EQ(QsdPSTitleText(""), "");
}

TEST(Title, OtherLettersAreThoseOfPdfTexts)
{
    EXPECT_EQ(QsdPSTitleText("Gr\xC3\xBCn"), "Gr\\374n");
    EXPECT_EQ(QsdPSTitleText("1\xE2\x80\x93"
                             "2 \xE2\x82\xAC"),
              "1\\2052 \\240");
    EXPECT_EQ(QsdPSTitleText("\xE4\xB8\x80 A1(\\"), "\\376\\377N\\000\\000\\040\\000A\\0001\\000\\050\\000\\134");
    EXPECT_EQ(QsdPSTitleText("\xF0\x9F\x98\x80"), "\\376\\377\\330\\075\\336\\000");
    EXPECT_EQ(QsdPSTitleText("a\xC2\xA0z"), "\\376\\377\\000a\\000\\240\\000z") << "code 160 of PDF is the Euro";
}

TEST(Title, WhatIsNoUtf8IsLatin1)
{
    EXPECT_EQ(QsdPSTitleText("Gr\xFCn \xC3\xBC"), "Gr\\374n \\303\\274");
}

TEST(Title, LongOnesAreCutBetweenCharacters)
{
    const auto repeated = [](std::string_view text, int count) {
        std::string result;
        for (int i = 0; i < count; ++i) {
            result += text;
        }
        return result;
    };
    constexpr std::size_t Room = 245;
    EXPECT_EQ(QsdPSTitleText(repeated("x", Room)), repeated("x", Room));
    EXPECT_EQ(QsdPSTitleText(repeated("x", Room + 1)), repeated("x", Room - 3) + "...");
    EXPECT_EQ(QsdPSTitleText(repeated("\xC3\xBC", 1000)), repeated("\\374", 60) + "...");
    const std::string wide = QsdPSTitleText(repeated("\xF0\x9F\x98\x80", 1000));
    EXPECT_EQ(wide, "\\376\\377" + repeated("\\330\\075\\336\\000", 13) + repeated("\\000\\056", 3));
}
