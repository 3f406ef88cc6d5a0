#include "page/clip_stack.h"

#include "page/tiling.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

ClipPath boxClip(const Box& box)
{
    return {{{outlineOf(box), FillRule::NonZero, Matrix(), nullptr}}, nullptr};
}

Path triangle(double size)
{
    Path path;
    path.moveTo({0, 0});
    path.lineTo({size, 0});
    path.lineTo({0, size});
    path.close();
    return path;
}

} // namespace

TEST(ClipStack, StartsWithoutLimit)
{
    const ClipStack clips{Matrix(), 1};
    EXPECT_FALSE(clips.top().rect);
    EXPECT_FALSE(clips.top().area);
}

TEST(ClipStack, RectanglesStayRectangles)
{
    ClipStack clips(Matrix::scaling(10, 10), 1);
    clips.push(boxClip({0, 0, 10, 10}));
    clips.push(boxClip({5, 5, 10, 10}));
    EXPECT_EQ(clips.top().rect, (QsdRect{50, 50, 50, 50}));
    EXPECT_FALSE(clips.top().area);
    clips.pop();
    EXPECT_EQ(clips.top().rect, (QsdRect{0, 0, 100, 100}));
    clips.pop();
    EXPECT_FALSE(clips.top().rect);
}

TEST(ClipStack, OtherShapesAreAreas)
{
    ClipStack clips(Matrix(), 1);
    clips.push(ClipPath{{{triangle(100), FillRule::NonZero, Matrix(), nullptr}}, nullptr});
    ASSERT_TRUE(clips.top().area);
    EXPECT_EQ(clips.top().rect, (QsdRect{0, 0, 100, 100}));
    clips.push(boxClip({0, 0, 50, 200}));
    ASSERT_TRUE(clips.top().area);
    EXPECT_EQ(clips.top().rect, (QsdRect{0, 0, 50, 100}));
}

TEST(ClipStack, OutlinesAreJoinedAndCutByWhatIsInside)
{
    ClipPath clip = boxClip({0, 0, 10, 10});
    clip.outlines.push_back(
        {outlineOf({10, 0, 10, 10}), FillRule::NonZero, Matrix(), std::make_shared<ClipPath>(boxClip({0, 0, 15, 10}))});
    ClipStack clips(Matrix(), 1);
    clips.push(clip);
    EXPECT_EQ(clips.top().rect, (QsdRect{0, 0, 15, 10}));
}

TEST(ClipStack, NoOutlineHidesEverything)
{
    ClipStack clips(Matrix(), 1);
    clips.push(ClipPath{});
    ASSERT_TRUE(clips.top().rect);
    EXPECT_TRUE(clips.top().rect->isEmpty());
}

TEST(ClipStack, ClipsThatAreSharedAreMadeOnce)
{
    auto clip = std::make_shared<ClipPath>(boxClip({0, 0, 100, 100}));
    for (int level = 0; level < 60; ++level) {
        const Box box{static_cast<double>(level), 0, 100, 100};
        clip =
            std::make_shared<ClipPath>(ClipPath{{{outlineOf(box), FillRule::NonZero, Matrix(), clip, clip, {}}}, clip});
    }
    ClipStack clips(Matrix(), 1);
    clips.push(*clip);
    EXPECT_EQ(clips.top().rect, (QsdRect{59, 0, 41, 100}));
}

TEST(ClipStack, WhatBringsAnOutlineInCutsItToo)
{
    ClipPath clip = boxClip({0, 0, 50, 50});
    clip.outlines[0].inner = std::make_shared<ClipPath>(boxClip({0, 0, 20, 50}));
    clip.outlines[0].around = std::make_shared<ClipPath>(boxClip({10, 0, 50, 50}));
    ClipStack clips(Matrix(), 1);
    clips.push(clip);
    EXPECT_EQ(clips.top().rect, (QsdRect{10, 0, 10, 50}));
}

TEST(ClipStack, TextsAreTheUnionOfTheirLetters)
{
    // Two letters that overlap and go around what they enclose in different ways.
    Path other;
    other.moveTo({5, 0});
    other.lineTo({5, 10});
    other.lineTo({15, 10});
    other.lineTo({15, 0});
    other.close();
    const auto lettersOf = [&](const TextChunk&) { return std::vector<Path>{outlineOf({0, 0, 10, 10}), other}; };
    ClipPath clip;
    clip.outlines.push_back({{}, FillRule::EvenOdd, Matrix::translation(100, 0), nullptr, nullptr, {TextChunk()}});
    ClipStack clips(Matrix::scaling(2, 2), 1, lettersOf);
    clips.push(clip);
    EXPECT_EQ(clips.top().rect, (QsdRect{200, 0, 30, 20}));
    EXPECT_FALSE(clips.top().area) << "all of the rectangle";
    ClipStack none(Matrix(), 1);
    none.push(clip);
    EXPECT_TRUE(none.top().rect->isEmpty());
}
