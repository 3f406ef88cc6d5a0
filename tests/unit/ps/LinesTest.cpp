#include "tests/unit/ps/TestDevice.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

class Lines : public ::testing::Test {
protected:
    Lines() { open.settle(); }

    std::string polyline(const std::vector<QsdPoint>& points)
    {
        open.device.drawPolyLine(open.palette.get(), points.size(), points.data());
        return open.device.taken();
    }
    std::string polygon(const std::vector<QsdPoint>& points)
    {
        open.device.fillPolyLine(open.palette.get(), points.size(), points.data(), false);
        return open.device.taken();
    }
    std::string relative(QsdPoint origin, const std::vector<QsdDeltaPoint>& deltas)
    {
        open.device.drawPolyLine(open.palette.get(), origin, deltas.size() + 1, deltas.data());
        return open.device.taken();
    }
    std::string segments(unsigned long count)
    {
        std::vector<QsdPoint> starts(count);
        std::vector<QsdPoint> ends(count, QsdPoint{1, 1});
        open.device.drawSegments(open.palette.get(), count, starts.data(), ends.data());
        return open.device.taken();
    }

    OpenDevice open;
};

std::vector<QsdPoint> diagonal(int count)
{
    std::vector<QsdPoint> points;
    for (int i = 0; i < count; ++i) {
        points.push_back({i, i});
    }
    return points;
}

unsigned long occurrences(const std::string& text, const std::string& part)
{
    unsigned long count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

TEST_F(Lines, LineIsOnePath)
{
    open.device.drawLine(open.palette.get(), {10, 20}, {30, 40});
    EXPECT_EQ(open.device.taken(), "n 10 20 M 30 40 L s\n");
}

TEST_F(Lines, LineKeepsExtremeCoordinates)
{
    open.device.drawLine(open.palette.get(), {INT32_MIN, INT32_MAX}, {-1, 0});
    EXPECT_EQ(open.device.taken(), "n -2147483648 2147483647 M -1 0 L s\n");
}

TEST_F(Lines, FirstDrawingWritesStateAndThenThePath)
{
    OpenDevice fresh;
    fresh.device.drawLine(fresh.palette.get(), {0, 0}, {1, 2});
    EXPECT_EQ(fresh.device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\nn 0 0 M 1 2 L s\n");
}

TEST_F(Lines, PointsWriteNothingNotEvenState)
{
    OpenDevice fresh;
    const QsdPoint points[] = {{1, 2}, {3, 4}};
    QsdHandle<QsdPalette> clipped = QsdHandle<QsdPalette>::Adopt(new QsdPalette(fresh.palette.get()));
    clipped->setClipRegion(QsdRegion(QsdRect{0, 0, 5, 5}));
    fresh.device.drawPoint(clipped.get(), points[0]);
    fresh.device.drawPoints(clipped.get(), 2, points);
    EXPECT_EQ(fresh.device.taken(), "");
}

TEST_F(Lines, NoSegmentsWriteTheStartAlone)
{
    EXPECT_EQ(segments(0), "n ");
}

TEST_F(Lines, SegmentsStandOneToALine)
{
    const QsdPoint starts[] = {{1, 2}, {5, 6}};
    const QsdPoint ends[] = {{3, 4}, {7, 8}};
    open.device.drawSegments(open.palette.get(), 2, starts, ends);
    EXPECT_EQ(open.device.taken(), "n 1 2 M 3 4 L\n5 6 M 7 8 L\n s\n");
}

TEST_F(Lines, SegmentsAreStrokedEvery512)
{
    const std::string exact = segments(512);
    EXPECT_EQ(occurrences(exact, " s\n"), 1U);
    EXPECT_TRUE(exact.ends_with("0 0 M 1 1 L\n s\n"));
    const std::string more = segments(513);
    EXPECT_EQ(occurrences(more, " s\n"), 2U);
    EXPECT_TRUE(more.ends_with("0 0 M 1 1 L\n s\n0 0 M 1 1 L\n s\n"));
    EXPECT_EQ(occurrences(more, "n "), 1U);
}

TEST_F(Lines, PolylineOfOnePoint)
{
    EXPECT_EQ(polyline({{3, 4}}), "n 3 4 M s\n");
}

TEST_F(Lines, PolylineOfEqualPoints)
{
    EXPECT_EQ(polyline({{3, 4}, {3, 4}, {3, 4}}), "n 3 4 M s\n");
}

TEST_F(Lines, PolylineOfNoPointsWritesNothing)
{
    open.device.drawPolyLine(open.palette.get(), 0, static_cast<const QsdPoint*>(nullptr));
    open.device.drawPolyLine(open.palette.get(), QsdPoint{1, 1}, 0, nullptr);
    open.device.fillPolyLine(open.palette.get(), 0, static_cast<const QsdPoint*>(nullptr), false);
    open.device.fillPolyLine(open.palette.get(), QsdPoint{1, 1}, 0, nullptr, false);
    EXPECT_EQ(open.device.taken(), "");
}

TEST_F(Lines, PolylineSkipsRepeatedPoints)
{
    EXPECT_EQ(polyline({{0, 0}, {0, 0}, {1, 0}, {1, 0}, {0, 0}}), "n 0 0 M 1 0 L 0 0 L s\n");
}

TEST_F(Lines, PolylineOfTwelvePointsTakesTwoLines)
{
    EXPECT_EQ(polyline(diagonal(12)), "n 0 0 M 1 1 L 2 2 L 3 3 L 4 4 L 5 5 L 6 6 L 7 7 L 8 8 L 9 9 L 10 10 L\n"
                                      "11 11 L s\n");
}

TEST_F(Lines, PolylineOfElevenPointsEndsItsLineBeforeTheStroke)
{
    EXPECT_TRUE(polyline(diagonal(11)).ends_with("10 10 L\ns\n"));
}

TEST_F(Lines, LongPolylineStaysOnePath)
{
    const std::string text = polyline(diagonal(5000));
    EXPECT_EQ(occurrences(text, " M "), 1U);
    EXPECT_EQ(occurrences(text, "s"), 1U);
}

TEST_F(Lines, RelativePolyline)
{
    EXPECT_EQ(relative({5, 6}, {{1, 2}, {-3, -4}}), "n 5 6 M 1 2 rL  -3 -4 rL  s\n");
    EXPECT_EQ(relative({5, 6}, {}), "n 5 6 M s\n");
}

TEST_F(Lines, RelativePolylineOmitsZeroSteps)
{
    EXPECT_EQ(relative({5, 6}, {{1, 2}, {0, 0}, {0, 3}}), "n 5 6 M 1 2 rL  0 3 rL  s\n");
}

TEST_F(Lines, RelativePolylineBreaksAfterTen)
{
    EXPECT_EQ(relative({0, 0}, std::vector<QsdDeltaPoint>(11, QsdDeltaPoint{1, 0})),
              "n 0 0 M 1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL  1 0 rL \n1 0 rL  s\n");
}

TEST_F(Lines, PolygonEndsItsLineBeforeTheFill)
{
    EXPECT_EQ(polygon({{0, 0}, {10, 0}, {10, 10}, {10, 10}}), "n 0 0 M 10 0 L  10 10 L  \n eofill\n");
    EXPECT_EQ(polygon(diagonal(11)),
              "n 0 0 M 1 1 L  2 2 L  3 3 L  4 4 L  5 5 L  6 6 L  7 7 L  8 8 L  9 9 L  10 10 L \n eofill\n");
}

TEST_F(Lines, PolygonOfOnePointFillsOnTheSameLine)
{
    EXPECT_EQ(polygon({{7, 8}}), "n 7 8 M  eofill\n");
}

TEST_F(Lines, RelativePolygon)
{
    const QsdDeltaPoint deltas[] = {{10, 0}, {0, 0}, {0, 10}};
    open.device.fillPolyLine(open.palette.get(), {1, 2}, 4, deltas, true);
    EXPECT_EQ(open.device.taken(), "n 1 2 M 10 0 rL  0 10 rL  \n eofill\n");
    open.device.fillPolyLine(open.palette.get(), {1, 2}, 1, nullptr, true);
    EXPECT_EQ(open.device.taken(), "n 1 2 M  eofill\n");
}

TEST_F(Lines, RectangleOutlineNamesThePositionFirst)
{
    open.device.drawRectangle(open.palette.get(), {-1, 2, 30, 4000000000U});
    EXPECT_EQ(open.device.taken(), "-1 2 30 4000000000 rectstroke\n");
}

TEST_F(Lines, FilledRectangleNamesTheSizeFirst)
{
    open.device.fillRectangle(open.palette.get(), {1, 2, 30, 40});
    EXPECT_EQ(open.device.taken(), "n 30 40 1 2 rect  eofill\n");
    open.palette->setFillRule(QsdWindingRule);
    open.device.fillRectangle(open.palette.get(), {1, 2, 30, 40});
    EXPECT_EQ(open.device.taken(), "n 30 40 1 2 rect  fill\n");
}

} // namespace
