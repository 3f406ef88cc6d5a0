#include "page/lettering.h"

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
    [[nodiscard]] Box box() { return letteringOf(chunk, fonts).value().at(0).letters.controlBox(); }

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
    EXPECT_TRUE(letteringOf(chunk, fonts).value().at(0).rules.empty());
    chunk.spans[0].underline = true;
    const Box line = letteringOf(chunk, fonts).value().at(0).rules.controlBox();
    EXPECT_GT(line.y, 50);
    EXPECT_GT(line.width, box().width);
}

TEST_F(LetteringTest, GivesUpWhereALetterIsInNoFont)
{
    chunk.spans[0].text = "\U0010FFFD";
    EXPECT_FALSE(letteringOf(chunk, fonts).has_value());
}
