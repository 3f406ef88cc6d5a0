#include "tests/unit/ps/TestDevice.h"

#include <gtest/gtest.h>

namespace {

class Clip : public ::testing::Test {
protected:
    std::string clipped(const QsdRegion& region)
    {
        open.device.clip(&region);
        return open.device.taken();
    }
    std::string clipped(const QsdRect& rect)
    {
        open.device.clip(&rect);
        return open.device.taken();
    }
    std::string unclippedByRect()
    {
        open.device.clip(static_cast<const QsdRect*>(nullptr));
        return open.device.taken();
    }
    std::string unclippedByRegion()
    {
        open.device.clip(static_cast<const QsdRegion*>(nullptr));
        return open.device.taken();
    }
    static QsdRegion twoRects()
    {
        QsdRegion region;
        region.add({0, 0, 10, 10});
        region.add({20, 0, 5, 5});
        return region;
    }

    OpenDevice open;
};

TEST_F(Clip, RegionOfTwoRectanglesStandsOnOneLine)
{
    EXPECT_EQ(clipped(twoRects()), " rc gsave  n 10 10 0 0 rect 5 5 20 0 rect clip n\n");
}

TEST_F(Clip, RectangleUsesTheOperator)
{
    EXPECT_EQ(clipped(QsdRect{5, 6, 70, 80}), " rc gsave 5 6 70 80 rectclip\n");
}

TEST_F(Clip, EmptyRegionHidesEverything)
{
    EXPECT_EQ(clipped(QsdRegion()), " rc gsave clip n\n");
    EXPECT_EQ(clipped(QsdRegion()), "");
}

TEST_F(Clip, NothingIsRemovedWhenThereIsNone)
{
    EXPECT_EQ(unclippedByRect(), "");
    EXPECT_EQ(unclippedByRegion(), "");
    EXPECT_EQ(clipped(QsdRegion::Full()), "");
}

TEST_F(Clip, RemovalEndsTheLevel)
{
    clipped(QsdRect{5, 6, 70, 80});
    EXPECT_EQ(unclippedByRect(), " rc gsave\n");
    EXPECT_EQ(unclippedByRect(), "");
    clipped(twoRects());
    EXPECT_EQ(unclippedByRegion(), " rc gsave\n");
    clipped(twoRects());
    EXPECT_EQ(clipped(QsdRegion::Full()), " rc gsave\n");
}

TEST_F(Clip, TheSameClipIsWrittenOnce)
{
    EXPECT_NE(clipped(QsdRect{5, 6, 70, 80}), "");
    EXPECT_EQ(clipped(QsdRect{5, 6, 70, 80}), "");
    EXPECT_EQ(clipped(QsdRegion(QsdRect{5, 6, 70, 80})), "");
    open.palette->setClipRegion(twoRects());
    open.device.drawLine(open.palette.get(), {0, 0}, {1, 1});
    EXPECT_EQ(open.device.taken().find(" rc gsave  n 10 10 0 0 rect 5 5 20 0 rect clip n\n"), 0U);
    open.device.drawLine(open.palette.get(), {0, 0}, {1, 1});
    EXPECT_EQ(open.device.taken(), "n 0 0 M 1 1 L s\n");
}

TEST_F(Clip, TransformerIsWrittenInsideTheNewLevel)
{
    open.device.setTransformer(QsdTransformer(2, 0, 0, 2, 0, 0));
    open.device.taken();
    const std::string matrix = "realmatrix setmatrix \n[2 0 0 2 0 0] concat\n";
    EXPECT_EQ(clipped(QsdRect{5, 6, 70, 80}), " rc gsave " + matrix + "5 6 70 80 rectclip\n");
    EXPECT_EQ(clipped(twoRects()), " rc gsave " + matrix + " n 10 10 0 0 rect 5 5 20 0 rect clip n\n");
    EXPECT_EQ(clipped(QsdRegion()), " rc gsave clip n\n" + matrix);
    EXPECT_EQ(unclippedByRect(), " rc gsave\n" + matrix);
    clipped(QsdRegion());
    EXPECT_EQ(unclippedByRegion(), " rc gsave\n" + matrix);
}

TEST_F(Clip, InitialClipStartsAfresh)
{
    clipped(QsdRect{5, 6, 70, 80});
    open.device.initClip({0, 0, 595, 842});
    EXPECT_EQ(open.device.taken(), "initclip n 595 842 0 0 rect clip gsave\n");
    EXPECT_EQ(unclippedByRect(), "");
}

TEST_F(Clip, NewPageKeepsIt)
{
    clipped(QsdRect{5, 6, 70, 80});
    open.device.newPage();
    open.device.taken();
    EXPECT_EQ(clipped(QsdRect{5, 6, 70, 80}), "");
}

TEST_F(Clip, NewDocumentStartsWithoutOne)
{
    clipped(QsdRect{5, 6, 70, 80});
    open.device.end();
    open.device.initDevice("unused", nullptr);
    open.device.taken();
    EXPECT_EQ(unclippedByRect(), "");
}

TEST_F(Clip, CheckedClipsGoThroughTheVirtualOperation)
{
    class Counting : public TestDevice {
    public:
        using QsdPSDevice::clip;
        using TestDevice::TestDevice;
        void clip(const QsdRegion*) const override { ++calls; }
        mutable int calls = 0;
    };
    Counting device(&open.display);
    device.checkClip(QsdRegion::Full());
    EXPECT_EQ(device.calls, 0);
    device.checkClip(QsdRegion());
    EXPECT_EQ(device.calls, 1);
}

} // namespace
