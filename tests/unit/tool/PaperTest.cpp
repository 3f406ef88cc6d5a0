#include "values/paper.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(Lengths, TakeUnits)
{
    EXPECT_DOUBLE_EQ(parsePoints("1in", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parsePoints("25.4mm", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parsePoints("2.54cm", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parsePoints("96px", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parsePoints("6pc", 1).value(), 72);
    EXPECT_DOUBLE_EQ(parsePoints("12pt", 5).value(), 12);
    EXPECT_DOUBLE_EQ(parsePoints("12", 0.75).value(), 9);
}

TEST(Lengths, RefuseOtherText)
{
    for (const char* text : {"", "x", "1furlong", "1 in in", "nan", "inf", "-inf", "1e308in", "1,5cm"}) {
        EXPECT_FALSE(parsePoints(text, 1)) << text;
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

TEST(Lengths, OnePaperUnitCountsForBothSides)
{
    const double millimetre = 72 / 25.4;
    for (const char* const text : {"100x50mm", "100mmx50", "100mmx50mm", "100X5CM"}) {
        const PaperSize paper = parsePaper(text).value();
        EXPECT_DOUBLE_EQ(paper.height, 50 * millimetre) << text;
    }
    EXPECT_DOUBLE_EQ(parsePaper("100x50mm").value().width, 100 * millimetre);
    EXPECT_DOUBLE_EQ(parsePaper("100x50").value().width, 100);
    EXPECT_DOUBLE_EQ(parsePaper("96pxx48px").value().width, 72);
    EXPECT_DOUBLE_EQ(parsePaper("96x48px").value().width, 72);
    EXPECT_DOUBLE_EQ(parsePaper("1inx10mm").value().width, 72);
    for (const char* const text : {"100xmm", "x", "100x", "nanx10", "10xinf", "10x0mm", "1x2x3", "1e308x1e308in"}) {
        EXPECT_FALSE(parsePaper(text)) << text;
    }
}

TEST(Lengths, NumbersHaveLimits)
{
    EXPECT_EQ(parseNumberWithin("2", 1, 3), 2);
    EXPECT_EQ(parseNumberWithin("+2", 1, 3), 2);
    EXPECT_EQ(parseNumberWithin("3", 1, 3), 3);
    for (const char* const text : {"", "0", "nan", "inf", "-2", "+-2", "3.1", "2 ", "2mm", "1e400", "0x2"}) {
        EXPECT_FALSE(parseNumberWithin(text, 1, 3)) << text;
    }
}

TEST(Lengths, MarginsMayTakeAllRoom)
{
    const PaperSize paper{100, 200};
    EXPECT_TRUE(leavesRoom(paper, {49, 0, 50, 0}));
    EXPECT_FALSE(leavesRoom(paper, {50, 0, 50, 0}));
    EXPECT_TRUE(leavesRoom(paper, {0, 99, 0, 100}));
    EXPECT_FALSE(leavesRoom(paper, {0, 150, 0, 51}));
}
