#include "tests/unit/ps/RecordedSamples.h"
#include "tests/unit/ps/SampleDevice.h"

#include <gtest/gtest.h>

namespace {

constexpr QsdRect Whole{0, 0, 16, 2};

TEST(Bitmap, OneBitAtLevelTwo)
{
    SampleDevice d;
    const QsdBitmap bits(&d.screen, 16, 2, 1);
    d.drawBitmap(d.palette.get(), &bits, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "G n 16 2 5 7 rect G 1 setgray\n fill g\n5 9 t 16 -2 scale 16 2 true[16 0 0 -2 0 2]"
                         " currentfile /ASCII85Decode filter       imagemask \n<1 16x2 4>\ng\n");
}

TEST(Bitmap, OneBitAtLevelOne)
{
    SampleDevice d(QsdPSRGB, 1);
    const QsdBitmap bits(&d.screen, 9, 2, 1);
    d.drawBitmap(d.palette.get(), &bits, {0, 0, 9, 2}, QsdPoint{5, -7});
    EXPECT_EQ(d.taken(),
              "G n 9 2 5 -7 rect G 1 setgray\n fill g\n5 -5 t /st 2 string def\n"
              "9 -2 scale 9 2 true[9 0 0 -2 0 2] {currentfile st readhexstring pop} imagemask\n<1 9x2 4>\ng\n");
}

TEST(Bitmap, OneBitAtOtherLevelsDefinesNoString)
{
    SampleDevice d(QsdPSRGB, 3);
    const QsdBitmap bits(&d.screen, 16, 2, 1);
    d.drawBitmap(d.palette.get(), &bits, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "G n 16 2 5 7 rect G 1 setgray\n fill g\n5 9 t 16 -2 scale 16 2 true[16 0 0 -2 0 2]"
                         " {currentfile st readhexstring pop} imagemask\n<1 16x2 4>\ng\n");
}

TEST(Bitmap, Colour)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.drawBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "n G 5 9 t 16 -2 scale\n16 2 8[16 0 0 -2 0 2]  currentfile /ASCII85Decode filter"
                         " false 3 colorimage\n<24 16x2 128>\ng\n");
    SampleDevice one(QsdPSGrey, 1, 8);
    const QsdBitmap indices(&one.screen, 16, 2, 8);
    one.drawBitmap(one.palette.get(), &indices, Whole, QsdPoint{5, 7});
    EXPECT_EQ(one.taken(), "/st 16 string def\nn G 5 9 t 16 -2 scale\n16 2 8[16 0 0 -2 0 2] "
                           " {currentfile st readhexstring pop} image\n<8 16x2 32>\ng\n");
}

TEST(Bitmap, PartsAreRead)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.drawBitmap(d.palette.get(), &pixels, {3, 1, 5, 9}, QsdPoint{0, 0});
    EXPECT_NE(d.taken().find("\n<24 5x9 180>\n"), std::string::npos);
}

TEST(TransparentBitmap, OneBit)
{
    SampleDevice d;
    const QsdBitmap bits(&d.screen, 16, 2, 1);
    d.drawTransparentBitmap(d.palette.get(), &bits, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "n 5 7 M 0 2 rL 16 0 rL 0 -2 rL\nG 5 9 t 16 -2 scale 16 2 true[16 0 0 -2 0 2]"
                         " currentfile /ASCII85Decode filter imagemask\n<1 16x2 4>\ng\n");
    SampleDevice one(QsdPSRGB, 1);
    const QsdBitmap narrow(&one.screen, 9, 2, 1);
    one.drawTransparentBitmap(one.palette.get(), &narrow, {0, 0, 9, 2}, QsdPoint{5, 7});
    EXPECT_EQ(one.taken(), "n 5 7 M 0 2 rL 9 0 rL 0 -2 rL\nG 5 9 t /st 2 string def\n9 -2 scale 9 2 true"
                           "[9 0 0 -2 0 2] {currentfile st readhexstring pop} imagemask\n<1 9x2 4>\ng\n");
}

TEST(TransparentBitmap, MaskedRunsAreStrips)
{
    SampleDevice d;
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xF0, 0x0F, 0x00, 0x00};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "4 5 8  strip false 3 colorimage\n<24 4x1 128>\ng\n"
                         "4 17 8  strip false 3 colorimage\n<24 4x1 128>\ng\n");
}

TEST(TransparentBitmap, OpaqueAndTransparentRows)
{
    SampleDevice d(QsdPSGrey, 1, 8);
    QsdBitmap pixels(&d.screen, 16, 2, 8);
    const unsigned char mask[] = {0x00, 0x00, 0xFF, 0xFF};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "16 5 9 16 strip image\n<8 16x1 32>\ng\n");
}

TEST(TransparentBitmap, StripsStartAtTheirFirstPixel)
{
    for (const std::uint16_t depth : {std::uint16_t{8}, std::uint16_t{24}}) {
        SampleDevice d(QsdPSRGB, 2, depth);
        QsdBitmap pixels(&d.screen, 16, 2, depth);
        const unsigned char mask[] = {0x00, 0x00, 0x07, 0x80};
        pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
        pixels.pixels().set(5, 1, 0x2A);
        d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{0, 0});
        EXPECT_EQ(d.firstByteOfLastPixel, 0x2A) << depth;
        EXPECT_EQ(d.taken().find("4 5 2  strip "), 0U);
    }
}

TEST(TransparentBitmap, WithoutAMaskNothingIsDrawn)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    d.drawTransparentBitmap(d.palette.get(), nullptr, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "");
}

TEST(TransparentBitmap, WithoutAnAreaNothingIsDrawn)
{
    SampleDevice d;
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    pixels.setMask(std::make_unique<QsdBitmap>(&d.screen, 16U, 2U, std::uint16_t{1}));
    d.drawTransparentBitmap(d.palette.get(), &pixels, {0, 0, 16, 0}, QsdPoint{5, 7});
    d.drawTransparentBitmap(d.palette.get(), &pixels, {0, 0, 0, 2}, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "");
}

TEST(PlacedBitmap, GoesThroughThePortsPlacement)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.drawBitmap(d.palette.get(), &pixels, QsdRect{0, 0, 100, 100}, nullptr, QsdPositionBottomRight, false);
    EXPECT_EQ(d.taken().find("n G 84 100 t 16 -2 scale\n"), 0U);
    d.drawBitmap(d.palette.get(), &pixels, QsdRect{0, 0, 4, 2}, QsdRect{0, 0, 10, 10}, nullptr, QsdPositionCenter,
                 false);
    EXPECT_EQ(d.taken().find("n G 3 6 t 4 -2 scale\n"), 0U);
}

TEST(Bitmap, ColourAtOtherLevelsDefinesNoString)
{
    SampleDevice d(QsdPSRGB, 3);
    const QsdBitmap pixels(&d.screen, 16, 2, 24);
    d.drawBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "n G 5 9 t 16 -2 scale\n16 2 8[16 0 0 -2 0 2]  {currentfile st readhexstring pop}"
                         " false 3 colorimage\n<24 16x2 128>\ng\n");
}

TEST(TransparentBitmap, AtOtherLevels)
{
    SampleDevice d(QsdPSRGB, 3);
    const QsdBitmap bits(&d.screen, 16, 2, 1);
    d.drawTransparentBitmap(d.palette.get(), &bits, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "n 5 7 M 0 2 rL 16 0 rL 0 -2 rL\nG 5 9 t 16 -2 scale 16 2 true[16 0 0 -2 0 2]"
                         " {currentfile st readhexstring pop} imagemask\n<1 16x2 4>\ng\n");
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xF0, 0x00, 0x00, 0x00};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "4 5 8  strip false 3 colorimage\n<24 4x1 128>\ng\n");
}

TEST(TransparentBitmap, StripsAreClippedByThePalette)
{
    SampleDevice d;
    QsdBitmap pixels(&d.screen, 16, 2, 24);
    const unsigned char mask[] = {0xF0, 0x00, 0x00, 0x00};
    pixels.setMask(QsdBitmap::FromBits(&d.screen, 16, 2, mask));
    d.palette->setClipRegion(QsdRegion(QsdRect{0, 0, 50, 50}));
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), " rc gsave  n 50 50 0 0 rect clip n\n4 5 8  strip false 3 colorimage\n<24 4x1 128>\ng\n");
    d.drawTransparentBitmap(d.palette.get(), &pixels, Whole, QsdPoint{5, 7});
    EXPECT_EQ(d.taken(), "4 5 8  strip false 3 colorimage\n<24 4x1 128>\ng\n");
}

TEST(Bitmap, OfAnotherDepthThanThePalettesDisplay)
{
    RecordedSamples d;
    QsdMemoryDisplay other(8);
    QsdBitmap indices(&other, 4, 2, 8);
    for (std::uint32_t x = 0; x < 4; ++x) {
        indices.pixels().set(x, 1, x + 1);
    }
    d.open.device.drawBitmap(d.open.palette.get(), &indices, {0, 0, 4, 2}, QsdPoint{0, 0});
    EXPECT_EQ(d.taken(), "start [00 00 00] [00 00 00] [00 00 00] [00 00 00]"
                         " [02 03 04] [00 00 00] [00 00 00] [00 00 00] end");
    const unsigned char mask[] = {0x00, 0xD0};
    indices.setMask(QsdBitmap::FromBits(&other, 4, 2, mask));
    d.open.device.drawTransparentBitmap(d.open.palette.get(), &indices, {0, 0, 4, 2}, QsdPoint{0, 0});
    EXPECT_EQ(d.taken(), "start [02 03 04] [00 00 00] end start [00 00 00] end");
}

TEST(Bitmap, WithoutPixelsIsZeros)
{
    RecordedSamples d;
    const Unreadable colour(&d.open.display, 2, 1, 24);
    d.open.device.drawBitmap(d.open.palette.get(), &colour, {0, 0, 2, 1}, QsdPoint{0, 0});
    EXPECT_EQ(d.taken(), "start [00 00 00] [00 00 00] end");
    const Unreadable bits(&d.open.display, 9, 1, 1);
    d.open.device.drawBitmap(d.open.palette.get(), &bits, {0, 0, 9, 1}, QsdPoint{0, 0});
    EXPECT_EQ(d.taken(), "start 00 00 end");
    d.open.device.drawTransparentBitmap(d.open.palette.get(), &bits, {0, 0, 9, 1}, QsdPoint{0, 0});
    EXPECT_EQ(d.taken(), "start 00 00 end");
}

TEST(Bitmap, NullDrawsNothing)
{
    OpenDevice open;
    const QsdBitmap* const none = nullptr;
    open.device.drawBitmap(open.palette.get(), nullptr, Whole, QsdPoint{5, 7});
    open.device.drawBitmap(open.palette.get(), none, Whole, nullptr, QsdPositionCenter, false);
    open.device.drawBitmap(open.palette.get(), none, Whole, Whole, nullptr, QsdPositionCenter, true);
    EXPECT_EQ(open.device.taken(), "");
}

TEST(Bitmap, NothingIsWrittenWithoutMemoryForThePixels)
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
        EXPECT_THROW(device.drawBitmap(palette.get(), source, Whole, QsdPoint{5, 7}), std::bad_alloc);
        EXPECT_THROW(device.drawTransparentBitmap(palette.get(), source, Whole, QsdPoint{5, 7}), std::bad_alloc);
        EXPECT_EQ(device.taken(), "") << source->depth();
    }
    device.end();
}

TEST(Bitmap, AreasFarBeyondTheSourceAreRefused)
{
    SampleDevice d;
    const QsdBitmap pixels(&d.screen, 1, 1, 24);
    ASSERT_THROW(d.drawBitmap(d.palette.get(), &pixels, {0, 0, 0x4000002, 1}, QsdPoint{5, 7}), std::bad_alloc);
    EXPECT_THROW(d.drawBitmap(d.palette.get(), &pixels, {0, 0, 0xFFFFFFFF, 1}, QsdPoint{5, 7}), std::bad_alloc);
    EXPECT_THROW(d.drawBitmap(d.palette.get(), &pixels, {-5, -5, 0xFFFFFFFF, 0xFFFFFFFF}, QsdPoint{5, 7}),
                 std::bad_alloc);
    const QsdBitmap bits(&d.screen, 1, 1, 1);
    EXPECT_THROW(d.drawTransparentBitmap(d.palette.get(), &bits, {0, 0, 0xFFFFFFFF, 1}, QsdPoint{5, 7}),
                 std::bad_alloc);
    EXPECT_EQ(d.taken(), "");
    // What lies inside counts for nothing, however large, and so do moderate areas outside.
    d.drawBitmap(d.palette.get(), &pixels, {-500, -500, 1000, 1000}, QsdPoint{5, 7});
    EXPECT_NE(d.taken().find("\n<24 1000x1000 4000000>\n"), std::string::npos);
}

} // namespace
