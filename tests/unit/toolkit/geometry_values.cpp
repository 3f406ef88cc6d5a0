#include "toolkit/geometry/QsdPointArray.h"
#include "toolkit/geometry/QsdTransformer.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace {

std::array<double, 6> valuesOf(const QsdTransformer& t)
{
    std::array<double, 6> v{};
    t.getValues(v[0], v[1], v[2], v[3], v[4], v[5]);
    return v;
}

TEST(Point, IsWrittenAsTwoIntegers)
{
    std::ostringstream out;
    out << std::hex << QsdPoint{INT32_MIN, 255};
    EXPECT_EQ(out.str(), "-2147483648 255");
}

TEST(Rect, CommonAndUnitedParts)
{
    const QsdRect a{0, 0, 10, 10};
    EXPECT_EQ(a.intersected({5, 6, 10, 10}), (QsdRect{5, 6, 5, 4}));
    EXPECT_EQ(a.intersected({10, 0, 5, 5}), QsdRect());
    EXPECT_EQ(a.united({20, 20, 1, 1}), (QsdRect{0, 0, 21, 21}));
    EXPECT_EQ(a.united({20, 20, 0, 1}), a);
    EXPECT_EQ(QsdRect().united(a), a);
    EXPECT_TRUE(a.contains({9, 9}));
    EXPECT_FALSE(a.contains({10, 9}));
    const QsdRect huge{INT32_MIN, INT32_MIN, UINT32_MAX, UINT32_MAX};
    EXPECT_EQ(huge.intersected(a), a);
    EXPECT_EQ(huge.united({INT32_MAX, INT32_MAX, 9, 9}).width, UINT32_MAX);
}

TEST(PointArray, OwnPointsComeFirst)
{
    const QsdPoint points[] = {{1, 2}, {3, 4}};
    const QsdPointArray own(2, points);
    QsdPointArray reference;
    EXPECT_EQ(reference.count(), 0U);
    EXPECT_EQ(reference.points(), nullptr);
    reference.referTo(&own);
    EXPECT_EQ(reference.count(), 2U);
    EXPECT_EQ(reference.points(), own.points());
    reference.add({5, 6});
    EXPECT_EQ(reference.count(), 1U);
    reference.clear();
    EXPECT_EQ(reference.count(), 0U);
}

TEST(PointArray, ReferencesInACircleAreEmpty)
{
    QsdPointArray a;
    QsdPointArray b;
    QsdPointArray c;
    a.referTo(&a);
    EXPECT_EQ(a.count(), 0U);
    a.referTo(&b);
    b.referTo(&c);
    c.referTo(&b);
    EXPECT_EQ(a.count(), 0U);
    c.add({1, 1});
    EXPECT_EQ(a.count(), 1U);
}

TEST(Transformer, ComposesInOrder)
{
    QsdTransformer t;
    EXPECT_TRUE(t.isIdentity());
    t.translate(10, 20).scale(2, 3);
    EXPECT_EQ(valuesOf(t), (std::array<double, 6>{2, 0, 0, 3, 20, 60}));
    EXPECT_FALSE(t.isIdentity());
}

TEST(Transformer, TurnsCounterClockwiseAsSeen)
{
    QsdTransformer t;
    t.rotate(90);
    QsdPoint p{10, 0};
    t.transform(p);
    EXPECT_EQ(p, (QsdPoint{0, -10}));
    EXPECT_EQ(valuesOf(t), (std::array<double, 6>{0, 1, -1, 0, 0, 0}));
}

TEST(Transformer, QuarterTurnsHaveNoCrumbsAndNoNegativeZeros)
{
    for (int turn = -8; turn <= 8; ++turn) {
        QsdTransformer t;
        t.rotate(90.0 * turn);
        for (const double value : valuesOf(t)) {
            EXPECT_TRUE(value == 0 || value == 1 || value == -1);
            EXPECT_FALSE(value == 0 && std::signbit(value)) << turn;
        }
    }
}

TEST(Transformer, TurnsAboutACentre)
{
    QsdTransformer t;
    t.rotate(180, {5, 5});
    QsdPoint p{6, 7};
    t.transform(p);
    EXPECT_EQ(p, (QsdPoint{4, 3}));
}

TEST(Transformer, MapsRectanglesOntoEachOther)
{
    const QsdTransformer t(QsdRect{10, 20, 30, 40}, QsdRect{1, 2, 15, 80});
    EXPECT_EQ(t.transform(QsdRect{10, 20, 30, 40}), (QsdRect{1, 2, 15, 80}));
    EXPECT_EQ(valuesOf(QsdTransformer(QsdRect{0, 0, 0, 0}, QsdRect{0, 0, 5, 6})),
              (std::array<double, 6>{5, 0, 0, 6, 0, 0}));
}

TEST(Transformer, InverseLeadsBack)
{
    QsdTransformer t(2, 1, -1, 3, 7, -9);
    QsdPoint p{123, -456};
    t.transform(p);
    t.inverse(p);
    EXPECT_EQ(p, (QsdPoint{123, -456}));
    const QsdTransformer singular(1, 1, 1, 1, 0, 0);
    EXPECT_TRUE(singular.isSingular());
    EXPECT_TRUE(singular.inverted().isIdentity());
    singular.inverse(p);
    EXPECT_EQ(p, (QsdPoint{123, -456}));
}

TEST(Transformer, ResultsAreHeldWithin32Bits)
{
    QsdPoint p{INT32_MAX, INT32_MIN};
    QsdTransformer(1e9, 0, 0, 1e9, 0, 0).transform(p);
    EXPECT_EQ(p, (QsdPoint{INT32_MAX, INT32_MIN}));
    QsdTransformer(std::numeric_limits<double>::quiet_NaN(), 0, 0, 1, 0, 0).transform(p);
    EXPECT_EQ(p.x, 0);
}

} // namespace
