#include "tests/unit/ps/RecordedSamples.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <gtest/gtest.h>

namespace {

/// Pattern fills of a small path; the samples stand as "<depth WxH size>" in the place of encoded data.
class PatternDevice : public TestDevice {
public:
    using TestDevice::TestDevice;
    void writeImage(const QsdDisplay*, unsigned long depth, unsigned long width, unsigned long height,
                    const unsigned char*, unsigned long size) const override
    {
        *stream() << "<" << depth << " " << width << "x" << height << " " << size << ">\n";
    }
};

class Fill : public ::testing::Test {
protected:
    std::string filled(QsdPSColorModel model, unsigned long level, std::uint16_t style, std::uint16_t rule,
                       unsigned short depth = 24, std::uint16_t patternDepth = 24)
    {
        QsdMemoryDisplay display(depth);
        PatternDevice device(&display, model);
        device.setPostScriptLevel(level);
        device.initDevice("unused", nullptr);
        const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        const unsigned char bits[] = {1, 2, 3, 4};
        palette->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(9, 2, bits)).get());
        const std::vector<unsigned char> pixels(48, 7);
        palette->setColorPattern(
            QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(4, 3, patternDepth, pixels.data(), 48)).get());
        palette->setFillStyle(style);
        palette->setFillRule(rule);
        device.checkClip(palette->clipRegion());
        device.setCurrentPalette(palette.get());
        device.taken();
        device.fillWithPattern(palette.get());
        device.end();
        const std::string text = device.taken();
        return text.substr(0, text.find("showpage"));
    }
};

constexpr std::uint16_t EvenOdd = QsdEvenOddRule;
constexpr std::uint16_t Winding = QsdWindingRule;

TEST_F(Fill, SolidFillsAreTheOperatorsOwn)
{
    OpenDevice open;
    open.settle();
    open.device.fillWithPattern(open.palette.get());
    EXPECT_EQ(open.device.taken(), " eofill\n");
    open.palette->setFillRule(Winding);
    open.device.fillWithPattern(open.palette.get());
    EXPECT_EQ(open.device.taken(), " fill\n");
    open.palette->setFillRule(99);
    open.device.fillWithPattern(open.palette.get());
    EXPECT_EQ(open.device.taken(), " fill\n");
}

TEST_F(Fill, ChecksTheClipFirst)
{
    OpenDevice open;
    open.settle();
    open.palette->setClipRegion(QsdRegion());
    open.device.fillWithPattern(open.palette.get());
    EXPECT_EQ(open.device.taken(), " rc gsave clip n\n eofill\n");
}

TEST_F(Fill, OpaquePatternAtLevelOne)
{
    EXPECT_EQ(filled(QsdPSRGB, 1, QsdFillPattern, EvenOdd),
              " G 1 setgray\neofill g G 1 -1 scale{9 2 true[-1 0 0 -1 0 1]<\n<1 9x2 4>\n>imagemask}\n"
              "9 2 true fillpat g\n");
    EXPECT_EQ(filled(QsdPSGrey, 1, QsdFillPattern, Winding),
              " G 1 setgray\nfill g G 1 -1 scale{9 2 true[-1 0 0 -1 0 1]<\n<1 9x2 4>\n>imagemask}\n"
              "9 2 false fillpat g\n");
}

TEST_F(Fill, OpaquePatternAtHigherLevels)
{
    for (const unsigned long level : {2UL, 3UL, 0UL}) {
        EXPECT_EQ(filled(QsdPSRGB, level, QsdFillPattern, EvenOdd),
                  " G 1 setgray\neofill g\n1 4 readpattern\n<1 9x2 4>\n"
                  "G 1 -1 scale { 9 2 true [-1 0 0 -1 0 1] { p } imagemask }\n9 2 true fillpat g\n");
    }
    EXPECT_EQ(filled(QsdPSRGB, 2, QsdFillPattern, Winding),
              " G 1 setgray\nfill g\n1 4 readpattern\n<1 9x2 4>\n"
              "G 1 -1 scale { 9 2 true [-1 0 0 -1 0 1] { p } imagemask }\n9 2 false fillpat g\n");
}

TEST_F(Fill, MaskPattern)
{
    EXPECT_EQ(filled(QsdPSRGB, 1, QsdFillMaskPattern, EvenOdd),
              " G 1 -1 scale{9 2 true[-1 0 0 -1 0 1]<\n<1 9x2 4>\n>imagemask}\n9 2 true fillpat g\n");
    EXPECT_EQ(filled(QsdPSGrey, 2, QsdFillMaskPattern, Winding),
              "fill g\n1 4 readpattern\n<1 9x2 4>\n"
              "G 1 -1 scale { 9 2 true [-1 0 0 -1 0 1] { p } imagemask }\n9 2 false fillpat g\n");
}

TEST_F(Fill, ColourPatternInColour)
{
    EXPECT_EQ(filled(QsdPSRGB, 2, QsdFillColorPattern, EvenOdd),
              "\n4 3 3 mul readpattern\n<24 4x3 48>\n\n"
              "G  1 -1 scale {4 3 8 [1 0 0 -1 0 0]{p}false 3 colorimage}\n 4 3 true fillpat g\n");
    EXPECT_EQ(filled(QsdPSRGB, 1, QsdFillColorPattern, Winding, 8, 8),
              "\n4 3 3 mul readpattern\n<8 4x3 48>\n\n"
              "G  1 -1 scale {4 3 8 [1 0 0 -1 0 0]{p}false 3 colorimage}\n 4 3 false fillpat g\n");
}

TEST_F(Fill, ColourPatternInGrey)
{
    EXPECT_EQ(filled(QsdPSGrey, 2, QsdFillColorPattern, EvenOdd),
              "4 3 readpattern\n<24 4x3 48>\n\nG  1 -1 scale{4 3 24[-1 0 0 -1 0 1]{p}image}\n4 3 true fillpat g\n");
    EXPECT_EQ(filled(QsdPSGrey, 2, QsdFillColorPattern, Winding, 8, 8),
              "4 3 readpattern\n<8 4x3 48>\n\nG  1 -1 scale{4 3 8[-1 0 0 -1 0 1]{p}image}\n4 3 false fillpat g\n");
}

TEST_F(Fill, OtherModelsAndOneBitColourPatternsTakeTheGreyBranch)
{
    const std::string grey =
        "4 3 readpattern\n<24 4x3 48>\n\nG  1 -1 scale{4 3 24[-1 0 0 -1 0 1]{p}image}\n4 3 true fillpat g\n";
    EXPECT_EQ(filled(static_cast<QsdPSColorModel>(2), 2, QsdFillColorPattern, EvenOdd), grey);
    EXPECT_EQ(filled(QsdPSRGB, 2, QsdFillColorPattern, EvenOdd, 24, 1), grey);
}

TEST_F(Fill, UnknownStylesWriteTheClosingLineAlone)
{
    EXPECT_EQ(filled(QsdPSRGB, 2, 3, EvenOdd), "9 2 true fillpat g\n");
    EXPECT_EQ(filled(QsdPSRGB, 1, 77, Winding), "9 2 false fillpat g\n");
}

TEST_F(Fill, MissingColourPatternPaintsNothing)
{
    OpenDevice open;
    open.palette->setFillStyle(QsdFillColorPattern);
    open.settle();
    open.device.fillRectangle(open.palette.get(), {0, 0, 1, 1});
    EXPECT_EQ(open.device.taken(), "n 1 1 0 0 rect \n");
}

TEST(ColourPatternFill, OfAnotherDepthThanTheDisplay)
{
    RecordedSamples d;
    const unsigned char bytes[] = {1, 2, 3, 4};
    const auto use = [&](std::uint16_t width, std::uint16_t height, std::uint16_t depth, unsigned long size) {
        const auto* const data = size == 0 ? nullptr : bytes;
        d.open.palette->setColorPattern(
            QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(width, height, depth, data, size)).get());
        d.open.palette->setFillStyle(QsdFillColorPattern);
        d.open.device.fillWithPattern(d.open.palette.get());
        return d.taken();
    };
    EXPECT_EQ(use(4, 1, 8, 4), "start [02 03 04] [00 00 00] [00 00 00] [00 00 00] end");
    EXPECT_EQ(use(1, 4, 1, 4), "start [00 00 00] [00 00 00] [00 00 00] [00 00 00] end");
    EXPECT_EQ(use(1, 1, 24, 0), "start [00 00 00] end");
    EXPECT_EQ(use(0, 0, 24, 4), "start [02 03 04] end");
}

} // namespace
