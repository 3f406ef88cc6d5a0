#include "lengths.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(Lengths, TakeUnits)
{
    EXPECT_DOUBLE_EQ(parseLength("1in", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parseLength("25.4mm", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parseLength("2.54cm", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parseLength("96px", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parseLength("6pc", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parseLength("12pt", 5).value(), 12);
    EXPECT_DOUBLE_EQ(parseLength("12", 0.75).value(), 9);
}

TEST(Lengths, RefuseOtherText)
{
    for (const char* text : {"", "x", "1furlong", "1 in in", "nan", "inf", "1,5cm"}) {
        EXPECT_FALSE(parseLength(text, 1)) << text;
    }
}

TEST(Lengths, MarginsAreOneOrFour)
{
    EXPECT_EQ(parseMargins("10").value().bottom, 10);
    const Margins margins = parseMargins("1,2,3,4").value();
    EXPECT_EQ(margins.left, 1);
    EXPECT_EQ(margins.top, 2);
    EXPECT_EQ(margins.right, 3);
    EXPECT_EQ(margins.bottom, 4);
    EXPECT_FALSE(parseMargins("1,2"));
    EXPECT_FALSE(parseMargins("-1"));
}

TEST(Lengths, KnowPapers)
{
    const PaperSize a4 = parsePaper("A4").value();
    EXPECT_NEAR(a4.width, 595.276, 0.5);
    EXPECT_NEAR(a4.height, 841.89, 0.5);
    EXPECT_EQ(parsePaper("letter").value().width, 612);
    EXPECT_EQ(parsePaper("1inx2in").value().height, 144);
    EXPECT_FALSE(parsePaper("a99"));
    EXPECT_FALSE(parsePaper("0x10"));
}

TEST(Lengths, KnowColors)
{
    EXPECT_EQ(parseColor("#102030"), (Rgb{16, 32, 48}));
    EXPECT_EQ(parseColor("#fff"), (Rgb{255, 255, 255}));
    EXPECT_EQ(parseColor("red"), (Rgb{255, 0, 0}));
    EXPECT_FALSE(parseColor("#12"));
}
