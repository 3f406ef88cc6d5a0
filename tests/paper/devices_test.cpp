// What both devices draw, they draw on the same pixels: each operation alone, without any allowance.
#include "paper.h"
#include "verdict.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// Calls of each operation.
constexpr unsigned Rounds = 12;

/// What QsdPSDevice draws, and where it should be.
bool isDrawnAlike(const Operation& operation, unsigned long level)
{
    const Look look = operation.match(true).look;
    const bool everyLevel = operation.classicLevel == 2;
    return look != Look::Blank && look != Look::Apart && (everyLevel || operation.classicLevel == level);
}

class DevicesTest : public testing::TestWithParam<unsigned long> {};

TEST_P(DevicesTest, DrawOnTheSamePixels)
{
    std::vector<Scene> scenes;
    for (const Operation& operation : operations()) {
        for (unsigned seed = 0; seed < Rounds && isDrawnAlike(operation, GetParam()); ++seed) {
            scenes.push_back({Call(operation, seed)});
        }
    }
    const Pages classic = onPaper(scenes, {"classic", GetParam()});
    const Pages print = onPaper(scenes, {"print", GetParam()});
    ASSERT_EQ(classic.messages, "");
    ASSERT_EQ(print.messages, "");
    constexpr Match Equal{Look::Pixels, 0, 0, 0};
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        EXPECT_EQ(mismatch(classic.pictures[i], print.pictures[i], Equal), "") << told(scenes[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, DevicesTest, testing::Values(1UL, 2UL));

} // namespace
