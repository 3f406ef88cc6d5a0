// Drawing into pixmaps, and reading it back.
#include "tests/x11/support.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

namespace {

constexpr QsdRGB Red{255, 0, 0};
constexpr QsdRGB Blue{0, 0, 255};
constexpr QsdRGB White{255, 255, 255};
constexpr QsdRGB Black{};

class PixmapTest : public XTest {
protected:
    void SetUp() override
    {
        XTest::SetUp();
        port = std::make_unique<QsdXPixmap>(display.get(), 20, 10, std::uint16_t{0});
        palette = paletteOf(*display);
        setColors(*palette, Red, White);
        port->clear(palette.get());
    }
    [[nodiscard]] QsdRGB at(std::int32_t x, std::int32_t y) const
    {
        const std::vector<QsdRGB> colors = colorsOf(*port, {x, y, 1, 1});
        return colors.empty() ? QsdRGB{1, 2, 3} : colors.front();
    }
    void TearDown() override
    {
        port.reset();
        XTest::TearDown();
    }

    std::unique_ptr<QsdXPixmap> port;
    QsdHandle<QsdPalette> palette;
};

TEST_F(PixmapTest, StartsWithPixelsOfValueZero)
{
    const QsdXPixmap fresh(display.get(), 3, 2, 0);
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(display->getBitmapData(&fresh, size, {0, 0, 3, 2}));
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(size, QsdPixels::RowBytes(3, display->screenDepth()) * 2);
    EXPECT_EQ(std::vector<unsigned char>(data.get(), data.get() + size), std::vector<unsigned char>(size, 0));
}

TEST_F(PixmapTest, FillsARectangle)
{
    port->fillRectangle(palette.get(), {2, 3, 4, 2});
    EXPECT_EQ(at(1, 3), White);
    EXPECT_EQ(at(2, 3), Red);
    EXPECT_EQ(at(5, 4), Red);
    EXPECT_EQ(at(6, 4), White);
    EXPECT_EQ(at(5, 5), White);
}

TEST_F(PixmapTest, DrawsLinesWithBothEnds)
{
    port->drawLine(palette.get(), {1, 1}, {5, 1});
    EXPECT_EQ(at(0, 1), White);
    EXPECT_EQ(at(1, 1), Red);
    EXPECT_EQ(at(5, 1), Red);
    EXPECT_EQ(at(6, 1), White);
}

TEST_F(PixmapTest, ReadsZeroOutsideAndNothingOfAnEmptyArea)
{
    port->fillRectangle(palette.get(), areaOf(*port));
    unsigned long size = 7;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(display->getBitmapData(port.get(), size, {-1, -1, 2, 2}));
    ASSERT_NE(data, nullptr);
    const std::size_t pixelBytes = display->screenDepth() <= 8 ? 1 : 4;
    ASSERT_EQ(size, 4 * pixelBytes);
    const std::vector<unsigned char> bytes(data.get(), data.get() + size);
    EXPECT_EQ(std::vector<unsigned char>(bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(pixelBytes)),
              std::vector<unsigned char>(3 * pixelBytes, 0));
    EXPECT_EQ(at(0, 0), Red);
    EXPECT_EQ(display->getBitmapData(port.get(), size, {0, 0, 0, 5}), nullptr);
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(display->getBitmapData(nullptr, size, {0, 0, 5, 5}), nullptr);
}

TEST_F(PixmapTest, ReadsAllRowsOfALargeDrawable)
{
    const QsdXPixmap large(display.get(), 2000, 1500, 0);
    large.clear(palette.get());
    large.drawPoint(palette.get(), {1999, 1499});
    large.drawPoint(palette.get(), {7, 600});
    const std::vector<QsdRGB> colors = colorsOf(large, areaOf(large));
    ASSERT_EQ(colors.size(), 3000000U);
    EXPECT_EQ(colors.back(), Red);
    EXPECT_EQ(colors[600 * 2000 + 7], Red);
    EXPECT_EQ(std::count(colors.begin(), colors.end(), Red), 2);
}

TEST_F(PixmapTest, OneBitPixmapsSetDarkPixels)
{
    const QsdXPixmap bits(display.get(), 10, 1, 1);
    EXPECT_EQ(bits.depth(), 1);
    setColors(*palette, Black, White);
    bits.fillRectangle(palette.get(), {0, 0, 10, 1});
    setColors(*palette, White, Black);
    bits.fillRectangle(palette.get(), {1, 0, 2, 1});
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(display->getBitmapData(&bits, size, {0, 0, 10, 1}));
    ASSERT_NE(data, nullptr);
    ASSERT_EQ(size, 2U);
    EXPECT_EQ(data.get()[0], 0x9F);
    EXPECT_EQ(data.get()[1], 0xC0);
}

TEST_F(PixmapTest, KeepsToTheClipOfPortAndPalette)
{
    const QsdRect first{0, 0, 10, 10};
    port->clip(&first);
    palette->setClipRegion(QsdRegion({5, 0, 10, 10}));
    port->fillRectangle(palette.get(), {0, 0, 20, 4});
    port->drawLine(palette.get(), {0, 6}, {19, 6});
    port->fillArc(palette.get(), {-20, -20, 60, 60}, 0, 360);
    EXPECT_EQ(at(4, 1), White);
    EXPECT_EQ(at(5, 1), Red);
    EXPECT_EQ(at(9, 6), Red);
    EXPECT_EQ(at(10, 6), White);
    EXPECT_EQ(at(4, 9), White);
}

TEST_F(PixmapTest, CoordinatesBeyondThoseOfXDoNotWrap)
{
    // 65,536 more would come around to 1 in 16 bits.
    port->drawLine(palette.get(), {65537, 1}, {65540, 1});
    port->drawPoint(palette.get(), {65537, 65537});
    port->fillRectangle(palette.get(), {65536, 0, 10, 10});
    port->drawRectangle(palette.get(), {-65536, -65536, 10, 10});
    const std::vector<QsdRGB> untouched = colorsOf(*port, areaOf(*port));
    EXPECT_EQ(untouched, std::vector<QsdRGB>(200, White));
    port->fillRectangle(palette.get(), {-2000000000, 2, 4000000000U, 1});
    port->drawLine(palette.get(), {-1000000000, 5}, {1000000000, 5});
    EXPECT_EQ(at(0, 2), Red);
    EXPECT_EQ(at(19, 2), Red);
    EXPECT_EQ(at(0, 5), Red);
    EXPECT_EQ(at(19, 5), Red);
}

TEST_F(PixmapTest, CopiesFromPixmapsBitmapsAndItself)
{
    setColors(*palette, Blue, White);
    const QsdXPixmap source(display.get(), 4, 4, 0);
    source.clear(palette.get());
    source.fillRectangle(palette.get(), {1, 1, 2, 2});
    port->drawBitmap(palette.get(), &source, QsdRect{1, 1, 3, 3}, {0, 0});
    EXPECT_EQ(at(0, 0), Blue);
    EXPECT_EQ(at(1, 1), Blue);
    EXPECT_EQ(at(2, 2), White);
    port->drawBitmap(palette.get(), port.get(), QsdRect{0, 0, 4, 4}, {1, 0});
    EXPECT_EQ(at(2, 1), Blue);

    const unsigned char bits[] = {0xA0, 0x40};
    const std::unique_ptr<QsdBitmap> bitmap = QsdBitmap::FromBits(display.get(), 3, 2, bits);
    setColors(*palette, Red, Black);
    port->drawBitmap(palette.get(), bitmap.get(), QsdRect{0, 0, 3, 2}, {10, 5});
    EXPECT_EQ(at(10, 5), Red);
    EXPECT_EQ(at(11, 5), Black);
    EXPECT_EQ(at(11, 6), Red);
    port->drawTransparentBitmap(palette.get(), bitmap.get(), {0, 0, 3, 2}, {15, 5});
    EXPECT_EQ(at(15, 5), Red);
    EXPECT_EQ(at(16, 5), White);
}

TEST_F(PixmapTest, OneBitPixmapsAreCopiedInTheColoursOfThePalette)
{
    setColors(*palette, Black, White);
    const QsdXPixmap bits(display.get(), 2, 1, 1);
    bits.drawPoint(palette.get(), {1, 0});
    setColors(*palette, Red, Blue);
    port->drawBitmap(palette.get(), &bits, QsdRect{0, 0, 2, 1}, {0, 0});
    EXPECT_EQ(at(0, 0), Blue);
    EXPECT_EQ(at(1, 0), Red);
    // Beyond a source its pixels are not set.
    port->drawBitmap(palette.get(), &bits, QsdRect{0, 0, 3, 1}, {0, 3});
    EXPECT_EQ(at(1, 3), Red);
    EXPECT_EQ(at(2, 3), Blue);
}

TEST_F(PixmapTest, StretchesBitmapsAndDrawsThemThroughTheirMasks)
{
    QsdRGBBitmapData data(2, 1);
    data.setPixel(0, 0, Red);
    data.setPixel(1, 0, Blue);
    port->stretchBitmapData(palette.get(), &data, {0, 0, 2, 1}, {0, 0, 8, 4}, false);
    EXPECT_EQ(at(3, 3), Red);
    EXPECT_EQ(at(4, 0), Blue);
    EXPECT_EQ(at(8, 0), White);
    QsdBitmap bitmap(display.get(), data);
    const unsigned char opaque[] = {0x40};
    bitmap.setMask(QsdBitmap::FromBits(display.get(), 2, 1, opaque));
    port->stretchTransparentBitmap(palette.get(), QsdRect{10, 5, 4, 4}, &bitmap, nullptr);
    EXPECT_EQ(at(11, 6), White);
    EXPECT_EQ(at(12, 6), Blue);
}

TEST_F(PixmapTest, MasksAndClipsOfManyPiecesAreKept)
{
    constexpr std::uint32_t Side = 160; // whose every other pixel makes more pieces than the server is given at once
    QsdRGBBitmapData data(Side, Side);
    QsdRegion every;
    auto mask = std::make_unique<QsdBitmap>(display.get(), Side, Side, std::uint16_t{1});
    for (std::uint32_t i = 0; i < Side * Side; ++i) {
        const std::uint32_t x = i % Side;
        const std::uint32_t y = i / Side;
        data.setPixel(x, y, Red);
        if ((x + y) % 2 == 0) {
            mask->pixels().set(x, y, 1);
            every.add({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), 1, 1});
        }
    }
    QsdBitmap bitmap(display.get(), data);
    bitmap.setMask(std::move(mask));
    const QsdXPixmap masked(display.get(), Side, Side, 0);
    masked.clear(palette.get());
    masked.drawTransparentBitmap(palette.get(), &bitmap, {0, 0, Side, Side}, {0, 0});
    const std::vector<QsdRGB> checkered = colorsOf(masked, areaOf(masked));
    EXPECT_EQ(std::count(checkered.begin(), checkered.end(), Red), Side * Side / 2);
    EXPECT_EQ(checkered[0], Red);
    EXPECT_EQ(checkered[Side + 1], Red);

    const QsdXPixmap clipped(display.get(), Side, Side, 0);
    clipped.clear(palette.get());
    clipped.clip(&every);
    clipped.fillRectangle(palette.get(), areaOf(clipped));
    EXPECT_EQ(colorsOf(clipped, areaOf(clipped)), checkered);
    clipped.clear(palette.get());
    clipped.drawLine(palette.get(), {0, 5}, {159, 5});
    clipped.drawPoint(palette.get(), {0, 0});
    EXPECT_EQ(colorsOf(clipped, {5, 5, 1, 1}).front(), Red);
}

TEST_F(PixmapTest, PixmapsDrawnIntoBitmapsKeepTheirColours)
{
    port->fillRectangle(palette.get(), {0, 0, 5, 5});
    const QsdBitmap copy(display.get(), 20, 10, 0);
    copy.drawBitmap(palette.get(), port.get(), areaOf(*port), {0, 0});
    EXPECT_EQ(colorsOf(copy, areaOf(copy)), colorsOf(*port, areaOf(*port)));
}

TEST_F(PixmapTest, SizesThatXCannotHaveMakeItBad)
{
    Messages here;
    const QsdXPixmap empty(display.get(), 0, 5, 0);
    const QsdXPixmap wide(display.get(), 40000, 5, 0);
    EXPECT_TRUE(empty.isBad());
    EXPECT_TRUE(wide.isBad());
    EXPECT_EQ(here.warnings().size(), 2U);
    empty.fillRectangle(palette.get(), {0, 0, 5, 5});
    empty.drawString(palette.get(), {0, 0}, "text", -1, QsdPositionLeft);
    empty.drawBitmap(palette.get(), port.get(), QsdRect{0, 0, 5, 5}, {0, 0});
    wide.drawLine(palette.get(), {0, 0}, {5, 5});
    unsigned long size = 1;
    EXPECT_EQ(display->getBitmapData(&wide, size, {0, 0, 5, 5}), nullptr);
    EXPECT_EQ(size, 0U);
    display->sync();
    EXPECT_EQ(here.warnings().size(), 2U);
}

} // namespace
