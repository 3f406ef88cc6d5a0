#include "page/gradient_bands.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

Gradient blackToWhite(Gradient::Kind kind)
{
    Gradient gradient;
    gradient.kind = kind;
    gradient.end = kind == Gradient::Kind::Linear ? Point{100, 0} : Point{0, 0};
    gradient.endRadius = 100;
    gradient.stops = {{0, {0, 0, 0}, 1}, {1, {255, 255, 255}, 1}};
    return gradient;
}

void expectWithoutGaps(const std::vector<GradientBand>& bands, double from, double to)
{
    ASSERT_FALSE(bands.empty());
    EXPECT_LE(bands.front().from, from);
    EXPECT_GE(bands.back().to, to);
    for (std::size_t i = 1; i < bands.size(); ++i) {
        EXPECT_NEAR(bands[i].from, bands[i - 1].to, 1e-12);
    }
}

} // namespace

TEST(GradientBands, RiseSmoothly)
{
    const auto bands = bandsOf(blackToWhite(Gradient::Kind::Linear), 0, 1, 1e-6);
    expectWithoutGaps(bands, 0, 1);
    EXPECT_EQ(bands.size(), 64U);
    for (std::size_t i = 1; i < bands.size(); ++i) {
        EXPECT_GE(bands[i].ink.color.r, bands[i - 1].ink.color.r);
        EXPECT_LE(bands[i].ink.color.r - bands[i - 1].ink.color.r, 5);
    }
}

TEST(GradientBands, AreNotNarrowerThanWhatShows)
{
    EXPECT_EQ(bandsOf(blackToWhite(Gradient::Kind::Linear), 0, 1, 0.25).size(), 4U);
}

TEST(GradientBands, GoOnWithTheColorsOfTheEnds)
{
    const auto bands = bandsOf(blackToWhite(Gradient::Kind::Linear), -1, 3, 0.5);
    expectWithoutGaps(bands, -1, 3);
    EXPECT_EQ(bands.front().ink.color, (Rgb{0, 0, 0}));
    EXPECT_EQ(bands.back().ink.color, (Rgb{255, 255, 255}));
}

TEST(GradientBands, Repeat)
{
    Gradient gradient = blackToWhite(Gradient::Kind::Linear);
    gradient.spread = Spread::Repeat;
    const auto bands = bandsOf(gradient, 0, 2, 0.5);
    expectWithoutGaps(bands, 0, 2);
    ASSERT_EQ(bands.size(), 4U);
    EXPECT_EQ(bands[0].ink.color, bands[2].ink.color);
}

TEST(GradientBands, Reflect)
{
    Gradient gradient = blackToWhite(Gradient::Kind::Linear);
    gradient.spread = Spread::Reflect;
    const auto bands = bandsOf(gradient, -1, 1, 0.5);
    expectWithoutGaps(bands, -1, 1);
    ASSERT_EQ(bands.size(), 4U);
    EXPECT_EQ(bands[0].ink.color, bands[3].ink.color);
    EXPECT_EQ(bands[1].ink.color, bands[2].ink.color);
}

TEST(GradientBands, KeepJumps)
{
    Gradient gradient = blackToWhite(Gradient::Kind::Linear);
    gradient.stops = {{0, {255, 0, 0}, 1}, {0.5, {255, 0, 0}, 1}, {0.5, {0, 0, 255}, 1}, {1, {0, 0, 255}, 1}};
    const auto bands = bandsOf(gradient, 0, 1, 1e-6);
    ASSERT_EQ(bands.size(), 2U);
    EXPECT_EQ(bands[0].ink.color, (Rgb{255, 0, 0}));
    EXPECT_EQ(bands[1].from, 0.5);
    EXPECT_EQ(bands[1].ink.color, (Rgb{0, 0, 255}));
}

TEST(GradientBands, LinearAreasCoverTheBounds)
{
    const QsdRect bounds{-500, 0, 2000, 300};
    Rings all;
    for (const BandArea& area :
         bandAreas(blackToWhite(Gradient::Kind::Linear), Matrix::scaling(10, 10), bounds, 1, 10)) {
        all = unionOf(all, area.area);
    }
    EXPECT_TRUE(difference(ringsOf(bounds), all).empty());
}

TEST(GradientBands, RadialAreasShrinkFromTheBounds)
{
    const QsdRect bounds{-2000, -2000, 4000, 4000};
    const auto areas = bandAreas(blackToWhite(Gradient::Kind::Radial), Matrix::scaling(10, 10), bounds, 1, 10);
    ASSERT_GT(areas.size(), 10U);
    EXPECT_EQ(boundsOf(areas.front().area), bounds);
    EXPECT_EQ(areas.front().ink.color, (Rgb{255, 255, 255}));
    for (std::size_t i = 1; i < areas.size(); ++i) {
        EXPECT_LT(boundsOf(areas[i].area).width, boundsOf(areas[i - 1].area).width);
    }
}

TEST(GradientBands, ReachUnderTheirNeighbours)
{
    constexpr int Overlap = 30;
    const QsdRect bounds{0, 0, 10000, 300};
    const auto linear = bandAreas(blackToWhite(Gradient::Kind::Linear), Matrix::scaling(100, 100), bounds, 1, Overlap);
    ASSERT_GT(linear.size(), 10U);
    for (std::size_t i = 1; i < linear.size(); ++i) {
        const QsdRect before = boundsOf(linear[i - 1].area);
        const QsdRect here = boundsOf(linear[i].area);
        EXPECT_NEAR(static_cast<double>(before.right() - here.x), Overlap, 2);
    }
    const auto radial = bandAreas(blackToWhite(Gradient::Kind::Radial), Matrix::scaling(100, 100), bounds, 1, Overlap);
    ASSERT_GT(radial.size(), 10U);
    for (std::size_t i = 0; i + 2 < radial.size(); ++i) {
        EXPECT_TRUE(difference(radial[i].inside, radial[i + 1].area).empty());
        EXPECT_FALSE(difference(radial[i + 1].area, radial[i].inside).empty());
    }
    EXPECT_TRUE(radial.back().inside.empty());
}

TEST(GradientBands, NothingWithoutExtent)
{
    Gradient gradient = blackToWhite(Gradient::Kind::Linear);
    gradient.end = gradient.start;
    EXPECT_TRUE(bandAreas(gradient, Matrix(), {0, 0, 10, 10}, 1, 10).empty());
    EXPECT_TRUE(bandAreas(blackToWhite(Gradient::Kind::Linear), Matrix::scaling(1, 0), {0, 0, 10, 10}, 1, 10).empty());
}
