// The operations that ports have from their primitives.
#include "RecordingPort.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

class PortDefaults : public testing::Test {
protected:
    PortDefaults() : palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display))), port(&display, 100, 50) {}

    QsdMemoryDisplay display;
    QsdHandle<QsdPalette> palette;
    RecordingPort port;
};

TEST_F(PortDefaults, AnyPortIsNoDevice)
{
    EXPECT_FALSE(port.isADevice());
    EXPECT_FALSE(port.isBad());
    EXPECT_FALSE(port.initDevice("name", nullptr));
    EXPECT_FALSE(port.newPage());
    port.end();
    port.send("text");
    port.flushRedraw();
    EXPECT_EQ(port.display(), &display);
    EXPECT_EQ(port.width(), 100U);
    EXPECT_EQ(port.height(), 50U);
    EXPECT_TRUE(port.calls.empty());
}

TEST_F(PortDefaults, ClearsInTheBackground)
{
    palette->setFillStyle(QsdFillMaskPattern);
    port.clearArea(palette.get(), {1, 2, 3, 4});
    port.clear(palette.get());
    EXPECT_EQ(port.calls, (Calls{"fillRectangle 1,2 3x4", "fillRectangle 0,0 100x50"}));
    EXPECT_EQ(port.last->foreground(), display.white());
    EXPECT_EQ(port.last->fillStyle(), QsdFillPattern);
    EXPECT_EQ(palette->foreground(), display.black());
}

TEST_F(PortDefaults, RoundRectanglesStayInTheirRectangle)
{
    port.drawRoundRectangle(palette.get(), {10, 20, 40, 30}, 5);
    ASSERT_EQ(port.calls, (Calls{"drawClosedBezier"}));
    ASSERT_EQ(port.points.size() % 3, 0U) << "the last curve leads back to the start";
    EXPECT_EQ(port.bounds(), (QsdRect{10, 20, 40, 30}));
    EXPECT_EQ(port.points.front(), (QsdPoint{15, 20}));
    port.calls.clear();
    port.fillRoundRectangle(palette.get(), {10, 20, 40, 30}, 60000);
    EXPECT_EQ(port.bounds(), (QsdRect{10, 20, 40, 30}));
    for (const QsdPoint& p : port.points) {
        EXPECT_FALSE(p.x < 12 && p.y < 22) << "the corner is round";
    }
}

TEST_F(PortDefaults, ArrowsEndInATip)
{
    port.drawArrow(palette.get(), {0, 0}, {100, 0}, 0.5F);
    ASSERT_EQ(port.calls, (Calls{"drawLine 0,0 100,0", "fillPolyLine"}));
    ASSERT_EQ(port.points.size(), 3U);
    EXPECT_EQ(port.points[0], (QsdPoint{50, 0}));
    EXPECT_LT(port.points[1].x, 50);
    EXPECT_EQ(port.points[1].y, -port.points[2].y);
    port.calls.clear();
    port.drawArrow(palette.get(), {3, 3}, {3, 3}, 1);
    EXPECT_EQ(port.calls, (Calls{"drawLine 3,3 3,3"}));
}

TEST_F(PortDefaults, Markers)
{
    const QsdPoint at{50, 60};
    port.drawMarker(palette.get(), at, QsdMarkerPlus, 10);
    port.drawMarker(palette.get(), at, QsdMarkerCross, 10);
    port.drawMarker(palette.get(), at, QsdMarkerSquare, 10);
    port.drawMarker(palette.get(), at, QsdMarkerFilledSquare, 10);
    port.drawMarker(palette.get(), at, QsdMarkerCircle, 10);
    port.drawMarker(palette.get(), at, QsdMarkerFilledCircle, 10);
    EXPECT_EQ(port.calls, (Calls{"drawLine 45,60 55,60", "drawLine 50,55 50,65", "drawLine 45,55 55,65",
                                 "drawLine 45,65 55,55", "drawRectangle 45,55 10x10", "fillRectangle 45,55 10x10",
                                 "drawArc 45,55 10x10 0 360", "fillArc 45,55 10x10 0 360"}));
    for (const QsdMarkerType type :
         {QsdMarkerDiamond, QsdMarkerFilledDiamond, QsdMarkerTriangle, QsdMarkerFilledTriangle}) {
        port.calls.clear();
        port.drawMarker(palette.get(), at, type, 10);
        EXPECT_EQ(port.calls.size(), 1U);
        EXPECT_EQ(port.bounds(), (QsdRect{45, 55, 10, 10}));
    }
    port.calls.clear();
    const QsdPoint both[] = {{1, 1}, {9, 9}};
    port.drawMarkers(palette.get(), 2, both, QsdMarkerSquare, 2);
    EXPECT_EQ(port.calls, (Calls{"drawRectangle 0,0 2x2", "drawRectangle 8,8 2x2"}));
}

TEST_F(PortDefaults, ReliefsAreLitFromAbove)
{
    port.drawReliefRectangle(palette.get(), palette.get(), palette.get(), {0, 0, 20, 10}, 2);
    EXPECT_EQ(port.calls, (Calls{"fillRectangle 0,0 20x10", "fillPolyLine", "fillPolyLine"}));
    EXPECT_EQ(port.bounds(), (QsdRect{0, 0, 20, 10}));
    port.calls.clear();
    port.drawReliefRectangle(palette.get(), palette.get(), palette.get(), {0, 0, 20, 10}, 0);
    EXPECT_EQ(port.calls, (Calls{"fillRectangle 0,0 20x10"}));
    port.calls.clear();
    port.drawReliefDiamond(palette.get(), palette.get(), palette.get(), {0, 0, 20, 10}, 60000);
    EXPECT_EQ(port.calls.size(), 3U);
    EXPECT_EQ(port.bounds(), (QsdRect{0, 5, 20, 5})) << "the dark half is the lower one";
    port.calls.clear();
    port.drawReliefLine(palette.get(), palette.get(), {0, 0}, {50, 0}, 3);
    EXPECT_EQ(port.calls, (Calls{"drawLine 0,0 50,0", "drawLine 0,3 50,3"}));
    EXPECT_EQ(port.last->lineWidth(), 3);
}

TEST_F(PortDefaults, ShadowsFallWhereTheyAreTold)
{
    port.drawShadowRectangle(palette.get(), palette.get(), {10, 10, 5, 5}, 2, QsdPositionNone);
    port.drawShadowRectangle(palette.get(), palette.get(), {10, 10, 5, 5}, 2, QsdPositionTopLeft);
    EXPECT_EQ(port.calls, (Calls{"fillRectangle 12,12 5x5", "fillRectangle 10,10 5x5", "fillRectangle 8,8 5x5",
                                 "fillRectangle 10,10 5x5"}));
}

TEST_F(PortDefaults, LabelsAreLaidOutInLines)
{
    const QsdFont& font = *palette->font();
    const int line = font.ascent() + font.descent();
    const QsdRect rect{0, 0, 200, 100};
    const QsdRegion clip(QsdRect{50, 0, 500, 500});
    palette->setClipRegion(QsdRegion(QsdRect{0, 0, 60, 60}));
    port.drawLabel(palette.get(), rect, "one\n\ntwo!", 8, &clip, QsdPositionTopLeft);
    EXPECT_EQ(port.calls, (Calls{"drawString 0," + std::to_string(font.ascent()) + " one 1",
                                 "drawString 0," + std::to_string(font.ascent() + 2 * line) + " two 1"}));
    EXPECT_EQ(port.last->clipRegion(), QsdRegion(QsdRect{50, 0, 10, 60}));
    port.calls.clear();
    port.drawLabel(palette.get(), rect, "x", -1, nullptr, QsdPositionBottomRight);
    port.drawLabel(palette.get(), rect, "x", -1, nullptr, QsdPositionNone);
    EXPECT_EQ(port.calls, (Calls{"drawString 200," + std::to_string(100 - font.descent()) + " x 2",
                                 "drawString 100," + std::to_string((100 - line + 1) / 2 + font.ascent()) + " x 16"}));
    port.calls.clear();
    port.drawLabel(palette.get(), {0, 0, 0, 5}, "x", -1, nullptr, QsdPositionNone);
    port.drawLabel(palette.get(), rect, nullptr, -1, nullptr, QsdPositionNone);
    EXPECT_TRUE(port.calls.empty());
}

TEST_F(PortDefaults, PathsAreClosed)
{
    const QsdPointArray paths[] = {QsdPointArray({{0, 0}, {5, 0}, {5, 5}}), QsdPointArray({{1, 1}}), QsdPointArray()};
    port.drawPaths(palette.get(), 3, paths);
    EXPECT_EQ(port.calls, (Calls{"drawPolyLine"}));
    EXPECT_EQ(port.points, (std::vector<QsdPoint>{{0, 0}, {5, 0}, {5, 5}, {0, 0}}));
}

TEST_F(PortDefaults, BitmapsArePlacedInTheirRectangle)
{
    const QsdBitmap bitmap(&display, 10, 20, 1);
    const QsdRect dest{100, 100, 30, 30};
    const auto placed = [&](QsdPosition position) {
        port.calls.clear();
        port.drawBitmap(palette.get(), &bitmap, dest, nullptr, position, false);
        return port.calls;
    };
    EXPECT_EQ(placed(QsdPositionNone), (Calls{"drawBitmap 0,0 10x20 110,105"}));
    EXPECT_EQ(placed(QsdPositionCenter), (Calls{"drawBitmap 0,0 10x20 110,105"}));
    EXPECT_EQ(placed(QsdPositionTopLeft), (Calls{"drawBitmap 0,0 10x20 100,100"}));
    EXPECT_EQ(placed(QsdPositionBottomRight), (Calls{"drawBitmap 0,0 10x20 120,110"}));
    EXPECT_EQ(placed(QsdPositionRight), (Calls{"drawBitmap 0,0 10x20 120,105"}));
    EXPECT_NE(port.last.get(), palette.get());
}

TEST_F(PortDefaults, PlacedBitmapsAreLimited)
{
    const QsdBitmap bitmap(&display, 10, 20, 1);
    const QsdRegion clip(QsdRect{0, 0, 7, 7});
    palette->setClipRegion(QsdRegion(QsdRect{2, 2, 90, 90}));
    port.drawBitmap(palette.get(), &bitmap, {1, 1, 8, 8}, {0, 0, 4, 40}, &clip, QsdPositionTopLeft, true);
    EXPECT_EQ(port.calls, (Calls{"drawTransparentBitmap 1,1 8x8 0,0"}));
    EXPECT_EQ(port.last->clipRegion(), QsdRegion(QsdRect{2, 2, 2, 5}));
    EXPECT_EQ(palette->clipRegion(), QsdRegion(QsdRect{2, 2, 90, 90}));
    port.calls.clear();
    port.drawBitmap(palette.get(), &bitmap, {0, 0, 0, 9}, nullptr, QsdPositionNone, false);
    port.drawBitmap(palette.get(), nullptr, {0, 0, 9, 9}, nullptr, QsdPositionNone, false);
    EXPECT_TRUE(port.calls.empty());
}

} // namespace
