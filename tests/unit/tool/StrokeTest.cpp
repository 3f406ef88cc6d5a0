#include "page/line_fit.h"
#include "page/stroker.h"
#include "page/tiling.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

Chain corner(bool closed)
{
    return {{{0, 0}, {100, 0}, {100, 100}}, closed};
}

Path line()
{
    Path path;
    path.moveTo({0, 0});
    path.lineTo({100, 0});
    return path;
}

} // namespace

TEST(LineFit, PlainLinesFit)
{
    StrokeStyle style;
    EXPECT_TRUE(fitsLines({corner(false)}, style));
    style.join = LineJoin::Round;
    EXPECT_FALSE(fitsLines({corner(false)}, style));
    EXPECT_TRUE(fitsLines({{{{0, 0}, {100, 0}, {200, 5}}, false}}, style)) << "hardly a corner";
}

TEST(LineFit, CapsOnlyMatterAtEnds)
{
    StrokeStyle style;
    style.cap = LineCap::Round;
    EXPECT_FALSE(fitsLines({corner(false)}, style));
    EXPECT_TRUE(fitsLines({corner(true)}, style));
}

TEST(LineFit, SharpCornersBetweenTheLimitsDoNotFit)
{
    const Chain sharp{{{0, 0}, {100, 0}, {0, 35}}, false}; // a mitre of about six widths
    StrokeStyle style;
    EXPECT_FALSE(fitsLines({sharp}, style));
    style.miterLimit = 10;
    EXPECT_TRUE(fitsLines({sharp}, style));
}

TEST(LineFit, ClosedLinesBeginInTheMiddleOfASide)
{
    const Rings lines = linesOf({corner(true)}, 2);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].front(), (QsdPoint{50, 50}));
    EXPECT_EQ(lines[0].size(), 5U);
}

TEST(Stroker, OutlinesALine)
{
    StrokeStyle style;
    style.width = 10;
    EXPECT_EQ(boundsOf(strokeArea(line(), style, Matrix(), 1, 0.5)), (QsdRect{0, -5, 100, 10}));
    style.cap = LineCap::Square;
    EXPECT_EQ(boundsOf(strokeArea(line(), style, Matrix(), 1, 0.5)), (QsdRect{-5, -5, 110, 10}));
}

TEST(Stroker, FollowsUnevenScales)
{
    StrokeStyle style;
    style.width = 10;
    EXPECT_EQ(boundsOf(strokeArea(line(), style, Matrix::scaling(1, 3), 1, 0.5)), (QsdRect{0, -15, 100, 30}));
    style.nonScaling = true;
    EXPECT_EQ(boundsOf(strokeArea(line(), style, Matrix::scaling(1, 3), 1, 0.5)), (QsdRect{0, -5, 100, 10}));
}

TEST(Stroker, CutsDashes)
{
    StrokeStyle style;
    style.width = 10;
    style.dashes = {30, 20};
    const Rings dashes = strokeArea(line(), style, Matrix(), 1, 0.5);
    ASSERT_EQ(dashes.size(), 2U);
    EXPECT_EQ(boundsOf({dashes[0]}), (QsdRect{0, -5, 30, 10}));
    EXPECT_EQ(boundsOf({dashes[1]}), (QsdRect{50, -5, 30, 10}));
}

TEST(Stroker, DotsHaveTheShapeOfTheirCaps)
{
    Path dot;
    dot.moveTo({5, 5});
    dot.lineTo({5, 5});
    StrokeStyle style;
    style.width = 10;
    EXPECT_TRUE(strokeArea(dot, style, Matrix(), 1, 0.1).empty());
    style.cap = LineCap::Square;
    EXPECT_EQ(asRectangle(strokeArea(dot, style, Matrix(), 1, 0.1)), (QsdRect{0, 0, 10, 10}));
    style.cap = LineCap::Round;
    EXPECT_GT(strokeArea(dot, style, Matrix(), 1, 0.1).front().size(), 8U);
}
