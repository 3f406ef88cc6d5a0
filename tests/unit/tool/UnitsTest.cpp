#include "page/units.h"

#include <gtest/gtest.h>
#include <limits>

using namespace qsdps;

TEST(Units, AreFinerOnSmallPages)
{
    EXPECT_EQ(Units(12).perPoint(), 1000);
    EXPECT_EQ(Units(842).perPoint(), 100);
    EXPECT_EQ(Units(100000).perPoint(), 10);
}

TEST(Units, MapBackToPoints)
{
    double x = 1250;
    double y = -300;
    Units(842).toPoints().transform(x, y);
    EXPECT_DOUBLE_EQ(x, 12.5);
    EXPECT_DOUBLE_EQ(y, -3);
}

TEST(Units, FlattenWithinWhatShows)
{
    EXPECT_DOUBLE_EQ(Units(842).tolerance(), 3);
    EXPECT_DOUBLE_EQ(Units(12).tolerance(), 1.2);
}

TEST(Units, HoldFarCoordinates)
{
    EXPECT_EQ(rounded({1e300, -1e300}), (QsdPoint{1000000000, -1000000000}));
    EXPECT_EQ(rounded({std::numeric_limits<double>::quiet_NaN(), 1.6}), (QsdPoint{0, 2}));
}
