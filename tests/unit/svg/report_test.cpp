#include "drawing/report.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

using namespace qsdps;

namespace {

std::string told(const Report& report)
{
    std::ostringstream out;
    report.print(out, "a.svg");
    return out.str();
}

} // namespace

TEST(Report, TellsEachKindOnceWithItsCount)
{
    Report report;
    for (int i = 0; i < 3; ++i)
        report.notDrawn("character that no installed font has");
    report.notDrawn("mask");
    report.approximated("gradient");
    report.approximated("gradient");
    EXPECT_EQ(told(report), "a.svg: 3 characters skipped: no installed font has them, boxes stand for them\n"
                            "a.svg: 1 mask left out\n"
                            "a.svg: 2 gradients replaced by their mean colours\n");
}

TEST(Report, TellsWhereTheFirstOfAKindStands)
{
    Report report;
    report.notDrawn("image");
    report.notDrawn("image", 7);
    report.notDrawn("image", 9);
    report.badInput("path drawn up to a fault in its data", 3);
    report.badInput("path drawn up to a fault in its data", 2);
    EXPECT_EQ(told(report), "a.svg:3: path drawn up to a fault in its data (2 times)\n"
                            "a.svg:7: 3 images left out: they cannot be read\n");
}

TEST(Report, NamesKindsWithoutAWording)
{
    Report report;
    report.notDrawn("hologram");
    report.approximated("hologram");
    EXPECT_EQ(told(report), "a.svg: 1 x hologram left out\na.svg: 1 x hologram drawn only nearly as asked\n");
}

TEST(Report, ShowsBadValuesShortAndWithoutControls)
{
    EXPECT_EQ(badValue("foo", "fill"), "bad value 'foo' of fill ignored");
    EXPECT_EQ(badValue("a\x1B[2J\nb", "x"), "bad value 'a [2J b' of x ignored");
    EXPECT_EQ(badValue(std::string(41, 'y'), "x"), "bad value '" + std::string(40, 'y') + "...' of x ignored");
    EXPECT_EQ(badValue(std::string(39, 'y') + "\xC3\xBC", "x"),
              "bad value '" + std::string(39, 'y') + "...' of x ignored");
}

TEST(Report, KeepsWithinBounds)
{
    Report report;
    for (int i = 0; i < 1000; ++i)
        report.badInput("fault " + std::to_string(i), i);
    const std::string text = told(report);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 200);
}
