#include "page/line_fit.h"
#include "page/stroker.h"
#include "page/tiling.h"

#include <gtest/gtest.h>
#include <limits>
#include <sstream>

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

Rings areaOf(const Path& path, const StrokeStyle& style, const StrokeFrame& frame)
{
    Report report;
    const Rings area = strokeArea(path, style, frame, report);
    EXPECT_FALSE(report.anythingApproximated());
    return area;
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
    EXPECT_EQ(boundsOf(areaOf(line(), style, {Matrix(), 1, 0.5, {}})), (QsdRect{0, -5, 100, 10}));
    style.cap = LineCap::Square;
    EXPECT_EQ(boundsOf(areaOf(line(), style, {Matrix(), 1, 0.5, {}})), (QsdRect{-5, -5, 110, 10}));
}

TEST(Stroker, FollowsUnevenScales)
{
    StrokeStyle style;
    style.width = 10;
    EXPECT_EQ(boundsOf(areaOf(line(), style, {Matrix::scaling(1, 3), 1, 0.5, {}})), (QsdRect{0, -15, 100, 30}));
    style.nonScaling = true;
    EXPECT_EQ(boundsOf(areaOf(line(), style, {Matrix::scaling(1, 3), 1, 0.5, {}})), (QsdRect{0, -5, 100, 10}));
}

TEST(Stroker, CutsDashes)
{
    StrokeStyle style;
    style.width = 10;
    style.dashes = {30, 20};
    const Rings dashes = areaOf(line(), style, {Matrix(), 1, 0.5, {}});
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
    EXPECT_TRUE(areaOf(dot, style, {Matrix(), 1, 0.1, {}}).empty());
    style.cap = LineCap::Square;
    EXPECT_EQ(asRectangle(areaOf(dot, style, {Matrix(), 1, 0.1, {}})), (QsdRect{0, 0, 10, 10}));
    style.cap = LineCap::Round;
    EXPECT_GT(areaOf(dot, style, {Matrix(), 1, 0.1, {}}).front().size(), 8U);
}

TEST(Stroker, DashesWithoutLengthAreDots)
{
    StrokeStyle style;
    style.width = 10;
    style.dashes = {0, 40};
    EXPECT_TRUE(areaOf(line(), style, {Matrix(), 1, 0.1, {}}).empty()) << "butt ends show nothing";
    style.cap = LineCap::Square;
    const Rings squares = areaOf(line(), style, {Matrix(), 1, 0.1, {}});
    ASSERT_EQ(squares.size(), 3U);
    EXPECT_EQ(asRectangle({squares[1]}), (QsdRect{35, -5, 10, 10}));
    style.cap = LineCap::Round;
    const Rings discs = areaOf(line(), style, {Matrix(), 1, 0.1, {}});
    ASSERT_EQ(discs.size(), 3U);
    EXPECT_EQ(boundsOf({discs[2]}), (QsdRect{75, -5, 10, 10}));
    EXPECT_GT(discs[2].size(), 8U);
}

TEST(Stroker, DotsOfALineLieInItsDirection)
{
    Path slope;
    slope.moveTo({0, 0});
    slope.lineTo({100, 100});
    StrokeStyle style;
    style.width = 10;
    style.cap = LineCap::Square;
    style.dashes = {0, 1000};
    style.dashOffset = -70.710678;
    EXPECT_EQ(boundsOf(areaOf(slope, style, {Matrix(), 1, 0.1, {}})), (QsdRect{43, 43, 14, 14}));
}

TEST(Stroker, DotsAreDashedToo)
{
    Path dot;
    dot.moveTo({5, 5});
    dot.close();
    StrokeStyle style;
    style.width = 10;
    style.cap = LineCap::Square;
    style.dashes = {3, 4};
    EXPECT_EQ(asRectangle(areaOf(dot, style, {Matrix(), 1, 0.1, {}})), (QsdRect{0, 0, 10, 10}));
    style.dashOffset = 4;
    EXPECT_TRUE(areaOf(dot, style, {Matrix(), 1, 0.1, {}}).empty()) << "in a gap";
}

TEST(Stroker, EndlessLinesAndGapsComeToAnEnd)
{
    Path endless;
    endless.moveTo({0, 0});
    endless.lineTo({1e300, 0});
    StrokeStyle style;
    style.width = 10;
    style.dashes = {30, 1e300};
    EXPECT_EQ(asRectangle(areaOf(endless, style, {Matrix::scaling(2, 2), 1, 0.5, {}})), (QsdRect{0, -10, 60, 20}));
    style.dashes = {30, 20};
    const Rings seen = areaOf(endless, style, {Matrix(), 1, 0.5, QsdRect{40, -5, 60, 10}});
    ASSERT_FALSE(seen.empty());
    EXPECT_LT(seen.size(), 5U);
    EXPECT_EQ(intersection(seen, FillRule::NonZero, ringsOf(QsdRect{40, -5, 50, 10})),
              intersection(ringsOf(QsdRect{50, -5, 30, 10}), FillRule::NonZero, ringsOf(QsdRect{40, -5, 50, 10})));
}

TEST(Stroker, LinesOfTooManyDashesAreSolidAndTold)
{
    StrokeStyle style;
    style.width = 10;
    style.dashes = {1e-5, 1e-5};
    Report report;
    EXPECT_EQ(asRectangle(strokeArea(line(), style, {Matrix(), 1, 0.5, {}}, report)), (QsdRect{0, -5, 100, 10}));
    std::ostringstream told;
    report.print(told, "in");
    EXPECT_EQ(told.str(), "in: 1 line drawn without its dashes: there are too many\n");
}

TEST(Stroker, AnyOffsetIsAPlaceInThePattern)
{
    StrokeStyle style;
    style.width = 10;
    style.dashes = {30, 20};
    const auto first = [&](double offset) {
        style.dashOffset = offset;
        return boundsOf({areaOf(line(), style, {Matrix(), 1, 0.5, {}}).front()});
    };
    EXPECT_EQ(first(10), (QsdRect{0, -5, 20, 10}));
    EXPECT_EQ(first(-20), (QsdRect{20, -5, 30, 10}));
    EXPECT_EQ(first(5e12 + 10), (QsdRect{0, -5, 20, 10}));
    EXPECT_EQ(first(-5e12 - 20), (QsdRect{20, -5, 30, 10}));
    EXPECT_EQ(first(std::numeric_limits<double>::quiet_NaN()), (QsdRect{0, -5, 30, 10}));
    EXPECT_EQ(first(-std::numeric_limits<double>::infinity()), (QsdRect{0, -5, 30, 10}));
}
