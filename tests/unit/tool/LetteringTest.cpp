#include "page/lettering.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace qsdps;

namespace {

/// Works with whatever fonts are installed, so it looks at proportions alone.
class LetteringTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (fonts.find({}) == nullptr) {
            GTEST_SKIP() << "no fonts are installed";
        }
        TextSpan span;
        span.text = "HH";
        span.font.size = 10;
        span.fill = {Rgb{}, 1};
        chunk.at = {100, 50};
        chunk.spans.push_back(span);
    }
    [[nodiscard]] Lettering lettering() { return letteringOf(chunk, fonts).value(); }
    /// Around some outlines, of which there is one.
    static Box around(const std::vector<Path>& outlines)
    {
        Box all = outlines.at(0).controlBox();
        for (const Path& outline : outlines) {
            const Box box = outline.controlBox();
            const double right = std::max(all.x + all.width, box.x + box.width);
            const double bottom = std::max(all.y + all.height, box.y + box.height);
            all.x = std::min(all.x, box.x);
            all.y = std::min(all.y, box.y);
            all.width = right - all.x;
            all.height = bottom - all.y;
        }
        return all;
    }
    [[nodiscard]] Box box() { return around(lettering().spans.at(0).letters); }
    /// Takes a text of one span, and tells whether the installed fonts have all of it.
    [[nodiscard]] bool take(const char* text)
    {
        chunk.spans[0].text = text;
        return lettering().missing == 0;
    }

    LetterFonts fonts;
    TextChunk chunk;
};

} // namespace

TEST_F(LetteringTest, StandsOnTheBaseline)
{
    const Box letters = box();
    EXPECT_GE(letters.x, 100);
    EXPECT_NEAR(letters.y + letters.height, 50, 0.01);
    EXPECT_GT(letters.height, 5);
    EXPECT_LT(letters.height, 10);
}

TEST_F(LetteringTest, IsAligned)
{
    const Box start = box();
    chunk.anchor = TextAnchor::End;
    const Box end = box();
    chunk.anchor = TextAnchor::Middle;
    EXPECT_NEAR(box().x, (start.x + end.x) / 2, 0.01);
    EXPECT_LE(end.x + end.width, 100);
}

TEST_F(LetteringTest, SpacesLetters)
{
    const Box plain = box();
    chunk.spans[0].letterSpacing = 3;
    EXPECT_NEAR(box().width, plain.width + 3, 0.01);
}

TEST_F(LetteringTest, KeepsToALength)
{
    const Box plain = box();
    const double natural = 2 * (plain.x - 100) + plain.width; // an H leaves as much on both sides
    chunk.spans[0].textLength = natural + 8;
    EXPECT_NEAR(box().width, plain.width + 4, 0.01);
}

TEST_F(LetteringTest, GoesAlongAPath)
{
    Path down;
    down.moveTo({0, 0});
    down.lineTo({0, 100});
    chunk.along = down;
    const Box letters = box();
    EXPECT_GT(letters.height, letters.width);
    EXPECT_NEAR(letters.x, 0, 0.01);
}

TEST_F(LetteringTest, DrawsLines)
{
    EXPECT_TRUE(lettering().spans[0].rules.empty());
    chunk.spans[0].underline = true;
    const Box line = around(lettering().spans[0].rules);
    EXPECT_GT(line.y, 50);
    EXPECT_GT(line.width, box().width);
}

TEST_F(LetteringTest, DrawsLinesAlongAPath)
{
    Path down;
    down.moveTo({0, 0});
    down.lineTo({0, 100});
    chunk.along = down;
    chunk.spans[0].underline = true;
    const Box line = around(lettering().spans[0].rules);
    EXPECT_LT(line.x, 0);
    EXPECT_NEAR(line.width, 0.5, 0.01);
    EXPECT_GT(line.height, box().height);
}

TEST_F(LetteringTest, TurnsLetters)
{
    const Box upright = box();
    chunk.spans[0].text.resize(1);
    const Box one = box();
    chunk.spans[0].rotate = 90;
    const Box turnedBox = box();
    EXPECT_LT(one.width, upright.width);
    EXPECT_NEAR(turnedBox.width, one.height, 0.01);
    EXPECT_NEAR(turnedBox.height, one.width, 0.01);
    EXPECT_NEAR(turnedBox.x, 100, 0.01) << "an H stands on its origin";
}

TEST_F(LetteringTest, ShowsSomethingForALetterInNoFont)
{
    chunk.spans[0].text = "H\U0010FFFDH";
    const Lettering made = lettering();
    EXPECT_EQ(made.missing, 1U);
    EXPECT_EQ(made.letters, 3U);
    EXPECT_GE(made.spans[0].letters.size(), 2U);
}

TEST_F(LetteringTest, LeavesOutWhatNobodySees)
{
    chunk.spans[0].text = "H\u202A\u2060\uFE0F\U000E0100H";
    EXPECT_EQ(lettering().letters, 2U);
    EXPECT_EQ(lettering().missing, 0U);
    EXPECT_FALSE(lettering().isApproximation);
}

TEST_F(LetteringTest, TellsOfLettersThatDependOnOthers)
{
    EXPECT_FALSE(lettering().isApproximation);
    for (const char* const text : {"e\u0301", "\u0628\u0628", "\u0915\u094D\u0937"}) {
        chunk.spans[0].text = text;
        EXPECT_TRUE(lettering().isApproximation) << text;
    }
}

TEST_F(LetteringTest, TurnsTextsFromRightToLeftAround)
{
    // A broad letter in front of a slender one is on the right in the end.
    if (!take("\u05E9") || !take("\u05D9")) {
        GTEST_SKIP() << "no font has Hebrew letters";
    }
    chunk.spans[0].text = "\u05E9\u05D9";
    const Lettering made = lettering();
    ASSERT_EQ(made.spans[0].letters.size(), 2U);
    EXPECT_LT(made.spans[0].letters[0].controlBox().width, made.spans[0].letters[1].controlBox().width);
    EXPECT_FALSE(made.isApproximation);
    chunk.spans[0].rightToLeft = true;
    chunk.spans.push_back(chunk.spans[0]);
    EXPECT_TRUE(lettering().isApproximation);
}

TEST_F(LetteringTest, MakesBoldAndItalicLetters)
{
    chunk.spans[0].text.resize(1);
    const Box plain = box();
    chunk.spans[0].font.italic = true;
    EXPECT_GT(box().width, plain.width);
    chunk.spans[0].font.italic = false;
    chunk.spans[0].font.weight = 700;
    EXPECT_GT(box().width, plain.width);
}

TEST_F(LetteringTest, TakesAnySize)
{
    for (const double size : {0.0, 1e-6, 1e6, 1e300}) {
        chunk.spans[0].font.size = size;
        chunk.spans[0].underline = true;
        EXPECT_EQ(lettering().letters, 2U) << size;
    }
    chunk.spans[0].text.clear();
    EXPECT_TRUE(lettering().spans[0].letters.empty());
}

namespace {

/// A square of 2 to the right of `x`, or one to its left, which goes around the other way.
Path square(double x, double side = 2)
{
    Path path;
    path.moveTo({x, 0});
    path.lineTo({x + side, 0});
    path.lineTo({x + side, 2});
    path.lineTo({x, 2});
    path.close();
    return path;
}

} // namespace

TEST(LetteringAreas, JoinOutlinesThatOverlap)
{
    EXPECT_TRUE(areasOf({}).empty());
    const std::vector<Path> areas = areasOf({square(0), square(1), square(3), square(4.5)});
    ASSERT_EQ(areas.size(), 2U);
    EXPECT_EQ(areas[0].controlBox(), (Box{0, 0, 3, 2}));
    EXPECT_EQ(areas[1].controlBox(), (Box{3, 0, 3.5, 2}));
    EXPECT_EQ(areas[0].points().size(), 8U);
    EXPECT_EQ(areas[0].verbs().size(), 10U);

    const std::vector<Path> many = areasOf(std::vector<Path>(600, square(0)));
    EXPECT_EQ(many.size(), 3U);
}

TEST(LetteringAreas, LeaveNoHolesWhereOutlinesOfTwoKindsOverlap)
{
    EXPECT_EQ(areasOf({square(0), square(3, -2)}).size(), 2U);
    EXPECT_EQ(areasOf({square(2, -2), square(3, -2)}).size(), 1U);
}
