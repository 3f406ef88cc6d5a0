// The display in memory: how pixels are read back.
#include "toolkit/base/QsMalloc.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <vector>

namespace {

std::vector<unsigned> read(const QsdDisplay& display, const QsdSystemPort* port, const QsdRect& rect)
{
    unsigned long size = 1;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(display.getBitmapData(port, size, rect));
    EXPECT_EQ(data == nullptr, size == 0);
    return data == nullptr ? std::vector<unsigned>() : std::vector<unsigned>(data.get(), data.get() + size);
}

QsdRGBBitmapData twoPixels()
{
    QsdRGBBitmapData data(2, 1);
    data.setPixel(0, 0, {255, 255, 255});
    data.setPixel(1, 0, {1, 2, 3});
    return data;
}

TEST(MemoryDisplay, ReadsOneBitRows)
{
    QsdMemoryDisplay display;
    const unsigned char bits[] = {0xA5, 0x80, 0x5A, 0x00};
    const auto bitmap = QsdBitmap::FromBits(&display, 9, 2, bits);
    EXPECT_EQ(read(display, bitmap.get(), {0, 0, 9, 2}), (std::vector<unsigned>{0xA5, 0x80, 0x5A, 0x00}));
    EXPECT_EQ(read(display, bitmap.get(), {1, 0, 8, 1}), (std::vector<unsigned>{0x4B}));
    EXPECT_EQ(read(display, bitmap.get(), {-4, -1, 16, 2}), (std::vector<unsigned>{0, 0, 0x0A, 0x58}));
}

TEST(MemoryDisplay, ReadsOneBitRowsOfTheXFormat)
{
    QsdMemoryDisplay display;
    const unsigned char bits[] = {0x01, 0x03};
    const auto bitmap = QsdBitmap::FromXBM(&display, 8, 2, bits);
    EXPECT_EQ(read(display, bitmap.get(), {0, 0, 8, 2}), (std::vector<unsigned>{0x80, 0xC0}));
}

TEST(MemoryDisplay, ReadsIndices)
{
    QsdMemoryDisplay display(8);
    const QsdBitmap bitmap(&display, twoPixels());
    EXPECT_EQ(bitmap.depth(), 8);
    EXPECT_EQ(read(display, &bitmap, {-1, 0, 4, 1}), (std::vector<unsigned>{0, 215, 0, 0}));
}

TEST(MemoryDisplay, ReadsDirectColours)
{
    QsdMemoryDisplay display;
    const QsdBitmap bitmap(&display, twoPixels());
    EXPECT_EQ(bitmap.depth(), 24);
    EXPECT_EQ(read(display, &bitmap, {0, 0, 3, 1}), (std::vector<unsigned>{0, 255, 255, 255, 0, 1, 2, 3, 0, 0, 0, 0}));
}

TEST(MemoryDisplay, ReadsInkOfAOneBitScreen)
{
    QsdMemoryDisplay display(1);
    const QsdBitmap bitmap(&display, twoPixels());
    EXPECT_EQ(bitmap.depth(), 1);
    EXPECT_EQ(read(display, &bitmap, {0, 0, 2, 1}), (std::vector<unsigned>{0x40}));
}

TEST(MemoryDisplay, HasNothingToReadOfEmptyOrForeignThings)
{
    QsdMemoryDisplay display;
    const QsdBitmap bitmap(&display, 4, 4, 1);
    EXPECT_TRUE(read(display, &bitmap, {0, 0, 0, 5}).empty());
    EXPECT_TRUE(read(display, &bitmap, {0, 0, 5, 0}).empty());
    EXPECT_TRUE(read(display, nullptr, {0, 0, 5, 5}).empty());
}

TEST(MemoryDisplay, DoesNotWrapHugeSizes)
{
    QsdMemoryDisplay display;
    const QsdBitmap bitmap(&display, 1, 1, 24);
    unsigned long size = 0;
    EXPECT_THROW((void)display.getBitmapData(&bitmap, size, {0, 0, 0xFFFFFFFF, 0xFFFFFFFF}), std::bad_alloc);
    EXPECT_THROW(QsdBitmap(&display, 0xFFFFFFFF, 0xFFFFFFFF, 24), std::bad_alloc);
}

TEST(MemoryDisplay, ReadsRectsAtTheEdgesOfSpace)
{
    QsdMemoryDisplay display;
    const QsdBitmap bitmap(&display, twoPixels());
    EXPECT_EQ(read(display, &bitmap, {2147483647, 2147483647, 1, 1}), (std::vector<unsigned>{0, 0, 0, 0}));
    EXPECT_EQ(read(display, &bitmap, {-2147483647 - 1, 0, 1, 1}), (std::vector<unsigned>{0, 0, 0, 0}));
}

TEST(MemoryDisplay, TellsItsColours)
{
    QsdMemoryDisplay display(8);
    std::vector<unsigned short> r(256), g(256), b(256);
    display.colorTable(256, r.data(), g.data(), b.data());
    EXPECT_EQ(r[215], 65535);
    EXPECT_EQ(g[215], 65535);
    EXPECT_EQ(r[36], 51 * 257);
    EXPECT_EQ(b[36], 0);

    display.setColors(QsdColorTable({{255, 0, 0}, {0, 0, 255}}));
    EXPECT_EQ(display.colorCount(), 2);
    display.colorTable(3, r.data(), g.data(), b.data());
    EXPECT_EQ(r[0], 65535);
    EXPECT_EQ(b[1], 65535);
    EXPECT_EQ(r[2], 0);
    EXPECT_EQ(b[2], 0);
    display.setColors(QsdColorTable());
    EXPECT_EQ(display.colorCount(), 2);
}

TEST(MemoryDisplay, ChoosesAmongTheColoursItHas)
{
    QsdMemoryDisplay display(8);
    display.setColors(QsdColorTable({{255, 0, 0}, {0, 0, 255}}));
    const QsdBitmap bitmap(&display, twoPixels());
    // Black is not in the table, nor does an entry beyond its end stand for it.
    EXPECT_LT(bitmap.pixels().get(1, 0), 2U);
}

TEST(MemoryDisplay, OfFewBitsHasGreys)
{
    const QsdMemoryDisplay display(4);
    EXPECT_EQ(display.colorCount(), 16);
    EXPECT_EQ(display.colors().color(15), (QsdRGB{255, 255, 255}));
    EXPECT_EQ(QsdMemoryDisplay(0).screenDepth(), 1);
    EXPECT_EQ(QsdMemoryDisplay().colorCount(), 0);
}

} // namespace
