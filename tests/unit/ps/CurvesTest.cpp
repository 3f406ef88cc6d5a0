#include "tests/unit/ps/TestDevice.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

class Curves : public ::testing::Test {
protected:
    Curves() { open.settle(); }

    std::string arc(QsdRect rect, float start, float range)
    {
        open.device.drawArc(open.palette.get(), rect, start, range);
        return open.device.taken();
    }
    std::string bezier(unsigned long count)
    {
        open.device.drawBezier(open.palette.get(), count, points);
        return open.device.taken();
    }
    std::string closed(unsigned long count)
    {
        open.device.drawClosedBezier(open.palette.get(), count, points);
        return open.device.taken();
    }
    std::string filled(unsigned long count)
    {
        open.device.fillBezier(open.palette.get(), count, points);
        return open.device.taken();
    }

    OpenDevice open;
    const QsdPoint points[8] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}, {10, 11}, {12, 13}, {-14, -15}};
};

TEST_F(Curves, ArcOfAnEllipse)
{
    EXPECT_EQ(arc({10, 20, 100, 50}, 0, 90),
              "n matrix currentmatrix 60 45 t 50 25 scale 1 -1 scale  0 0 1 0 90 arc setmatrix s\n");
}

TEST_F(Curves, NegativeRangeRunsTheOtherWay)
{
    EXPECT_NE(arc({0, 0, 10, 10}, 90, -45).find("0 0 1 45 90 arc"), std::string::npos);
}

TEST_F(Curves, StartIsCutOffAndEndRounded)
{
    EXPECT_NE(arc({0, 0, 10, 10}, 10.7F, 20.6F).find("0 0 1 10 31 arc"), std::string::npos);
    EXPECT_NE(arc({0, 0, 10, 10}, 10.7F, 20.9F).find("0 0 1 10 32 arc"), std::string::npos);
    EXPECT_NE(arc({0, 0, 10, 10}, -10.7F, 0.1F).find("0 0 1 -10 -10 arc"), std::string::npos);
}

TEST_F(Curves, HalvesDropTheOddUnit)
{
    EXPECT_EQ(arc({7, -9, 1, 3}, 0, 360),
              "n matrix currentmatrix 7 -8 t 0 1 scale 1 -1 scale  0 0 1 0 360 arc setmatrix s\n");
    EXPECT_NE(arc({0, 0, 0, 0}, 0, 1).find(" 0 0 t 0 0 scale "), std::string::npos);
}

TEST_F(Curves, AnglesThatNoIntegerHoldsAreHarmless)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_NE(arc({0, 0, 2, 2}, 5, nan).find("0 0 1 5 0 arc"), std::string::npos);
    EXPECT_NE(arc({0, 0, 2, 2}, infinity, 1).find("0 0 1 9000000000000000000 9000000000000000000 arc"),
              std::string::npos);
    EXPECT_NE(arc({INT32_MAX, 0, UINT32_MAX, 2}, 0, 1).find(" 4294967294 1 t 2147483647 1 scale "), std::string::npos);
}

TEST_F(Curves, FilledArcIsASliceOrAChord)
{
    open.device.fillArc(open.palette.get(), {10, 20, 100, 50}, 0, 90);
    EXPECT_EQ(open.device.taken(),
              "n matrix currentmatrix 60 45 t 50 25 scale 0 0 M 1 -1 scale  0 0 1 0 90 arc setmatrix\n eofill\n");
    for (const std::uint16_t mode : {std::uint16_t{QsdArcChord}, std::uint16_t{2}}) {
        open.palette->setArcMode(mode);
        open.device.fillArc(open.palette.get(), {10, 20, 100, 50}, 0, 90);
        EXPECT_EQ(open.device.taken(),
                  "n matrix currentmatrix 60 45 t 50 25 scale 1 -1 scale  0 0 1 0 90 arc setmatrix\n eofill\n");
    }
}

TEST_F(Curves, BezierByPointCount)
{
    EXPECT_EQ(bezier(0), "");
    EXPECT_EQ(bezier(1), "");
    EXPECT_EQ(bezier(2), "n 0 1 M 2 3 L s\n");
    EXPECT_EQ(bezier(3), "n 0 1 M 2 3 2 3 4 5 curveto s\n");
    EXPECT_EQ(bezier(4), "n 0 1 M 2 3 4 5 6 7 curveto\ns\n");
    EXPECT_EQ(bezier(5), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 L s\n");
    EXPECT_EQ(bezier(6), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 8 9 10 11 curveto s\n");
    EXPECT_EQ(bezier(7), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 10 11 12 13 curveto\ns\n");
    EXPECT_EQ(bezier(8), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 10 11 12 13 curveto\n-14 -15 L s\n");
}

TEST_F(Curves, ClosedBezierEndsOnItsStart)
{
    EXPECT_EQ(closed(1), "");
    EXPECT_EQ(closed(2), "n 0 1 M 2 3 L s\n");
    EXPECT_EQ(closed(3), "n 0 1 M 2 3 4 5 0 1 curveto s\n");
    EXPECT_EQ(closed(4), "n 0 1 M 2 3 4 5 6 7 curveto\n0 1 L s\n");
    EXPECT_EQ(closed(5), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 8 9 0 1 curveto s\n");
    EXPECT_EQ(closed(6), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 10 11 0 1 curveto s\n");
    EXPECT_EQ(closed(7), "n 0 1 M 2 3 4 5 6 7 curveto\n8 9 10 11 12 13 curveto\n0 1 L s\n");
}

TEST_F(Curves, FilledBezier)
{
    EXPECT_EQ(filled(1), "");
    EXPECT_EQ(filled(2), "n 0 1 M 2 3 L s\n");
    EXPECT_EQ(filled(3), "n 0 1 M 2 3 4 5 0 1 curveto  eofill\n");
    EXPECT_EQ(filled(4), "n 0 1 M 2 3 4 5 6 7 curveto 0 1 L  eofill\n");
    EXPECT_EQ(filled(5), "n 0 1 M 2 3 4 5 6 7 curveto 8 9 8 9 0 1 curveto  eofill\n");
    EXPECT_EQ(filled(6), "n 0 1 M 2 3 4 5 6 7 curveto 8 9 10 11 0 1 curveto  eofill\n");
    EXPECT_EQ(filled(7), "n 0 1 M 2 3 4 5 6 7 curveto 8 9 10 11 12 13 curveto 0 1 L  eofill\n");
}

TEST_F(Curves, TooFewPointsLeaveTheStateAlone)
{
    OpenDevice fresh;
    fresh.device.drawBezier(fresh.palette.get(), 1, points);
    fresh.device.drawClosedBezier(fresh.palette.get(), 1, points);
    fresh.device.fillBezier(fresh.palette.get(), 0, nullptr);
    EXPECT_EQ(fresh.device.taken(), "");
}

TEST_F(Curves, PathsAreFilledTogether)
{
    const QsdPoint ring[] = {{0, 0}, {9, 0}, {9, 0}, {9, 9}};
    const QsdPoint one[] = {{5, 5}};
    const QsdPointArray own(4, ring);
    QsdPointArray reference;
    reference.referTo(&own);
    const QsdPointArray arrays[] = {own, QsdPointArray(1, one), reference, QsdPointArray()};
    open.device.fillPaths(open.palette.get(), 4, arrays);
    EXPECT_EQ(open.device.taken(), "n 0 0 M 9 0 L 9 9 L \n0 0 M 9 0 L 9 9 L \n eofill\n");
}

TEST_F(Curves, PathsWithoutSubPathsAreStillFilled)
{
    const QsdPoint one[] = {{5, 5}};
    const QsdPointArray single(1, one);
    open.device.fillPaths(open.palette.get(), 1, &single);
    EXPECT_EQ(open.device.taken(), "n  eofill\n");
    open.device.fillPaths(open.palette.get(), 0, nullptr);
    EXPECT_EQ(open.device.taken(), "n  eofill\n");
}

} // namespace
