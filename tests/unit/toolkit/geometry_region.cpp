#include "toolkit/geometry/QsdRegion.h"

#include <bitset>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr int Side = 36; ///< more than any rectangle here reaches
using Model = std::bitset<Side * Side>;

Model modelOf(const QsdRegion& region)
{
    Model model;
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            model[static_cast<std::size_t>(y * Side + x)] = region.contains({x, y});
        }
    }
    return model;
}

/// Bands from top to bottom, disjoint rectangles from left to right with gaps between them, equal bands joined.
void expectCanonical(const QsdRegion& region)
{
    for (std::uint16_t i = 1; i < region.count(); ++i) {
        const QsdRect& a = region.rects()[i - 1];
        const QsdRect& b = region.rects()[i];
        if (a.y == b.y) {
            EXPECT_EQ(a.height, b.height);
            EXPECT_LT(a.right(), b.x);
        } else {
            EXPECT_LE(a.bottom(), b.y);
        }
    }
}

QsdRect randomRect(std::mt19937& random)
{
    const auto below = [&](int limit) { return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit)); };
    return {below(24), below(24), static_cast<std::uint32_t>(below(10)), static_cast<std::uint32_t>(below(10))};
}

TEST(Region, OperationsAgreeWithABitmap)
{
    std::mt19937 random(4);
    for (int round = 0; round < 2000; ++round) {
        QsdRegion a;
        QsdRegion b;
        for (auto i = random() % 5; i != 0; --i) {
            a.add(randomRect(random));
        }
        for (auto i = random() % 5; i != 0; --i) {
            b.unite(randomRect(random));
        }
        QsdRegion united = a;
        united.unite(b);
        ASSERT_EQ(modelOf(united), modelOf(a) | modelOf(b));
        if (!b.isEmpty()) {
            expectCanonical(united);
        }
        QsdRegion common = a;
        common.intersect(b);
        ASSERT_EQ(modelOf(common), modelOf(a) & modelOf(b));
        ASSERT_EQ(a == b, modelOf(a) == modelOf(b));
        ASSERT_EQ(common == b, modelOf(common) == modelOf(b));
        for (std::uint16_t i = 0; i < united.count(); ++i) {
            ASSERT_EQ(united.boundingRect().intersected(united.rects()[i]), united.rects()[i]);
        }
    }
}

TEST(Region, AddedRectanglesKeepTheirOrder)
{
    QsdRegion region;
    region.add({20, 0, 5, 5});
    region.add({0, 0, 10, 10});
    region.add({3, 3, 0, 7});
    ASSERT_EQ(region.count(), 2U);
    EXPECT_EQ(region.rects()[0], (QsdRect{20, 0, 5, 5}));
    EXPECT_EQ(region.boundingRect(), (QsdRect{0, 0, 25, 10}));
}

TEST(Region, FullAndEmpty)
{
    QsdRegion full = QsdRegion::Full();
    EXPECT_TRUE(full.isFull());
    EXPECT_EQ(full.count(), 0U);
    EXPECT_EQ(full.boundingRect(), QsdRegion::_FullRect);
    EXPECT_TRUE(full.contains({INT32_MAX, INT32_MIN}));
    EXPECT_FALSE(full == QsdRegion());
    full.intersect(QsdRect{1, 2, 3, 4});
    EXPECT_TRUE(full == QsdRegion(QsdRect{1, 2, 3, 4}));
    full.unite(QsdRegion::Full());
    EXPECT_TRUE(full.isFull());
    full.add({1, 2, 3, 4});
    full.translate(5, 5);
    EXPECT_TRUE(full == QsdRegion::Full());
    full.empty();
    EXPECT_TRUE(full.isEmpty());
    EXPECT_TRUE(full == QsdRegion(QsdRect{1, 2, 0, 4}));
    EXPECT_EQ(full.boundingRect(), QsdRect());
}

TEST(Region, Moves)
{
    QsdRegion region(QsdRect{1, 2, 3, 4});
    region.translate(-10, 20);
    EXPECT_TRUE(region == QsdRegion(QsdRect{-9, 22, 3, 4}));
    region.translate(INT32_MIN, INT32_MAX);
    EXPECT_EQ(region.boundingRect().x, INT32_MIN);
}

TEST(Region, MovesToTheEdgeOfTheCoordinates)
{
    QsdRegion region(QsdRect{0, 0, 5, 5});
    region.unite(QsdRect{20, 0, 5, 5});
    region.unite(QsdRect{0, 20, 5, 5});
    region.translate(INT32_MIN + 10, INT32_MIN);
    region.translate(-20, 0);
    QsdRegion expected(QsdRect{INT32_MIN, INT32_MIN, 5, 5});
    expected.unite(QsdRect{INT32_MIN + 10, INT32_MIN, 5, 5});
    expected.unite(QsdRect{INT32_MIN, INT32_MIN + 20, 5, 5});
    EXPECT_EQ(region.boundingRect(), expected.boundingRect());
    EXPECT_TRUE(region == expected);
    region.translate(-15, 0);
    expected = QsdRegion(QsdRect{INT32_MIN, INT32_MIN, 5, 5});
    expected.unite(QsdRect{INT32_MIN, INT32_MIN + 20, 5, 5});
    EXPECT_EQ(region.boundingRect(), expected.boundingRect());
    EXPECT_TRUE(region == expected) << "the rectangles lie over each other now";
}

TEST(Region, ExtremeRectangles)
{
    QsdRegion region(QsdRect{INT32_MIN, INT32_MIN, UINT32_MAX, UINT32_MAX});
    region.unite(QsdRect{INT32_MAX, INT32_MAX, UINT32_MAX, UINT32_MAX});
    EXPECT_TRUE(region.contains({0, 0}));
    region.intersect(QsdRect{5, 6, 7, 8});
    EXPECT_TRUE(region == QsdRegion(QsdRect{5, 6, 7, 8}));
}

TEST(Region, NeverHoldsMoreThanCanBeCounted)
{
    QsdRegion region;
    for (int i = 0; i < 65540; ++i) {
        region.add({2 * (i % 256), 2 * (i / 256), 1, 1});
    }
    EXPECT_LE(region.count(), 65535U);
    EXPECT_TRUE(region.contains({2, 0}));
    EXPECT_TRUE(region.contains({2 * (65539 % 256), 2 * (65539 / 256)}));
}

/// Columns with gaps between them, each a row lower than the one before it.
QsdRegion staggeredColumns(std::int32_t count)
{
    QsdRegion region;
    for (std::int32_t i = 0; i < count; ++i) {
        region.add({2 * i, i, 1, static_cast<std::uint32_t>(count)});
    }
    return region;
}

TEST(Region, StaggeredColumnsAreCutAtTheLimit)
{
    constexpr std::int32_t Count = 65535;
    const QsdRegion columns = staggeredColumns(Count);
    QsdRegion united = columns;
    united.unite(QsdRect{0, 0, 1, 1});
    EXPECT_LE(united.count(), 65535U);
    EXPECT_GT(united.count(), 65000U);
    EXPECT_EQ(united.boundingRect(), columns.boundingRect());
    expectCanonical(united);
    EXPECT_FALSE(united.contains({1, 1})) << "the first bands are exact";
    EXPECT_TRUE(united.contains({1, 1000})) << "the others are not";

    QsdRegion common = columns;
    common.intersect(columns);
    EXPECT_TRUE(common == united);
    common = columns;
    common.intersect(QsdRect{2 * Count - 2, Count - 1, 10, 10});
    EXPECT_TRUE(common == QsdRegion(QsdRect{2 * Count - 2, Count - 1, 1, 10})) << "a small result is exact";
}

TEST(Region, OneBandOfTooManyRectanglesBecomesOne)
{
    QsdRegion columns;
    for (std::int32_t i = 0; i < 65535; ++i) {
        columns.add({2 * i, 0, 1, 8});
    }
    columns.unite(QsdRect{2 * 65535, 0, 1, 8});
    EXPECT_TRUE(columns == QsdRegion(QsdRect{0, 0, 2 * 65535 + 1, 8}));
}

TEST(Region, RectanglesOverEachOtherCostNoMoreThanBesideEachOther)
{
    constexpr std::int32_t Count = 20000;
    QsdRegion nested;
    QsdRegion rising;
    for (std::int32_t i = 0; i < Count; ++i) {
        const auto size = static_cast<std::uint32_t>(2 * (Count - i));
        nested.add({i, i, size, size});
        rising.add({-i, -i, Count, Count});
    }
    const QsdRect outer{0, 0, 2 * Count, 2 * Count};
    EXPECT_TRUE(nested == QsdRegion(outer));
    QsdRegion common = nested;
    common.intersect(rising);
    EXPECT_TRUE(common == QsdRegion(QsdRect{0, 0, Count, Count}));
    nested.unite(nested);
    EXPECT_EQ(nested.count(), 1U);
}

TEST(Region, TakesRectanglesWithoutEnd)
{
    QsdRegion region;
    for (std::int32_t i = 0; i < 90000; ++i) {
        region.add({2 * (i % 1000), 2 * (i / 1000), 1, 1});
        if (i >= 65535) {
            ASSERT_GE(region.count(), 61439U - 1000U);
        }
    }
    EXPECT_EQ(region.boundingRect(), (QsdRect{0, 0, 1999, 179}));
    EXPECT_TRUE(region.contains({0, 0}));
    EXPECT_FALSE(region.contains({1, 0})) << "the first bands are exact";
    EXPECT_TRUE(region.contains({1998, 178}));
}

} // namespace
