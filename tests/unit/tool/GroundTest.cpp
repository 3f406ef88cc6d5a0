#include "page/ground.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

constexpr Rgb White{255, 255, 255};
constexpr Rgb Red{255, 0, 0};
constexpr Rgb Blue{0, 0, 255};

void lay(Ground& ground, const QsdRect& rect, Rgb color)
{
    ground.add(rect, ringsOf(rect), FillRule::NonZero, color);
}

QsdRect boundsOfPart(const GroundPart& part)
{
    return boundsOf(part.area);
}

} // namespace

TEST(Ground, IsPaperAtFirst)
{
    Ground ground(White, 1, 1);
    EXPECT_EQ(ground.at({5, 5}, 0), White);
    const auto parts = ground.under(ringsOf({0, 0, 10, 10}), 0, 0);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].color, White);
}

TEST(Ground, TellsTheTopmostColor)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 100, 100}, Red);
    lay(ground, {20, 20, 50, 50}, Blue);
    EXPECT_EQ(ground.at({30, 30}, ground.count()), Blue);
    EXPECT_EQ(ground.at({30, 30}, 1), Red);
    EXPECT_EQ(ground.at({90, 90}, ground.count()), Red);
    EXPECT_EQ(ground.at({190, 90}, ground.count()), White);
}

TEST(Ground, HasOnePartUnderWhatOneAreaCovers)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 100, 100}, Red);
    lay(ground, {10, 10, 80, 80}, Blue);
    const auto parts = ground.under(ringsOf({20, 20, 30, 30}), ground.count(), 0);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].color, Blue);
    EXPECT_EQ(boundsOfPart(parts[0]), (QsdRect{20, 20, 30, 30}));
}

TEST(Ground, PartsRiseFromThePaper)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 100, 100}, Red);
    const auto parts = ground.under(ringsOf({50, 0, 100, 100}), ground.count(), 0);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].color, White);
    EXPECT_EQ(boundsOfPart(parts[0]), (QsdRect{50, 0, 100, 100}));
    EXPECT_EQ(parts[1].color, Red);
    EXPECT_EQ(boundsOfPart(parts[1]), (QsdRect{50, 0, 50, 100}));
}

TEST(Ground, JoinsPartsThatLookAlike)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 50, 100}, {100, 0, 0});
    lay(ground, {50, 0, 50, 100}, {102, 0, 0});
    const Rings area = ringsOf({0, 0, 100, 100});
    EXPECT_EQ(ground.under(area, ground.count(), 1).size(), 2U);
    const auto joined = ground.under(area, ground.count(), 2);
    ASSERT_EQ(joined.size(), 1U);
    EXPECT_EQ(boundsOfPart(joined[0]), (QsdRect{0, 0, 100, 100}));
}

TEST(Ground, MakesAreasOnlyWhenTheyMatter)
{
    Ground ground(White, 1, 1);
    int made = 0;
    ground.add(
        {0, 0, 10, 10},
        [&] {
            ++made;
            return ringsOf({0, 0, 40, 10});
        },
        Red);
    EXPECT_EQ(ground.at({50, 5}, 1), White);
    EXPECT_EQ(made, 0);
    EXPECT_EQ(ground.at({5, 5}, 1), Red);
    EXPECT_EQ(ground.at({5, 6}, 1), Red);
    EXPECT_EQ(made, 1);
    EXPECT_EQ(ground.at({20, 5}, 1), White) << "what sticks out of the bounds is cut off";
}

TEST(Ground, CountsWhatAnAreaCoversNotItsBounds)
{
    Ground ground(White, 1, 1);
    // A line with room for its joins around it.
    ground.add(
        {0, 0, 200, 100},
        [] {
            return ringsOf({0, 48, 200, 4});
        },
        Red);
    const auto beside = ground.under(ringsOf({10, 10, 50, 30}), 1, 0);
    ASSERT_EQ(beside.size(), 1U);
    EXPECT_EQ(beside[0].color, White);
    const auto across = ground.under(ringsOf({10, 10, 50, 80}), 1, 0);
    ASSERT_EQ(across.size(), 2U);
    EXPECT_EQ(boundsOfPart(across[0]), (QsdRect{10, 10, 50, 80}));
    EXPECT_EQ(across[1].color, Red);
    EXPECT_EQ(boundsOfPart(across[1]), (QsdRect{10, 48, 50, 4}));
    EXPECT_EQ(ground.at({20, 20}, 1), White);
    EXPECT_TRUE(ground.isBare({10, 10, 50, 30}, 1)) << "once the area is made";
}

TEST(Ground, LeavesNoSliversBetweenAreas)
{
    Ground ground(White, 20, 6);
    lay(ground, {0, 0, 50, 1000}, Red);
    lay(ground, {51, 0, 949, 1000}, Blue);
    const Rings area = ringsOf({10, 10, 900, 200});
    const auto parts = ground.under(area, 2, 0);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(boundsOfPart(parts[0]), (QsdRect{10, 10, 46, 200})) << "over the gap, and a little under the neighbour";
    EXPECT_EQ(parts[0].color, Red);
    EXPECT_EQ(parts[1].color, Blue);
    EXPECT_EQ(parts[0].newest, 1U);
    EXPECT_EQ(parts[1].newest, 2U);
}

TEST(Ground, TellsTheColorUnderTooManyParts)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 10000, 10000}, White);
    ground.add(
        {0, 0, 10000, 10000},
        [] {
            return ringsOf({9000, 9000, 1000, 1000});
        },
        Blue);
    for (int i = 0; i < 300; ++i) {
        lay(ground, {i * 20, 0, 10, 10000}, {static_cast<std::uint8_t>(i % 2 == 0 ? 255 : 0), 0, 0});
    }
    const auto parts = ground.under(ringsOf({0, 0, 10000, 10000}), ground.count(), 0);
    EXPECT_GT(parts.size(), 150U);
    EXPECT_EQ(parts[0].color, White);
}

TEST(Ground, LooksThroughTheHolesOfPictures)
{
    Ground ground(White, 1, 1);
    RasterPicture picture{RasterFrame::around({0, 0, 20, 10}, 10), {2, 1, {255, 0, 0, 255, 0, 0, 0, 0}}};
    ground.add({0, 0, 20, 10}, ringsOf({0, 0, 20, 10}), Red, std::move(picture), 0);
    EXPECT_EQ(ground.at({5, 5}, 1), Red);
    EXPECT_EQ(ground.at({15, 5}, 1), White);
}

TEST(Ground, KnowsWhereItIsBare)
{
    Ground ground(White, 1, 1);
    lay(ground, {0, 0, 10, 10}, Red);
    EXPECT_TRUE(ground.isBare({10, 0, 5, 5}, 1));
    EXPECT_FALSE(ground.isBare({9, 9, 5, 5}, 1));
    EXPECT_TRUE(ground.isBare({9, 9, 5, 5}, 0));
}
