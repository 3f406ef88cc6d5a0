#include "page/raster.h"

#include "page/ground.h"

#include <gtest/gtest.h>
#include <utility>

using namespace qsdps;

namespace {

constexpr Rgb White{255, 255, 255};
constexpr Rgb Red{255, 0, 0};

/// A picture of one colour that fills its frame.
RasterPicture plain(const RasterFrame& frame, Rgb color)
{
    RasterPicture picture{frame, {}};
    picture.pixels.width = static_cast<std::uint32_t>(frame.width);
    picture.pixels.height = static_cast<std::uint32_t>(frame.height);
    for (std::size_t i = 0; i < frame.pixels(); ++i) {
        for (const std::uint8_t component : {color.r, color.g, color.b, std::uint8_t{255}}) {
            picture.pixels.rgba.push_back(component);
        }
    }
    return picture;
}

} // namespace

TEST(Raster, FramesLieOnTheGrid)
{
    const RasterFrame frame = RasterFrame::around({-5, 12, 20, 8}, 10);
    EXPECT_EQ(frame.x, -1);
    EXPECT_EQ(frame.y, 1);
    EXPECT_EQ(frame.width, 3);
    EXPECT_EQ(frame.height, 1);
    EXPECT_EQ(frame.bounds(), (QsdRect{-10, 10, 30, 10}));
    const RasterFrame both = frame.united(RasterFrame::around({50, 50, 10, 10}, 10));
    EXPECT_EQ(both.bounds(), (QsdRect{-10, 10, 70, 50}));
}

TEST(Raster, PixelsAreInWhenTheirCentresAre)
{
    const RasterFrame frame = RasterFrame::around({0, 0, 40, 20}, 10);
    std::vector<std::size_t> in;
    fillRaster(frame, ringsOf({6, 0, 20, 20}), FillRule::NonZero, [&](std::size_t p) { in.push_back(p); });
    EXPECT_EQ(in, (std::vector<std::size_t>{1, 2, 5, 6}));
}

TEST(Raster, PicturesUniteUnlessMostWouldBeEmpty)
{
    RasterPicture picture = plain({10, 0, 0, 2, 1}, Red);
    EXPECT_TRUE(picture.unite(plain({10, 1, 0, 2, 1}, White)));
    EXPECT_EQ(picture.frame.width, 3);
    EXPECT_EQ(picture.pixels.rgba, (std::vector<std::uint8_t>{255, 0, 0, 255, 255, 255, 255, 255, 255, 255, 255, 255}));
    EXPECT_FALSE(picture.unite(plain({10, 50, 50, 2, 1}, White)));
    EXPECT_EQ(picture.frame.width, 3);
}

TEST(Raster, GroundShowsAreasAndPicturesInTheirOrder)
{
    Ground ground(White, 1, 1);
    const RasterFrame frame{10, 0, 0, 3, 1};
    ground.add({0, 0, 20, 10}, ringsOf({0, 0, 20, 10}), FillRule::NonZero, Red);
    EXPECT_FALSE(ground.isIntricate({0, 0, 30, 10}, ground.count()));
    EXPECT_EQ(ground.pixelsOf(frame, ground.count()), (std::vector<Rgb>{Red, Red, White}));
    const Rgb blue{0, 0, 255};
    ground.add({10, 0, 10, 10}, ringsOf({10, 0, 10, 10}), blue, plain({10, 1, 0, 1, 1}, blue), 0);
    EXPECT_TRUE(ground.isIntricate({0, 0, 30, 10}, ground.count()));
    EXPECT_FALSE(ground.isIntricate({0, 0, 30, 10}, 1));
    EXPECT_FALSE(ground.isIntricate({0, 0, 5, 10}, ground.count()));
    EXPECT_EQ(ground.pixelsOf(frame, ground.count()), (std::vector<Rgb>{Red, blue, White}));
    EXPECT_EQ(ground.pixelsOf(frame, 1), (std::vector<Rgb>{Red, Red, White}));
    // Pixels next to it join it; not where the areas so far are to be kept.
    ground.add({20, 0, 10, 10}, ringsOf({20, 0, 10, 10}), Red, plain({10, 2, 0, 1, 1}, Red), 0);
    EXPECT_EQ(ground.count(), 2U);
    EXPECT_EQ(ground.pixelsOf(frame, ground.count()), (std::vector<Rgb>{Red, blue, Red}));
    ground.add({20, 0, 10, 10}, ringsOf({20, 0, 10, 10}), blue, plain({10, 2, 0, 1, 1}, blue), 2);
    EXPECT_EQ(ground.count(), 3U);
    EXPECT_EQ(ground.pixelsOf(frame, ground.count()), (std::vector<Rgb>{Red, blue, blue}));
}
