#include "page/picture.h"

#include "toolkit/memory/QsdMemoryDisplay.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

/// Two pixels: red, and blue of the given alpha.
Pixels redAnd(std::uint8_t alpha)
{
    return {2, 1, {255, 0, 0, 255, 0, 0, 255, alpha}};
}

Rgb overGreen(const Ink& ink, Point)
{
    return blend(ink, 1, {0, 255, 0});
}

ImageObject inBox(const Box& viewport)
{
    ImageObject image;
    image.viewport = viewport;
    return image;
}

} // namespace

TEST(Picture, FitsItsViewport)
{
    ImageObject image = inBox({10, 10, 100, 100});
    EXPECT_EQ(placementOf(image, 50, 25), (Matrix{2, 0, 0, 2, 10, 35}));
    image.slice = true;
    EXPECT_EQ(placementOf(image, 50, 25), (Matrix{4, 0, 0, 4, -40, 10}));
    image.preserveAspect = false;
    EXPECT_EQ(placementOf(image, 50, 25), (Matrix{2, 0, 0, 4, 10, 10}));
}

TEST(Picture, OpaquePixelsNeedNoMask)
{
    QsdMemoryDisplay display;
    EXPECT_EQ(bitmapOf(display, redAnd(255), 1, overGreen)->mask(), nullptr);
}

TEST(Picture, HiddenPixelsAreMasked)
{
    QsdMemoryDisplay display;
    const auto bitmap = bitmapOf(display, redAnd(0), 1, overGreen);
    ASSERT_NE(bitmap->mask(), nullptr);
    EXPECT_NE(bitmap->mask()->pixels().get(0, 0), bitmap->mask()->pixels().get(1, 0));
}

TEST(Picture, TranslucentPixelsBlendWithTheGround)
{
    QsdMemoryDisplay display;
    const auto bitmap = bitmapOf(display, redAnd(128), 1, overGreen);
    EXPECT_EQ(bitmap->mask(), nullptr);
    EXPECT_EQ(bitmap->pixels().get(0, 0) & 0xFFFFFFU, 0xFF0000U);
    EXPECT_EQ(bitmap->pixels().get(1, 0) & 0xFFFFFFU, 0x007F80U);
}

TEST(Picture, MeanColorLeavesOutWhatIsHidden)
{
    EXPECT_EQ(meanColor(redAnd(0)), (Rgb{255, 0, 0}));
    EXPECT_EQ(meanColor(redAnd(255)), (Rgb{127, 0, 127}));
}

TEST(Images, OtherFilesAreNoPictures)
{
    EXPECT_FALSE(decodeImage(""));
    EXPECT_FALSE(decodeImage("GIF89a"));
    EXPECT_FALSE(decodeImage("\x89PNG\r\n\x1a\nrubbish"));
    EXPECT_FALSE(decodeImage("\xFF\xD8\xFF rubbish"));
}

TEST(Images, ReadsPng)
{
    using namespace std::string_view_literals;
    // One red pixel.
    const auto file = "\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\0\x01\0\0\0\x01\x08\x02\0\0\0\x90wS\xde"
                      "\0\0\0\x0cIDAT\x08\xd7\x63\xf8\xcf\xc0\0\0\x03\x01\x01\0\x18\xdd\x8d\xb0"
                      "\0\0\0\0IEND\xae\x42\x60\x82"sv;
    const std::optional<Pixels> pixels = decodeImage(file);
    ASSERT_TRUE(pixels);
    EXPECT_EQ(pixels->width, 1U);
    EXPECT_EQ(pixels->height, 1U);
    EXPECT_EQ(pixels->rgba, (std::vector<std::uint8_t>{255, 0, 0, 255}));
}
