#include "tests/unit/ps/RecordedSamples.h"
#include "tests/unit/ps/SampleDevice.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

const std::string Filter = " currentfile /ASCII85Decode filter";
const std::string Hex = "{currentfile st readhexstring pop}";

TEST(StretchedBitmap, ColourUnderTheIdentity)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat\n16 -2 scale 0 -1 t 16 2 8[16 0 0 -2 0 2]\n" + Filter +
                             " false 3 colorimage\n<24 16x2 128>\ng\n");
}

TEST(StretchedBitmap, FactorsComeColumnByColumnAndTheTranslationFromThePoint)
{
    SampleDevice d(QsdPSGrey, 1, 8);
    const QsdBitmap pixels(&d.screen, 16, 2, 8);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(1, 2, 3.5, 4, 50, 60), nullptr);
    EXPECT_EQ(d.taken(), "/st 16 string def\nG[1 3.5 2 4 5 7]concat\n16 -2 scale 0 -1 t 16 2 8[16 0 0 -2 0 2]\n" + Hex +
                             "image\n<8 16x2 32>\ng\n");
}

TEST(StretchedBitmap, OneBit)
{
    SampleDevice d;
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &bits, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat\nn 9 2 0 0 rect G 1 setgray\n fill g\n"
                         "9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2]" +
                             Filter + " imagemask\n<1 9x2 4>\ng\n");
    SampleDevice one(QsdPSRGB, 1);
    const QsdBitmap same(&one.screen, 9, 2, 1);
    one.stretchBitmap(one.palette.get(), QsdPoint{5, 7}, &same, QsdTransformer(), nullptr);
    EXPECT_EQ(one.taken(), "G[1 0 0 1 5 7]concat\nn 9 2 0 0 rect G 1 setgray\n fill g\n/st 2 string def\n"
                           "9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2]" +
                               Hex + "imagemask\n<1 9x2 4>\ng\n");
}

TEST(StretchedBitmap, RectangleFormsFillTheirRectangle)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.stretchBitmap(d.palette.get(), QsdRect{5, 7, 32, 5}, &pixels, nullptr);
    EXPECT_EQ(d.taken().find("G[2 0 0 2.5 5 7]concat\n"), 0U);
    const QsdBitmap bits(&d.screen, 16, 2, 1);
    d.stretchTransparentBitmap(d.palette.get(), QsdRect{5, 7, 8, 2}, &bits, nullptr);
    EXPECT_EQ(d.taken().find("G[0.5 0 0 1 5 7]concat\n"), 0U);
}

TEST(StretchedBitmap, IsClippedForItsCallAlone)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    const QsdRect clip{1, 2, 3, 4};
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), &clip);
    const std::string text = d.taken();
    EXPECT_EQ(text.find(" rc gsave  n 3 4 1 2 rect clip n\nG["), 0U);
    EXPECT_TRUE(text.ends_with("\ng\n rc gsave\n"));
    d.drawLine(d.palette.get(), {0, 0}, {1, 1});
    EXPECT_EQ(d.taken(), "n 0 0 M 1 1 L s\n");
}

TEST(StretchedBitmap, ClipComesBackWhenTheSamplesThrow)
{
    class Throwing : public TestDevice {
    public:
        using TestDevice::TestDevice;
        void writeImage(const QsdDisplay*, unsigned long, unsigned long, unsigned long, const unsigned char*,
                        unsigned long) const override
        {
            throw std::runtime_error("no");
        }
    };
    QsdMemoryDisplay display;
    Throwing device(&display);
    device.initDevice("unused", nullptr);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    const QsdBitmap pixels(&display, 16, 2, 24);
    const QsdRect clip{1, 2, 3, 4};
    EXPECT_THROW(device.stretchBitmap(palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), &clip),
                 std::runtime_error);
    EXPECT_TRUE(device.taken().ends_with("\n rc gsave\n"));
    device.end();
}

TEST(StretchedTransparentBitmap, OneBit)
{
    SampleDevice d;
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &bits, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat\n9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2]" + Filter +
                             " imagemask \n<1 9x2 4>\ng\n");
    SampleDevice one(QsdPSRGB, 1);
    const QsdBitmap same(&one.screen, 9, 2, 1);
    one.stretchTransparentBitmap(one.palette.get(), QsdPoint{5, 7}, &same, QsdTransformer(), nullptr);
    EXPECT_EQ(one.taken(), "G[1 0 0 1 5 7]concat\n9 -2 scale 0 -1 t /st 2 string def\n9 2 true[9 0 0 -2 0 2] " + Hex +
                               "imagemask\n<1 9x2 4>\ng\n");
}

TEST(StretchedTransparentBitmap, RunsAreImagesOfOneRow)
{
    SampleDevice d;
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0x0F, 0x00, 0xF0, 0x01};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(2, 0, 0, 2, 0, 0), nullptr);
    EXPECT_EQ(d.taken(), "G [2 0 0 2 5 7]concat 4 1 t 4 -1 scale 0 -1 t 4  1 8 [4 0 0 -1 0 1]\n" + Filter +
                             " false 3 colorimage\n<24 4x1 128>\ng\n"
                             "G [2 0 0 2 5 7]concat 0 2 t 4 -1 scale 0 -1 t 4  1 8 [4 0 0 -1 0 1]\n" +
                             Filter +
                             " false 3 colorimage\n<24 4x1 128>\ng\n"
                             "G[2 0 0 2 5 7]concat 15 2 t 1 -1 scale 0 -1 t 1  1 8 [1 0 0 -1 0 1]\n" +
                             Filter + " false 3 colorimage\n<24 1x1 128>\ng\n/st null def\n");
}

TEST(StretchedTransparentBitmap, RunsAtLevelOne)
{
    SampleDevice d(QsdPSGrey, 1);
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xFF, 0xFF, 0, 0};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "/st 16 string def\nG[1 0 0 1 5 7]concat 0 1 t 16 -1 scale 0 -1 t 16  1 8 [16 0 0 -1 0 1]\n " +
                             Hex + " image\n<24 16x1 128>\ng\n/st null def\n");
}

TEST(StretchedTransparentBitmap, WithoutAMaskNotEvenStateIsWritten)
{
    OpenDevice open;
    const QsdBitmap pixels(&open.display, 16, 2, 24);
    open.device.stretchTransparentBitmap(open.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(open.device.taken(), "");
}

TEST(StretchedTransparentBitmap, HeightZeroWritesNothing)
{
    SampleDevice d;
    QsdBitmap pixels(&d.screen, 16, 0, 24);
    pixels.setMask(std::make_unique<QsdBitmap>(&d.screen, 16U, 0U, std::uint16_t{1}));
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "");
}

TEST(StretchedBitmapData, TheAreaFillsItsDestination)
{
    SampleDevice d;
    QsdRGBBitmapData data(8, 4);
    data.setPixel(7, 3, {1, 2, 0x77});
    d.stretchBitmapData(d.palette.get(), &data, {7, 3, 1, 1}, {10, 20, 5, 6}, true);
    EXPECT_EQ(d.taken(), "G[5 0 0 6 10 20]concat\n1 -1 scale 0 -1 t 1 1 8[1 0 0 -1 0 1]\n" + Filter +
                             " false 3 colorimage\n<24 1x1 4>\ng\n");
    EXPECT_EQ(d.firstByteOfLastPixel, 0x77);
}

TEST(StretchedBitmap, AQuarterTurnIsTheMatrixsAlone)
{
    RecordedSamples d;
    QsdBitmap pixels(&d.open.display, 2, 1, 24);
    pixels.pixels().set(0, 0, 0x010203);
    pixels.pixels().set(1, 0, 0x040506);
    d.open.device.taken();
    d.open.device.stretchBitmap(d.open.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.open.device.taken(), "G[1 0 0 1 5 7]concat\n2 -1 scale 0 -1 t 2 1 8[2 0 0 -1 0 1]\n"
                                     " currentfile /Recorded filter false 3 colorimage\ng\n");
    const std::string upright = d.taken();
    EXPECT_EQ(upright, "start [01 02 03] [04 05 06] end");
    QsdTransformer turned;
    turned.rotate(90);
    d.open.device.stretchBitmap(d.open.palette.get(), QsdPoint{5, 7}, &pixels, turned, nullptr);
    EXPECT_EQ(d.open.device.taken(), "G[0 -1 1 0 5 7]concat\n2 -1 scale 0 -1 t 2 1 8[2 0 0 -1 0 1]\n"
                                     " currentfile /Recorded filter false 3 colorimage\ng\n");
    EXPECT_EQ(d.taken(), upright);
}

/// What an operation on a palette clipped to 50 by 50, itself clipped from 10, 10 on, writes around its image.
const std::string ClipsBefore = " rc gsave  n 50 50 0 0 rect clip n\n rc gsave  n 40 40 10 10 rect clip n\n";
const std::string ClipsAfter = " rc gsave\n rc gsave  n 50 50 0 0 rect clip n\n";
constexpr QsdRect FromTen{10, 10, 100, 100};

TEST(StretchedBitmap, ThePalettesClipIsInForceAgainAfterwards)
{
    SampleDevice d;
    d.palette->setClipRegion(QsdRegion(QsdRect{0, 0, 50, 50}));
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), &FromTen);
    EXPECT_EQ(d.taken(), ClipsBefore + "G[1 0 0 1 5 7]concat\n16 -2 scale 0 -1 t 16 2 8[16 0 0 -2 0 2]\n" + Filter +
                             " false 3 colorimage\n<24 16x2 128>\ng\n" + ClipsAfter);
    d.drawLine(d.palette.get(), {0, 0}, {1, 1});
    EXPECT_EQ(d.taken(), "n 0 0 M 1 1 L s\n");
}

TEST(StretchedTransparentBitmap, ThePalettesClipIsInForceAgainAfterwards)
{
    SampleDevice d;
    d.palette->setClipRegion(QsdRegion(QsdRect{0, 0, 50, 50}));
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &bits, QsdTransformer(), &FromTen);
    EXPECT_EQ(d.taken(), ClipsBefore + "G[1 0 0 1 5 7]concat\n9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2]" + Filter +
                             " imagemask \n<1 9x2 4>\ng\n" + ClipsAfter);

    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xFF, 0xFF, 0, 0};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), &FromTen);
    EXPECT_EQ(d.taken(), " rc gsave  n 40 40 10 10 rect clip n\n"
                         "G[1 0 0 1 5 7]concat 0 1 t 16 -1 scale 0 -1 t 16  1 8 [16 0 0 -1 0 1]\n" +
                             Filter + " false 3 colorimage\n<24 16x1 128>\ng\n/st null def\n" + ClipsAfter);
    d.drawLine(d.palette.get(), {0, 0}, {1, 1});
    EXPECT_EQ(d.taken(), "n 0 0 M 1 1 L s\n");
}

TEST(StretchedBitmap, AtOtherLevelsDefinesNoString)
{
    SampleDevice d(QsdPSRGB, 3);
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat\n16 -2 scale 0 -1 t 16 2 8[16 0 0 -2 0 2]\n" + Hex +
                             "false 3 colorimage\n<24 16x2 128>\ng\n");
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.stretchBitmap(d.palette.get(), QsdPoint{5, 7}, &bits, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat\nn 9 2 0 0 rect G 1 setgray\n fill g\n"
                         "9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2]" +
                             Hex + "imagemask\n<1 9x2 4>\ng\n");
}

TEST(StretchedTransparentBitmap, AtOtherLevelsDefinesNoString)
{
    SampleDevice d(QsdPSRGB, 3);
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &bits, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(),
              "G[1 0 0 1 5 7]concat\n9 -2 scale 0 -1 t 9 2 true[9 0 0 -2 0 2] " + Hex + "imagemask\n<1 9x2 4>\ng\n");
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xFF, 0xFF, 0, 0};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 7}, &pixels, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "G[1 0 0 1 5 7]concat 0 1 t 16 -1 scale 0 -1 t 16  1 8 [16 0 0 -1 0 1]\n " + Hex +
                             " false 3 colorimage\n<24 16x1 128>\ng\n/st null def\n");
}

TEST(StretchedBitmap, OfAnotherDepthThanThePalettesDisplay)
{
    RecordedSamples d;
    QsdMemoryDisplay other(8);
    QsdBitmap indices(&other, 4, 1, 8);
    for (std::uint32_t x = 0; x < 4; ++x) {
        indices.pixels().set(x, 0, x + 1);
    }
    d.open.device.stretchBitmap(d.open.palette.get(), QsdPoint{5, 7}, &indices, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "start [02 03 04] [00 00 00] [00 00 00] [00 00 00] end");
    const unsigned char mask[] = {0xD0};
    indices.setMask(QsdBitmap::FromBits(&other, 4, 1, mask));
    d.open.device.stretchTransparentBitmap(d.open.palette.get(), QsdPoint{5, 7}, &indices, QsdTransformer(), nullptr);
    EXPECT_EQ(d.taken(), "start [02 03 04] [00 00 00] end start [00 00 00] end");
}

TEST(StretchedBitmapData, AreasFarBeyondTheSourceAreRefused)
{
    SampleDevice d;
    const QsdRGBBitmapData data(1, 1);
    ASSERT_THROW(d.stretchBitmapData(d.palette.get(), &data, {0, 0, 0x4000002, 1}, {0, 0, 9, 9}, false),
                 std::bad_alloc);
    EXPECT_THROW(d.stretchBitmapData(d.palette.get(), &data, {0, 0, 0xFFFFFFFF, 1}, {0, 0, 9, 9}, false),
                 std::bad_alloc);
    EXPECT_EQ(d.taken(), "");
}

TEST(StretchedBitmap, NullDrawsNothing)
{
    OpenDevice open;
    open.device.stretchBitmap(open.palette.get(), QsdPoint{5, 7}, nullptr, QsdTransformer(), nullptr);
    open.device.stretchTransparentBitmap(open.palette.get(), QsdPoint{5, 7}, nullptr, QsdTransformer(), nullptr);
    open.device.stretchBitmap(open.palette.get(), FromTen, nullptr, nullptr);
    open.device.stretchTransparentBitmap(open.palette.get(), FromTen, nullptr, nullptr);
    open.device.stretchBitmapData(open.palette.get(), nullptr, {0, 0, 1, 1}, FromTen, false);
    EXPECT_EQ(open.device.taken(), "");
}

TEST(StretchedBitmap, NothingButTheClipIsWrittenWithoutMemoryForThePixels)
{
    FullDisplay display;
    TestDevice device(&display);
    device.initDevice("unused", nullptr);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    device.setCurrentPalette(palette.get());
    device.taken();
    const QsdBitmap bits(&display, 16, 2, 1);
    QsdBitmap pixels(&display, 16, 2, 24);
    pixels.setMask(std::make_unique<QsdBitmap>(&display, 16U, 2U, std::uint16_t{1}));
    for (const QsdBitmap* const source : {static_cast<const QsdBitmap*>(&pixels), &bits}) {
        EXPECT_THROW(device.stretchBitmap(palette.get(), QsdPoint{5, 7}, source, QsdTransformer(), nullptr),
                     std::bad_alloc);
        EXPECT_EQ(device.taken(), "");
        EXPECT_THROW(device.stretchTransparentBitmap(palette.get(), QsdPoint{5, 7}, source, QsdTransformer(), &FromTen),
                     std::bad_alloc);
        EXPECT_EQ(device.taken(), " rc gsave  n 100 100 10 10 rect clip n\n rc gsave\n");
    }
    device.end();
}

} // namespace
