// Patterns and pixels in memory.
#include "toolkit/base/QsMalloc.h"
#include "toolkit/graphics/QsdColorPattern.h"
#include "toolkit/graphics/QsdPattern.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

template <class Pattern>
std::vector<unsigned> bytesOf(const Pattern& pattern)
{
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(pattern.getBitmapData(size));
    return {data.get(), data.get() + size};
}

TEST(Pattern, KeepsItsRows)
{
    const unsigned char bits[] = {0x80, 0x40, 0x01, 0xC0};
    const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(10, 2, bits));
    EXPECT_EQ(pattern->width(), 10);
    EXPECT_EQ(pattern->height(), 2);
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0x80, 0x40, 0x01, 0xC0}));
}

TEST(Pattern, OfNoBitsIsSolid)
{
    const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(1, 1, nullptr));
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0xFF}));
}

TEST(Pattern, OfTheXFormatIsTurnedAround)
{
    const unsigned char bits[] = {0x01, 0x02};
    const auto pattern = QsdHandle<QsdPattern>::Adopt(QsdPattern::FromXBM(8, 2, bits));
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0x80, 0x40}));
}

TEST(ColorPattern, KeepsItsPixels)
{
    const unsigned char pixels[] = {0, 1, 2, 3, 0, 4, 5, 6};
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(2, 1, 24, pixels, 8));
    EXPECT_EQ(pattern->depth(), 24);
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0, 1, 2, 3, 0, 4, 5, 6}));
}

TEST(RGBBitmapData, StartsBlackAndKeepsColours)
{
    QsdRGBBitmapData data(2, 2);
    EXPECT_EQ(data.pixel(1, 1), QsdRGB());
    data.setPixel(1, 0, {1, 2, 3});
    EXPECT_EQ(data.pixel(1, 0), (QsdRGB{1, 2, 3}));
    const unsigned char* const bytes = data.data();
    EXPECT_EQ(bytes[5], 1);
    EXPECT_EQ(bytes[6], 2);
    EXPECT_EQ(bytes[7], 3);
}

TEST(RGBBitmapData, HasNothingOutside)
{
    QsdRGBBitmapData data(2, 2);
    data.setPixel(2, 0, {9, 9, 9});
    data.setPixel(0, 2, {9, 9, 9});
    EXPECT_EQ(data.pixel(2, 0), QsdRGB());
    EXPECT_EQ(data.pixel(0, 1), QsdRGB());
    EXPECT_THROW(QsdRGBBitmapData(0xFFFFFFFF, 0xFFFFFFFF), std::bad_alloc);
}

TEST(RGBBitmapData, CopiesWhatBothHave)
{
    QsdRGBBitmapData source(3, 3);
    for (std::uint32_t y = 0; y < 3; ++y) {
        for (std::uint32_t x = 0; x < 3; ++x) {
            source.setPixel(x, y, {static_cast<std::uint8_t>(x + 1), static_cast<std::uint8_t>(y + 1), 7});
        }
    }
    QsdRGBBitmapData target(3, 3);
    target.copy(source, {-1, 1, 3, 100}, {0, 0});
    EXPECT_EQ(target.pixel(0, 0), QsdRGB());
    EXPECT_EQ(target.pixel(1, 0), (QsdRGB{1, 2, 7}));
    EXPECT_EQ(target.pixel(2, 0), (QsdRGB{2, 2, 7}));
    EXPECT_EQ(target.pixel(2, 1), (QsdRGB{2, 3, 7}));
    EXPECT_EQ(target.pixel(2, 2), QsdRGB());
    target.copy(source, {0, 0, 0xFFFFFFFF, 0xFFFFFFFF}, {-2147483647 - 1, 2147483647});
    EXPECT_EQ(target.pixel(1, 0), (QsdRGB{1, 2, 7}));
}

TEST(Pattern, OfTheXFormatWithoutBitsIsCleared)
{
    const auto pattern = QsdHandle<QsdPattern>::Adopt(QsdPattern::FromXBM(9, 1, nullptr));
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0, 0}));
}

TEST(ColorPattern, HasAtLeastOnePixel)
{
    const unsigned char pixel[] = {0, 1, 2, 3};
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(0, 0, 24, pixel, 4));
    EXPECT_EQ(pattern->width(), 1);
    EXPECT_EQ(pattern->height(), 1);
    EXPECT_EQ(bytesOf(*pattern), (std::vector<unsigned>{0, 1, 2, 3}));
    const auto empty = QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(1, 1, 24, nullptr, 4));
    EXPECT_EQ(bytesOf(*empty), std::vector<unsigned>());
}

} // namespace
