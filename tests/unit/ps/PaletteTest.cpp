#include "tests/unit/ps/TestDevice.h"

#include "toolkit/base/QsdMessages.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace {

QsdHandle<QsdColor> color(unsigned red, unsigned green, unsigned blue)
{
    return QsdHandle<QsdColor>::Adopt(new QsdColor(static_cast<std::uint16_t>(red), static_cast<std::uint16_t>(green),
                                                   static_cast<std::uint16_t>(blue)));
}

class PaletteState : public ::testing::Test {
protected:
    std::string drawn()
    {
        open.device.setCurrentPalette(open.palette.get());
        return open.device.taken();
    }
    std::string foreground(OpenDevice& device, const QsdHandle<QsdColor>& foregroundColor)
    {
        device.palette->setForeground(foregroundColor.get());
        device.device.setForeground(device.palette.get());
        return device.device.taken();
    }
    std::string dashes(const std::vector<std::uint8_t>& lengths)
    {
        const auto style = QsdHandle<QsdLineStyle>::Adopt(
            new QsdLineStyle(static_cast<std::uint16_t>(lengths.size()), lengths.data()));
        open.palette->setLineStyle(style.get(), 1);
        open.device.setLineStyle(open.palette.get());
        return open.device.taken();
    }

    OpenDevice open;
};

TEST_F(PaletteState, FirstDrawingWritesAllInOrderWithoutAnEmptyLine)
{
    EXPECT_EQ(drawn(), "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\n");
    EXPECT_EQ(drawn(), "");
}

TEST_F(PaletteState, EachPageWritesAllAgain)
{
    const std::string first = drawn();
    open.device.newPage();
    open.device.taken();
    EXPECT_EQ(drawn(), first);
}

TEST_F(PaletteState, ChangesComeInAnotherOrderAndEndWithAnEmptyLine)
{
    drawn();
    const std::uint8_t lengths[] = {4, 2};
    const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(2, lengths));
    const auto font = QsdHandle<QsdFont>::Adopt(open.display.createFont("times", QsdFontBold, 24));
    open.palette->setFont(font.get());
    open.palette->setForeground(color(65535, 0, 0).get());
    open.palette->setLineStyle(style.get(), 3);
    EXPECT_EQ(drawn(), "24/Times-Bold qsdsf\n1 0 0 setrgbcolor\n[4 2 ] 2 setdash\n3 slw\n\n");
    EXPECT_EQ(drawn(), "");
}

TEST_F(PaletteState, EachAttributeIsWrittenAlone)
{
    drawn();
    open.palette->setLineStyle(open.palette->lineStyle(), 7);
    EXPECT_EQ(drawn(), "7 slw\n\n");
    const auto font = QsdHandle<QsdFont>::Adopt(open.display.createFont("courier", QsdFontItalic, 12));
    open.palette->setFont(font.get());
    EXPECT_EQ(drawn(), "12/Courier-Oblique qsdsf\n\n");
    open.palette->setForeground(open.display.white());
    EXPECT_EQ(drawn(), "1 setgray\n\n");
    const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(0, nullptr));
    open.palette->setLineStyle(style.get(), 7);
    EXPECT_EQ(drawn(), "[] 0 setdash\n\n");
}

TEST_F(PaletteState, UncachedAttributesWriteNothing)
{
    drawn();
    open.palette->setBackground(color(1, 2, 3).get());
    open.palette->setFillRule(QsdWindingRule);
    open.palette->setArcMode(QsdArcChord);
    open.palette->setFillStyle(QsdFillMaskPattern);
    EXPECT_EQ(drawn(), "");
}

TEST_F(PaletteState, EqualColoursOfTwoObjectsAreWrittenTwice)
{
    open.palette->setForeground(color(65535, 0, 0).get());
    drawn();
    open.palette->setForeground(color(65535, 0, 0).get());
    EXPECT_EQ(drawn(), "1 0 0 setrgbcolor\n\n");
}

TEST_F(PaletteState, AFreedColoursAddressIsNeverMistaken)
{
    for (unsigned red = 1; red < 200; ++red) {
        open.palette->setForeground(color(red * 300, 0, 0).get());
        EXPECT_NE(drawn(), "") << red;
    }
}

TEST_F(PaletteState, GreysOfEitherModel)
{
    OpenDevice grey(QsdPSGrey);
    for (OpenDevice* device : {&open, &grey}) {
        EXPECT_EQ(foreground(*device, color(65535, 65535, 65535)), "1 setgray\n");
        EXPECT_EQ(foreground(*device, color(32768, 32768, 32768)), "0.500008 setgray\n");
        EXPECT_EQ(foreground(*device, color(0, 0, 0)), "0 setgray\n");
    }
}

TEST_F(PaletteState, ColoursByModel)
{
    OpenDevice grey(QsdPSGrey);
    EXPECT_EQ(foreground(grey, color(65535, 0, 0)), "0.341176 setgray\n");
    EXPECT_EQ(foreground(grey, color(0, 65535, 0)), "0.498039 setgray\n");
    EXPECT_EQ(foreground(grey, color(0, 0, 65535)), "0.152941 setgray\n");
    EXPECT_EQ(foreground(open, color(65535, 0, 0)), "1 0 0 setrgbcolor\n");
    EXPECT_EQ(foreground(open, color(1, 32768, 65535)), "1.5259e-05 0.500008 1 setrgbcolor\n");
    OpenDevice other(static_cast<QsdPSColorModel>(7));
    EXPECT_EQ(foreground(other, color(65535, 0, 0)), "1 0 0 setrgbcolor\n");
}

TEST_F(PaletteState, EveryGreyIsThatOfExtendedPrecision)
{
    for (unsigned level = 0; level <= 65535; ++level) {
        std::ostringstream expected;
        expected << level / 65535.0L << " setgray\n";
        ASSERT_EQ(foreground(open, color(level, level, level)), expected.str());
    }
}

TEST_F(PaletteState, DashesStateTheirCountAsOffset)
{
    EXPECT_EQ(dashes({4, 2}), "[4 2 ] 2 setdash\n");
    EXPECT_EQ(dashes({0, 255, 7}), "[0 255 7 ] 3 setdash\n");
    EXPECT_EQ(dashes({}), "[] 0 setdash\n");
    open.palette->setLineStyle(nullptr, 1);
    open.device.setLineStyle(open.palette.get());
    EXPECT_EQ(open.device.taken(), "[] 0 setdash\n");
}

TEST_F(PaletteState, ThinnestLineHasTheDefaultWidth)
{
    open.palette->setLineStyle(nullptr, 0);
    open.device.setLineWidth(open.palette.get());
    EXPECT_EQ(open.device.taken(), "1 slw\n");
    open.palette->setLineStyle(nullptr, 65535);
    open.device.setLineWidth(open.palette.get());
    EXPECT_EQ(open.device.taken(), "65535 slw\n");
}

TEST_F(PaletteState, ZoomableWidths)
{
    open.device.setZoomableLineWidths(false);
    EXPECT_EQ(open.device.taken(), "/qsdlw false def\n");
    open.device.setZoomableLineWidths(true);
    EXPECT_EQ(open.device.taken(), "/qsdlw true def\n");
}

TEST_F(PaletteState, ColoursGoThroughTheVirtualOperation)
{
    class Silent : public TestDevice {
    public:
        using TestDevice::TestDevice;
        void setForeground(const QsdPalette*) const override { ++calls; }
        mutable int calls = 0;
    };
    Silent device(&open.display);
    device.initDevice("unused", nullptr);
    device.taken();
    device.setCurrentPalette(open.palette.get());
    open.palette->setForeground(open.display.white());
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.calls, 2);
    EXPECT_EQ(device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n1 slw\n\n");
    device.end();
}

TEST_F(PaletteState, ClosedDeviceReportsAndWritesNothing)
{
    std::vector<std::string> errors;
    QsdSetFatalErrorHandler(
        [](const char* message, void* data) { static_cast<std::vector<std::string>*>(data)->push_back(message); },
        &errors);
    open.device.end();
    open.device.taken();
    const QsdPoint points[] = {{0, 0}, {5, 5}, {9, 0}};
    open.device.drawLine(open.palette.get(), points[0], points[1]);
    open.device.fillPolyLine(open.palette.get(), 3, points, false);
    open.device.drawString(open.palette.get(), points[0], "text", -1, QsdPositionNone);
    open.device.drawTransformedString(open.palette.get(), "text", -1, QsdTransformer(), nullptr);
    open.device.newPage();
    open.device.send("text");
    const QsdRect rect{0, 0, 5, 5};
    open.device.clip(&rect);
    EXPECT_EQ(open.device.taken(), "");
    EXPECT_EQ(errors, std::vector<std::string>(4, "The PostScript device has no open document to draw into"));
    QsdSetFatalErrorHandler(nullptr, nullptr);
}

TEST_F(PaletteState, WhatWasDrawnWithWhileClosedIsWrittenInTheNextDocument)
{
    std::vector<std::string> errors;
    QsdSetFatalErrorHandler(
        [](const char* message, void* data) { static_cast<std::vector<std::string>*>(data)->push_back(message); },
        &errors);
    open.device.end();
    EXPECT_EQ(drawn(), "showpage\n%%Trailer\nend\n%%Pages: 1\n%%EOF\n");
    EXPECT_EQ(errors.size(), 1U);
    open.device.initDevice("unused", nullptr);
    open.device.taken();
    EXPECT_EQ(drawn(), "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\n");
    QsdSetFatalErrorHandler(nullptr, nullptr);
}

/// Its colours bring the whole palette with them.
class RecursiveDevice : public TestDevice {
public:
    using TestDevice::TestDevice;
    void setForeground(const QsdPalette* palette) const override
    {
        ASSERT_LT(++depth, 3);
        setCurrentPalette(palette);
        QsdPSDevice::setForeground(palette);
        --depth;
    }

    mutable int depth = 0;
};

TEST_F(PaletteState, AnOverrideOfSetForegroundMayComeBack)
{
    RecursiveDevice device(&open.display);
    device.initDevice("unused", nullptr);
    device.taken();
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\n");
    open.palette->setForeground(color(65535, 0, 0).get());
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "1 0 0 setrgbcolor\n\n");
    open.palette->setForeground(color(0, 65535, 0).get());
    open.palette->setLineStyle(open.palette->lineStyle(), 7);
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "7 slw\n\n0 1 0 setrgbcolor\n\n");
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "");
    device.end();
}

TEST_F(PaletteState, AnOverrideOfSetForegroundMayBeginAPage)
{
    class Paging : public TestDevice {
    public:
        using TestDevice::TestDevice;
        void setForeground(const QsdPalette* palette) const override
        {
            if (begins) {
                newPage();
            }
            QsdPSDevice::setForeground(palette);
        }
        bool begins = false;
    };
    Paging device(&open.display);
    device.initDevice("unused", nullptr);
    device.setCurrentPalette(open.palette.get());
    device.begins = true;
    open.palette->setForeground(open.display.white());
    device.setCurrentPalette(open.palette.get());
    EXPECT_TRUE(device.taken().ends_with("%%EndPageSetup\n1 setgray\n\n"));
    device.begins = false;
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n1 setgray\n1 slw\n");
    device.end();
}

TEST_F(PaletteState, WhatAnOverrideThrowsAtIsWrittenAgain)
{
    class Throwing : public TestDevice {
    public:
        using TestDevice::TestDevice;
        void setForeground(const QsdPalette* palette) const override
        {
            if (throws) {
                throw std::runtime_error("no");
            }
            QsdPSDevice::setForeground(palette);
        }
        bool throws = true;
    };
    Throwing device(&open.display);
    device.initDevice("unused", nullptr);
    device.taken();
    EXPECT_THROW(device.setCurrentPalette(open.palette.get()), std::runtime_error);
    EXPECT_EQ(device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n");
    device.throws = false;
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\n");
    device.throws = true;
    open.palette->setForeground(open.display.white());
    EXPECT_THROW(device.setCurrentPalette(open.palette.get()), std::runtime_error);
    device.throws = false;
    device.setCurrentPalette(open.palette.get());
    EXPECT_EQ(device.taken(), "1 setgray\n\n");
    device.end();
}

} // namespace
