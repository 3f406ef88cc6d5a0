// Which operations a derived device sees the others call.
#include "tests/unit/ps/TestDevice.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <clocale>
#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

namespace {

/// Notes calls of what it overrides; what they would have written goes into the document as ever.
class NotingDevice : public TestDevice {
public:
    using QsdPSDevice::drawBitmap;
    using QsdPSDevice::drawIString;
    using QsdPSDevice::drawString;
    using QsdPSDevice::stretchBitmap;
    using QsdPSDevice::stretchTransparentBitmap;
    using TestDevice::TestDevice;

    void setForeground(const QsdPalette* palette) const override
    {
        const std::uint16_t red = palette->foreground()->red();
        note("setForeground " + std::to_string(red) + (palette->foreground() == palette->background() ? " twice" : ""));
        QsdPSDevice::setForeground(palette);
    }
    void fillWithPattern(const QsdPalette* palette) const override
    {
        note("fillWithPattern");
        QsdPSDevice::fillWithPattern(palette);
    }
    void drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override
    {
        note("drawBezier " + std::to_string(count));
        QsdPSDevice::drawBezier(palette, count, points);
    }
    void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                    QsdPosition position) const override
    {
        note("drawString " + std::string(text) + " " + std::to_string(length) + " " + std::to_string(position));
        QsdPSDevice::drawString(palette, at, text, length, position);
    }
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const override
    {
        note("drawIString " + std::string(text) + " " + std::to_string(length) + " " + std::to_string(position));
        QsdPSDevice::drawIString(palette, at, text, length, position);
    }
    void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                       const QsdRect* clip) const override
    {
        note("stretchBitmap");
        QsdPSDevice::stretchBitmap(palette, at, bitmap, t, clip);
    }
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                  const QsdTransformer& t, const QsdRect* clip) const override
    {
        note("stretchTransparentBitmap");
        QsdPSDevice::stretchTransparentBitmap(palette, at, bitmap, t, clip);
    }
    unsigned long imageStringSize(unsigned long width) const override
    {
        note("imageStringSize " + std::to_string(width));
        return 4711;
    }
    const char* imageOperatorString() const override { return "paint it"; }

    std::vector<std::string> takenCalls() { return std::exchange(_calls, {}); }

private:
    void note(std::string call) const { _calls.push_back(std::move(call)); }

    mutable std::vector<std::string> _calls;
};

using Calls = std::vector<std::string>;

class VirtualCalls : public ::testing::Test {
protected:
    VirtualCalls()
    {
        const unsigned char mask[] = {0xF0};
        bitmap.setMask(QsdBitmap::FromBits(&display, 4, 1, mask));
        open(2);
    }
    ~VirtualCalls() override { device.end(); }

    void open(unsigned long level)
    {
        device.end();
        device.setPostScriptLevel(level);
        device.initDevice("unused", nullptr);
        palette->setBackground(QsdHandle<QsdColor>::Adopt(new QsdColor(4369, 0, 0)).get());
        device.setCurrentPalette(palette.get());
        device.taken();
        device.takenCalls();
    }
    void usePattern()
    {
        const unsigned char bits[] = {1};
        palette->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 1, bits)).get());
    }

    QsdMemoryDisplay display;
    QsdBitmap bitmap{&display, 4, 1, 24}; ///< four opaque pixels in a row
    NotingDevice device{&display};
    QsdHandle<QsdPalette> palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    const QsdPoint points[4] = {{0, 0}, {9, 0}, {9, 9}, {5, 5}};
    const QsdDeltaPoint deltas[2] = {{9, 0}, {0, 9}};
    const Calls background = {"setForeground 4369 twice"};
};

TEST_F(VirtualCalls, EveryAreaIsFilledByFillWithPattern)
{
    const Calls one = {"fillWithPattern"};
    device.fillRectangle(palette.get(), {0, 0, 9, 9});
    EXPECT_EQ(device.takenCalls(), one);
    device.fillPolyLine(palette.get(), 3, points, true);
    EXPECT_EQ(device.takenCalls(), one);
    device.fillPolyLine(palette.get(), points[0], 3, deltas, true);
    EXPECT_EQ(device.takenCalls(), one);
    device.fillArc(palette.get(), {0, 0, 9, 9}, 0, 90);
    EXPECT_EQ(device.takenCalls(), one);
    device.fillBezier(palette.get(), 4, points);
    EXPECT_EQ(device.takenCalls(), one);
    const QsdPointArray array(3, points);
    device.fillPaths(palette.get(), 1, &array);
    EXPECT_EQ(device.takenCalls(), one);
}

TEST_F(VirtualCalls, CurvesOfTwoPointsAreDrawnByDrawBezier)
{
    device.drawClosedBezier(palette.get(), 2, points);
    EXPECT_EQ(device.takenCalls(), Calls{"drawBezier 2"});
    device.fillBezier(palette.get(), 2, points);
    EXPECT_EQ(device.takenCalls(), Calls{"drawBezier 2"});
}

TEST_F(VirtualCalls, TheBackgroundOfAPatternIsWrittenBySetForeground)
{
    usePattern();
    for (const unsigned long level : {1UL, 2UL}) {
        open(level);
        device.fillWithPattern(palette.get());
        EXPECT_EQ(device.takenCalls(), (Calls{"fillWithPattern", "setForeground 4369 twice"})) << level;
    }
}

TEST_F(VirtualCalls, TheBackgroundOfATextIsWrittenBySetForeground)
{
    device.drawIString(palette.get(), {1, 2}, "text", 3, QsdPositionCenter);
    EXPECT_EQ(device.takenCalls(), (Calls{"drawIString text 3 16", "setForeground 4369 twice"}));
}

TEST_F(VirtualCalls, TheBackgroundOfABitmapIsWrittenBySetForeground)
{
    const QsdBitmap bits(&display, 8, 1, 1);
    for (const unsigned long level : {1UL, 2UL}) {
        open(level);
        device.drawBitmap(palette.get(), &bits, QsdRect{0, 0, 8, 1}, QsdPoint{0, 0});
        EXPECT_EQ(device.takenCalls(), background) << level;
        device.stretchBitmap(palette.get(), QsdPoint{0, 0}, &bits, QsdTransformer(), nullptr);
        EXPECT_EQ(device.takenCalls(), (Calls{"stretchBitmap", "setForeground 4369 twice"})) << level;
        device.drawTransparentBitmap(palette.get(), &bits, QsdRect{0, 0, 8, 1}, QsdPoint{0, 0});
        EXPECT_EQ(device.takenCalls(), Calls()) << level;
    }
}

TEST_F(VirtualCalls, WideTextsAreDrawnAsStrings)
{
    device.drawWChar(palette.get(), {1, 2}, L"wide", 4, QsdPositionCenter);
    EXPECT_EQ(device.takenCalls(), Calls{"drawString wide 4 16"});
    device.drawIWChar(palette.get(), {1, 2}, L"wide", 4, QsdPositionRight);
    EXPECT_EQ(device.takenCalls(), (Calls{"drawIString wide 4 2", "setForeground 4369 twice"}));
}

TEST_F(VirtualCalls, RectangleFormsStretchThroughThePointForms)
{
    device.stretchBitmap(palette.get(), QsdRect{0, 0, 8, 8}, &bitmap, nullptr);
    EXPECT_EQ(device.takenCalls(), Calls{"stretchBitmap"});
    device.stretchTransparentBitmap(palette.get(), QsdRect{0, 0, 8, 8}, &bitmap, nullptr);
    EXPECT_EQ(device.takenCalls(), Calls{"stretchTransparentBitmap"});
    const QsdRGBBitmapData data(4, 1);
    device.stretchBitmapData(palette.get(), &data, {0, 0, 4, 1}, {0, 0, 8, 8}, false);
    EXPECT_EQ(device.takenCalls(), Calls{"stretchBitmap"});
}

TEST_F(VirtualCalls, ImagesAskForTheirOperator)
{
    for (const unsigned long level : {1UL, 2UL, 3UL}) {
        open(level);
        device.drawBitmap(palette.get(), &bitmap, QsdRect{0, 0, 4, 1}, QsdPoint{0, 0});
        EXPECT_NE(device.taken().find(" paint it\n"), std::string::npos) << level;
        device.drawTransparentBitmap(palette.get(), &bitmap, QsdRect{0, 0, 4, 1}, QsdPoint{0, 0});
        EXPECT_NE(device.taken().find(" strip paint it\n"), std::string::npos) << level;
        device.stretchBitmap(palette.get(), QsdPoint{0, 0}, &bitmap, QsdTransformer(), nullptr);
        EXPECT_NE(device.taken().find("paint it\n"), std::string::npos) << level;
        device.stretchTransparentBitmap(palette.get(), QsdPoint{0, 0}, &bitmap, QsdTransformer(), nullptr);
        EXPECT_NE(device.taken().find(" paint it\n"), std::string::npos) << level;
    }
}

TEST_F(VirtualCalls, ImagesOfLevelOneAskForTheSizeOfTheirString)
{
    open(1);
    device.drawBitmap(palette.get(), &bitmap, QsdRect{0, 0, 4, 1}, QsdPoint{0, 0});
    EXPECT_EQ(device.taken().find("/st 4711 string def\n"), 0U);
    device.drawTransparentBitmap(palette.get(), &bitmap, QsdRect{0, 0, 4, 1}, QsdPoint{0, 0});
    EXPECT_EQ(device.taken().find("4 0 1 4711 strip "), 0U);
    device.stretchBitmap(palette.get(), QsdPoint{0, 0}, &bitmap, QsdTransformer(), nullptr);
    EXPECT_EQ(device.taken().find("/st 4711 string def\n"), 0U);
    device.stretchTransparentBitmap(palette.get(), QsdPoint{0, 0}, &bitmap, QsdTransformer(), nullptr);
    EXPECT_EQ(device.taken().find("/st 4711 string def\n"), 0U);
    EXPECT_EQ(device.takenCalls(), (Calls{"imageStringSize 4", "imageStringSize 4", "stretchBitmap",
                                          "imageStringSize 4", "stretchTransparentBitmap", "imageStringSize 4"}));
}

} // namespace
