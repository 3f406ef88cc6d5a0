#include "page/path_walk.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(PathWalk, GivesPointsAndDirections)
{
    Path path;
    path.moveTo({0, 0});
    path.lineTo({10, 0});
    path.lineTo({10, 0});
    path.lineTo({10, 20});
    const PathWalk walk(path, 0.1);
    Point point;
    double degrees = -1;
    ASSERT_TRUE(walk.at(4, point, degrees));
    EXPECT_EQ(point, (Point{4, 0}));
    EXPECT_EQ(degrees, 0);
    ASSERT_TRUE(walk.at(15, point, degrees));
    EXPECT_EQ(point, (Point{10, 5}));
    EXPECT_EQ(degrees, 90);
    EXPECT_TRUE(walk.at(30, point, degrees));
    EXPECT_FALSE(walk.at(30.1, point, degrees));
    EXPECT_FALSE(walk.at(-0.1, point, degrees));
}

TEST(PathWalk, GoesBackToTheStartOfClosedPathsAndOnAlongTheNext)
{
    Path path;
    path.moveTo({0, 0});
    path.lineTo({10, 0});
    path.close();
    path.moveTo({50, 0});
    path.lineTo({50, 10});
    const PathWalk walk(path, 0.1);
    Point point;
    double degrees = 0;
    ASSERT_TRUE(walk.at(13, point, degrees));
    EXPECT_EQ(point, (Point{7, 0}));
    EXPECT_EQ(degrees, 180);
    ASSERT_TRUE(walk.at(25, point, degrees));
    EXPECT_EQ(point, (Point{50, 5}));
}

TEST(PathWalk, KnowsNothingOfEmptyPaths)
{
    Point point;
    double degrees = 0;
    EXPECT_FALSE(PathWalk(Path(), 0.1).at(0, point, degrees));
}
