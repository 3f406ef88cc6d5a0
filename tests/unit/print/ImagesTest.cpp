#include "tests/unit/print/PrintDevice.h"

#include "ps/QsdPSImageFormat_p.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <new>
#include <vector>

namespace {

/// A bitmap of `side` by `side` pixels, each of the colour of a function.
template <class Color>
std::unique_ptr<QsdBitmap> bitmapOf(QsdDisplay* display, std::uint32_t side, Color color)
{
    QsdRGBBitmapData data(side, side);
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            data.setPixel(x, y, color(x, y));
        }
    }
    return std::make_unique<QsdBitmap>(display, data);
}

QsdRGB many(std::uint32_t x, std::uint32_t y)
{
    return {static_cast<std::uint8_t>(x * 7), static_cast<std::uint8_t>(y * 5), static_cast<std::uint8_t>(x + y)};
}

QsdRGB manyGreys(std::uint32_t x, std::uint32_t y)
{
    const auto grey = static_cast<std::uint8_t>(x + 13 * y);
    return {grey, grey, grey};
}

QsdRGB two(std::uint32_t x, std::uint32_t y)
{
    return (x + y) % 2 == 0 ? QsdRGB{200, 0, 0} : QsdRGB{0, 0, 90};
}

QsdRGB blackAndWhite(std::uint32_t x, std::uint32_t)
{
    return x % 2 == 0 ? QsdRGB{0, 0, 0} : QsdRGB{255, 255, 255};
}

/// The line that begins the image of 40 by 30 pixels of a bitmap.
template <class Color>
std::string imageOf(Color color, unsigned long level = 2, QsdPSColorModel model = QsdPSRGB)
{
    PrintPage page(level, model);
    const auto bitmap = bitmapOf(&page.display, 40, color);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 40, 30}, {3, 4});
    return PrintPage::part(PrintPage::drawing(page.whole()), "0 sg\n", "\n");
}

TEST(PrintImages, OfManyColours)
{
    EXPECT_EQ(imageOf(many), "40 30 8[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter I");
    EXPECT_EQ(imageOf(many, 1), "120 hs 40 30 8[1 0 0 1 -3 -4]{hr} I");
    EXPECT_EQ(imageOf(many, 2, QsdPSGrey), "40 30 8[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter Ig");
}

TEST(PrintImages, OfGreysAreGrey)
{
    EXPECT_EQ(imageOf(manyGreys), "40 30 8[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter Ig");
    EXPECT_EQ(imageOf(manyGreys, 1), "40 hs 40 30 8[1 0 0 1 -3 -4]{hr} Ig");
}

TEST(PrintImages, OfFewColoursHaveATable)
{
    EXPECT_EQ(imageOf(two), "40 30 1[1 0 0 1 -3 -4]1<c8000000005a> currentfile /ASCII85Decode filter Ix");
    // Level 1 knows none, but paints one colour on the other.
    EXPECT_EQ(imageOf(two, 1), "G .784 0 0 sr n 40 30 3 4 rect fill 0 0 .353 sr ");
    PrintPage page(1);
    const auto bitmap = bitmapOf(&page.display, 40, two);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 40, 30}, {3, 4});
    EXPECT_NE(page.whole().find(" sr \n5 hs 40 30 true[1 0 0 1 -3 -4]{hr} Im\n"), std::string::npos);
}

TEST(PrintImages, OfBlackAndWhiteTakeOneBit)
{
    EXPECT_EQ(imageOf(blackAndWhite), "40 30 1[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter Ig");
    EXPECT_EQ(imageOf(blackAndWhite, 1), "5 hs 40 30 1[1 0 0 1 -3 -4]{hr} Ig");
}

TEST(PrintImages, RowsBeyondAStringTakeEqualOnes)
{
    PrintPage page(1);
    QsdRGBBitmapData data(30000, 1);
    for (std::uint32_t x = 0; x < 30000; ++x) {
        data.setPixel(x, 0, many(x, x / 7));
    }
    const QsdBitmap bitmap(&page.display, data);
    page.device.drawBitmap(page.palette.get(), &bitmap, {0, 0, 30000, 1}, {3, 4});
    EXPECT_NE(page.whole().find("\n45000 hs 30000 1 8["), std::string::npos);
}

TEST(PrintImages, StretchedOnesStandInTheBitmapsSpace)
{
    PrintPage page;
    const auto bitmap = bitmapOf(&page.display, 40, many);
    page.device.stretchBitmap(page.palette.get(), QsdRect{10, 20, 80, 120}, bitmap.get(), nullptr);
    const std::string text = PrintPage::drawing(page.whole());
    EXPECT_EQ(text.substr(0, text.find("filter")),
              "0 sg\n"
              "G[2 0 0 3 10 20]concat\n"
              "40 -40 scale 0 -1 t 40 40 8[40 0 0 -40 0 40] currentfile /ASCII85Decode ");
    EXPECT_EQ(text.substr(text.size() - 5), "~>\ng\n");
}

TEST(PrintImages, MaskedOnesAreOneImageAtTheThirdLevel)
{
    for (const unsigned long level : {1UL, 2UL, 3UL}) {
        PrintPage page(level);
        auto bitmap = bitmapOf(&page.display, 3, many);
        const unsigned char bits[] = {0xC0, 0x00, 0xA0};
        bitmap->setMask(QsdBitmap::FromBits(&page.display, 3, 3, bits));
        page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, 3, 3}, {3, 4});
        const std::string text = PrintPage::drawing(page.whole());
        if (level == 3) {
            EXPECT_EQ(text.substr(0, text.find(" Ik\n")),
                      "0 sg\nG/DeviceRGB setcolorspace 3 3 8[1 0 0 1 -3 -4]3 currentfile /ASCII85Decode filter");
            EXPECT_EQ(text.substr(text.size() - 5), "~>\ng\n");
        } else if (level == 1) {
            EXPECT_EQ(text, "0 sg\n"
                            "6 hs 2 1 8[1 0 0 1 -3 -4]{hr} I\n"
                            "000000070001\n"
                            "3 hs 1 1 8[1 0 0 1 -3 -6]{hr} I\n"
                            "000a02\n"
                            "3 hs 1 1 8[1 0 0 1 -5 -6]{hr} I\n"
                            "0e0a04\n");
        } else {
            EXPECT_EQ(text.substr(0, text.find("\n", 5)),
                      "0 sg\n2 1 8[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter I");
        }
    }
    PrintPage page(3);
    auto bitmap = bitmapOf(&page.display, 3, many);
    bitmap->setMask(std::make_unique<QsdBitmap>(&page.display, 3U, 3U, std::uint16_t{1}));
    page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, 3, 2}, {3, 4});
    EXPECT_NE(page.whole().find(" setcolorspace 3 2 "), std::string::npos);
}

TEST(PrintImages, MaskedOnesTakeAsFewBitsAsOthers)
{
    const auto startOf = [](auto color) {
        PrintPage page(3);
        auto bitmap = bitmapOf(&page.display, 40, color);
        const std::vector<unsigned char> bits(5 * 40, 0x5A);
        bitmap->setMask(QsdBitmap::FromBits(&page.display, 40, 40, bits.data()));
        page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, 40, 40}, {3, 4});
        return PrintPage::part(PrintPage::drawing(page.whole()), "0 sg\n", " currentfile");
    };
    EXPECT_EQ(startOf(many), "G/DeviceRGB setcolorspace 40 40 8[1 0 0 1 -3 -4]3");
    EXPECT_EQ(startOf(manyGreys), "G/DeviceGray setcolorspace 40 40 8[1 0 0 1 -3 -4]1");
    EXPECT_EQ(startOf(two), "G[/Indexed/DeviceRGB 1<00005ac80000>]setcolorspace 40 40 1[1 0 0 1 -3 -4]0");
}

/// The hexadecimal samples of a masked image.
template <class Color>
std::string maskedSamples(std::uint32_t side, Color color, const unsigned char* bits)
{
    PrintPage page(3);
    page.device.setEncoder(new QsdASCIIHexEncoder(nullptr, true));
    auto bitmap = bitmapOf(&page.display, side, color);
    bitmap->setMask(QsdBitmap::FromBits(&page.display, side, side, bits));
    page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, side, side}, {0, 0});
    // The check of the structure knows where base 85 ends, not hexadecimal data.
    page.device.end();
    std::string samples = PrintPage::part(PrintPage::drawing(page.device.document()), " Ik\n", ">");
    std::erase(samples, '\n');
    return samples;
}

TEST(PrintImages, HiddenPixelsAreZeros)
{
    const unsigned char bits[] = {0x40, 0x00, 0xA0};
    EXPECT_EQ(maskedSamples(3, many, bits), "40"
                                            "000000070001000000"
                                            "00"
                                            "000000000000000000"
                                            "a0"
                                            "000a020000000e0a04");
    EXPECT_EQ(maskedSamples(3, manyGreys, bits), "40"
                                                 "000100"
                                                 "00"
                                                 "000000"
                                                 "a0"
                                                 "1a001c");
}

TEST(PrintImages, HiddenColorsAreInNoTable)
{
    // The columns that the mask hides, four of each eight, have a third colour.
    const auto color = [](std::uint32_t x, std::uint32_t y) { return x % 8 < 4 ? QsdRGB{1, 2, 3} : two(x, y); };
    const std::vector<unsigned char> bits(5 * 40, 0x0F);
    std::string rows;
    for (int pair = 0; pair < 20; ++pair) {
        rows += "0f0f0f0f0f"
                "0505050505"
                "0f0f0f0f0f"
                "0a0a0a0a0a";
    }
    EXPECT_EQ(maskedSamples(40, color, bits.data()), rows);
}

TEST(PrintImages, OneBitOnesAreMasks)
{
    PrintPage page(1);
    const unsigned char bits[] = {0xC0, 0x80, 0x40, 0x00};
    const auto bitmap = QsdBitmap::FromBits(&page.display, 9, 2, bits);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 9, 2}, {3, 4});
    page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, 9, 2}, {3, 4});
    const std::string mask = "2 hs 9 2 true[1 0 0 1 -3 -4]{hr} Im\nc0804000\n";
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\nG n 9 2 3 4 rect 1 sg\nfill g\n" + mask + mask);
}

TEST(PrintImages, EmptyMissingAndUnreadableOnesDrawNothing)
{
    PrintPage page;
    const auto bitmap = bitmapOf(&page.display, 3, many);
    page.device.drawBitmap(page.palette.get(), nullptr, {0, 0, 2, 2}, {3, 4});
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 0, 2}, {3, 4});
    page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, 2, 2}, {3, 4});
    page.device.stretchBitmap(page.palette.get(), QsdRect{0, 0, 5, 5}, nullptr, nullptr);
    page.device.setEncoder(nullptr);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 3, 3}, {3, 4});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n");
}

TEST(PrintImages, WithoutAFilterAreHexadecimal)
{
    class Bare : public QsdASCIIHexEncoder {
    public:
        Bare() : QsdASCIIHexEncoder(nullptr, false) {}
        [[nodiscard]] QsString getDecoderString() const override { return {}; }
    };
    PrintPage page(3);
    page.device.setEncoder(new Bare);
    auto bitmap = bitmapOf(&page.display, 1, two);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 1, 1}, {3, 4});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n3 hs 1 1 8[1 0 0 1 -3 -4]{hr} I\nc80000\n");
}

TEST(PrintImages, KeepToTheDocumentsLevelWhenTheDevicesChanges)
{
    for (const unsigned long level : {1UL, 2UL}) {
        PrintPage page(level);
        page.device.setPostScriptLevel(3 - level);
        auto bitmap = bitmapOf(&page.display, 1, two);
        page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 1, 1}, {3, 4});
        const std::string text = PrintPage::drawing(page.whole());
        EXPECT_EQ(text, level == 1 ? "0 sg\n3 hs 1 1 8[1 0 0 1 -3 -4]{hr} I\nc80000\n"
                                   : "0 sg\n1 1 8[1 0 0 1 -3 -4] currentfile /ASCII85Decode filter I\na8c2~>\n");
    }
}

TEST(PrintImages, FarOutsideOfTheirSourceAreRefusedBeforeAnythingIsWritten)
{
    PrintPage page;
    auto bitmap = bitmapOf(&page.display, 3, many);
    EXPECT_THROW(page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, 20000, 20000}, {0, 0}),
                 std::bad_alloc);
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n");
}

TEST(ImageFormat, PacksWhatItSaw)
{
    const unsigned char samples[] = {0, 0, 0, 255, 255, 255, 85, 85, 85, 170, 170, 170, 0, 0, 0};
    QsdPSImageFormat greys(3);
    greys.look(samples, 5);
    greys.decide(5, 1000, true);
    EXPECT_EQ(greys.kind(), QsdPSImageFormat::Grey);
    EXPECT_EQ(greys.bits(), 2U);
    std::vector<unsigned char> packed(greys.rowBytes(5));
    greys.pack(samples, 5, packed.data());
    EXPECT_EQ(packed, (std::vector<unsigned char>{0x36, 0x00}));

    const unsigned char colors[] = {9, 9, 9, 1, 2, 3, 4, 5, 6, 1, 2, 3};
    QsdPSImageFormat indexed(3);
    indexed.look(colors, 2);
    indexed.look(colors + 6, 2);
    indexed.decide(4, 1000, true);
    EXPECT_EQ(indexed.kind(), QsdPSImageFormat::Indexed);
    EXPECT_EQ(indexed.bits(), 2U);
    packed.assign(indexed.rowBytes(4), 0xFF);
    indexed.pack(colors, 4, packed.data());
    EXPECT_EQ(packed, (std::vector<unsigned char>{0x19}));
}

TEST(ImageFormat, KnowsWhenThereAreTooManyColours)
{
    for (const std::size_t count : {256UL, 257UL}) {
        std::vector<unsigned char> samples;
        for (std::size_t i = 0; i < count; ++i) {
            samples.insert(samples.end(), {static_cast<unsigned char>(i), static_cast<unsigned char>(i / 256), 7});
        }
        QsdPSImageFormat format(3);
        format.look(samples.data(), count);
        format.decide(count, 1000, true);
        EXPECT_EQ(format.kind(), count == 256 ? QsdPSImageFormat::Indexed : QsdPSImageFormat::Color);
        std::vector<unsigned char> packed(format.rowBytes(count));
        format.pack(samples.data(), count, packed.data());
        EXPECT_EQ(packed.back(), count == 256 ? 255 : 7);
    }
}

} // namespace
