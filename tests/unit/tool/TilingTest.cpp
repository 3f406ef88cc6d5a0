#include "page/tiling.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(Tiling, CoversTheBounds)
{
    const auto cells = cellsOver({0, 0, 20, 10}, {0, 0, 10, 10}, Matrix(), 100);
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[0], Matrix::translation(0, 0));
    EXPECT_EQ(cells[1], Matrix::translation(10, 0));
}

TEST(Tiling, StartsWhereTheCellLies)
{
    const auto cells = cellsOver({0, 0, 10, 10}, {5, 0, 10, 10}, Matrix(), 100);
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[0], Matrix::translation(-10, 0));
}

TEST(Tiling, FollowsTheMap)
{
    EXPECT_EQ(cellsOver({0, 0, 100, 100}, {0, 0, 10, 10}, Matrix::scaling(5, 5), 100).size(), 4U);
}

TEST(Tiling, GivesUpOnTooMany)
{
    EXPECT_TRUE(cellsOver({0, 0, 100, 100}, {0, 0, 1, 1}, Matrix(), 9999).empty());
    EXPECT_TRUE(cellsOver({0, 0, 100, 100}, {0, 0, 1, 1}, Matrix::scaling(0, 1), 9999).empty());
    EXPECT_TRUE(cellsOver({0, 0, 100, 100}, {0, 0, 0, 1}, Matrix(), 9999).empty());
}
