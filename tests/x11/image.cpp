// Pixels as servers of all kinds lay them out.
#include "tests/x11/support.h"

#include "toolkit/x11/QsdXImage_p.h"

#include <cstdlib>

namespace {

using ImageTest = XTest;

struct Layout {
    int depth;
    int format;
    int byteOrder;
    int bitOrder;
    int pad;
};

/// A pixel that tells its place.
unsigned long pixelOf(unsigned place, unsigned long most)
{
    return place * 2654435761UL % (most + 1);
}

/// An image of a layout with a pixel of its own in every place.
QsdXImageHandle imageOf(Display* x, const Layout& layout, unsigned width, unsigned height, unsigned long most)
{
    QsdXImageHandle image(XCreateImage(x, DefaultVisual(x, DefaultScreen(x)), static_cast<unsigned>(layout.depth),
                                       layout.format, 0, nullptr, width, height, layout.pad, 0));
    image->byte_order = layout.byteOrder;
    image->bitmap_bit_order = layout.bitOrder;
    image->bitmap_unit = 8;
    XInitImage(image.get());
    image->data = static_cast<char*>(
        std::calloc(height, static_cast<std::size_t>(image->bytes_per_line) * static_cast<std::size_t>(layout.depth)));
    for (unsigned i = 0; i < width * height; ++i) {
        XPutPixel(image.get(), static_cast<int>(i % width), static_cast<int>(i / width), pixelOf(i, most));
    }
    return image;
}

TEST_F(ImageTest, EveryOrderOfBytesAndBitsIsRead)
{
    constexpr unsigned Width = 13;
    constexpr unsigned Height = 3;
    const QsdXColors& colors = display->xColors();
    const int depth = display->screenDepth();
    for (const int byteOrder : {LSBFirst, MSBFirst}) {
        for (const int bitOrder : {LSBFirst, MSBFirst}) {
            for (const int format : {ZPixmap, XYPixmap}) {
                for (const int imageDepth : {1, depth}) {
                    const unsigned long most = (1UL << imageDepth) - 1;
                    const QsdXImageHandle image = imageOf(
                        display->xDisplay(), {imageDepth, format, byteOrder, bitOrder, 32}, Width, Height, most);
                    QsdPixels pixels(Width + 2, Height + 1, static_cast<std::uint16_t>(imageDepth));
                    QsdXReadImage(*image, colors, 2, 1, pixels);
                    for (unsigned i = 0; i < Width * Height; ++i) {
                        const unsigned long pixel = pixelOf(i, most);
                        EXPECT_EQ(pixels.get(2 + i % Width, 1 + i / Width), colors.value(pixel, pixels.depth()))
                            << i << " " << byteOrder << bitOrder << format << imageDepth;
                    }
                    EXPECT_EQ(pixels.get(0, 0), 0U);
                }
            }
        }
    }
}

TEST_F(ImageTest, TheFirstBytesMeanWhatTheOrderSays)
{
    if (display->screenDepth() != 24) {
        GTEST_SKIP() << "about pixels of 24 bits";
    }
    char* const bytes = static_cast<char*>(std::malloc(4));
    const unsigned char content[] = {0, 0x12, 0x34, 0x56};
    std::copy_n(content, 4, bytes);
    Display* const x = display->xDisplay();
    const QsdXImageHandle image(
        XCreateImage(x, DefaultVisual(x, DefaultScreen(x)), 24, ZPixmap, 0, bytes, 1, 1, 32, 4));
    image->byte_order = MSBFirst;
    XInitImage(image.get());
    QsdPixels pixels(1, 1, 24);
    QsdXReadImage(*image, display->xColors(), 0, 0, pixels);
    EXPECT_EQ(pixels.get(0, 0), 0x123456U);
    image->byte_order = LSBFirst;
    XInitImage(image.get());
    QsdXReadImage(*image, display->xColors(), 0, 0, pixels);
    EXPECT_EQ(pixels.get(0, 0), 0x341200U);
}

TEST_F(ImageTest, ValuesSurviveTheWayToTheServerAndBack)
{
    const std::uint16_t depth = display->screenDepth();
    QsdPixels pixels(300, 4, depth);
    const QsdColorTable table = display->colors();
    for (std::uint32_t i = 0; i < 1200; ++i) {
        const QsdRGB color{static_cast<std::uint8_t>(i * 7), static_cast<std::uint8_t>(i * 3),
                           static_cast<std::uint8_t>(i)};
        pixels.set(i % 300, i / 300, QsdPixels::ValueOf(color, depth, table));
    }
    const QsdXImageHandle image = QsdXMakeImage(*display->connection(), display->xColors(), pixels, 0, 4);
    ASSERT_NE(image, nullptr);
    QsdPixels back(300, 4, depth);
    QsdXReadImage(*image, display->xColors(), 0, 0, back);
    for (std::uint32_t i = 0; i < 1200; ++i) {
        const QsdRGB before = QsdPixels::ColorOf(pixels.get(i % 300, i / 300), depth, table);
        const QsdRGB after = QsdPixels::ColorOf(back.get(i % 300, i / 300), depth, table);
        const int step = depth == 16 ? 4 : 0;
        EXPECT_LE(std::abs(before.red - after.red), step);
        EXPECT_LE(std::abs(before.green - after.green), step);
        EXPECT_LE(std::abs(before.blue - after.blue), step);
    }
}

} // namespace
