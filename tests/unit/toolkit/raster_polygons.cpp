// Which pixels polygons, curves and lines cover.
#include "toolkit/raster/QsdColorTable.h"
#include "toolkit/raster/QsdFlatten.h"
#include "toolkit/raster/QsdPainter.h"
#include "toolkit/raster/QsdPolygonFill.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t Side = 24;

std::vector<std::vector<int>> countsOf(const std::vector<QsdChain>& rings, bool evenOdd, const QsdRect& area)
{
    std::vector<std::vector<int>> counts(Side, std::vector<int>(Side));
    QsdFillPolygons(rings, evenOdd, area, [&](std::int32_t y, std::int32_t left, std::int32_t right) {
        for (std::int32_t x = left; x < right; ++x) {
            ++counts[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        }
    });
    return counts;
}

/// What a ray from a position to the left crosses.
struct Crossings {
    int count = 0;
    int winding = 0;
    bool onEdge = false; ///< rounding decides on which side the position lies
};

Crossings crossingsAt(const std::vector<QsdChain>& rings, double x, double y)
{
    Crossings crossings;
    for (const QsdChain& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const QsdRealPoint a = ring[i];
            const QsdRealPoint b = ring[(i + 1) % ring.size()];
            if ((a.y <= y) == (b.y <= y)) {
                continue;
            }
            const double at = a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y);
            crossings.onEdge = crossings.onEdge || std::fabs(at - x) < 1e-9;
            if (at <= x) {
                ++crossings.count;
                crossings.winding += a.y < b.y ? 1 : -1;
            }
        }
    }
    return crossings;
}

TEST(PolygonFill, AgreesWithTheRulesAtEveryPixel)
{
    std::mt19937 random(7);
    // Corners never lie level with the pixels' centres.
    std::uniform_int_distribution<int> corner(-20, 115);
    for (int round = 0; round < 300; ++round) {
        std::vector<QsdChain> rings(static_cast<std::size_t>(1 + round % 3));
        for (QsdChain& ring : rings) {
            for (int i = 0; i < 3 + round % 5; ++i) {
                ring.push_back({corner(random) / 4.0 + 0.0625, corner(random) / 4.0 + 0.0625});
            }
        }
        const QsdRect area{2, 3, 20, 18};
        const auto evenOdd = countsOf(rings, true, area);
        const auto winding = countsOf(rings, false, area);
        for (std::uint32_t y = 0; y < Side; ++y) {
            for (std::uint32_t x = 0; x < Side; ++x) {
                const Crossings crossings = crossingsAt(rings, x + 0.5, y + 0.5);
                if (crossings.onEdge) {
                    continue;
                }
                const bool inArea = area.contains({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)});
                const bool odd = crossings.count % 2 != 0;
                const bool wound = crossings.winding != 0;
                ASSERT_EQ(evenOdd[y][x], inArea && odd ? 1 : 0) << round << ' ' << x << ' ' << y;
                ASSERT_EQ(winding[y][x], inArea && wound ? 1 : 0) << round << ' ' << x << ' ' << y;
            }
        }
    }
}

TEST(PolygonFill, NeighboursShareNoPixel)
{
    const QsdChain left{{0, 0}, {8.5, 0}, {8.5, 8.5}, {0, 8.5}};
    const QsdChain right{{8.5, 0}, {16, 0}, {16, 8.5}, {8.5, 8.5}};
    const auto a = countsOf({left}, true, {0, 0, Side, Side});
    const auto b = countsOf({right}, true, {0, 0, Side, Side});
    for (std::size_t x = 0; x < 16; ++x) {
        EXPECT_EQ(a[4][x] + b[4][x], 1) << x;
    }
}

TEST(PolygonFill, StandsAnyCoordinates)
{
    constexpr double Huge = 1e300;
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    const QsdChain around{{-Huge, -Huge}, {Infinite, -Huge}, {Huge, Huge}, {-Huge, Infinite}};
    EXPECT_EQ(countsOf({around}, true, {5, 5, 2, 2})[5][6], 1);
    const QsdChain broken{{std::nan(""), 1}, {0, 0}, {10, 0}, {10, 10}, {0, 10}};
    EXPECT_EQ(countsOf({broken}, true, {0, 0, Side, Side})[9][9], 1);
    EXPECT_EQ(countsOf({{}, {{1, 1}}, {{1, 1}, {9, 9}}}, true, {0, 0, Side, Side})[5][5], 0);
}

TEST(Flatten, KeepsCloseToTheCurve)
{
    QsdChain chain{{0, 0}};
    QsdFlattenCurve(chain, {0, 55.22847498}, {44.77152502, 100}, {100, 100});
    EXPECT_EQ(chain.back(), (QsdRealPoint{100, 100}));
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        // A quarter of a circle of radius 100 around (100, 0).
        const double x = (chain[i].x + chain[i + 1].x) / 2 - 100;
        const double y = (chain[i].y + chain[i + 1].y) / 2;
        EXPECT_NEAR(std::hypot(x, y), 100, 0.2);
    }
}

TEST(Flatten, ArcsGoTheirWay)
{
    const QsdChain quarter = QsdFlattenArc({10, 10}, 8, 4, 0, 90);
    EXPECT_NEAR(quarter.front().x, 18, 1e-9);
    EXPECT_NEAR(quarter.back().x, 10, 1e-9);
    EXPECT_NEAR(quarter.back().y, 6, 1e-9);
    const QsdChain back = QsdFlattenArc({10, 10}, 8, 4, 90, -90);
    EXPECT_NEAR(back.back().x, 18, 1e-9);
    const QsdChain turns = QsdFlattenArc({0, 0}, 1, 1, 0, 1e30);
    EXPECT_NEAR(turns.back().x, 1, 1e-9);
    EXPECT_LT(QsdFlattenArc({0, 0}, 1e300, 1e300, 0, 360).size(), 2000U);
}

TEST(Painter, PaintsInItsClipAlone)
{
    QsdPixels pixels(8, 4, 8);
    QsdRegion clip(QsdRect{1, 0, 2, 2});
    clip.unite(QsdRect{5, 1, 2, 9});
    const QsdPainter painter(pixels, clip, {3, {}, nullptr});
    for (int y = -5; y < 9; ++y) {
        painter.span(y, -1000, 1000);
    }
    for (std::int32_t y = 0; y < 4; ++y) {
        for (std::int32_t x = 0; x < 8; ++x) {
            EXPECT_EQ(pixels.get(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                      clip.contains({x, y}) ? 3U : 0U);
        }
    }
}

TEST(Painter, RepeatsTiles)
{
    QsdPixels tile(3, 2, 1);
    tile.set(0, 0, 1);
    tile.set(2, 1, 1);
    QsdPixels opaque(7, 5, 24);
    QsdPixels masked = opaque;
    QsdPainter(opaque, QsdRegion::Full(), {7, 9, &tile}).fill({{{0, 0}, {7, 0}, {7, 5}, {0, 5}}}, true);
    QsdPainter(masked, QsdRegion::Full(), {7, {}, &tile}).fill({{{0, 0}, {7, 0}, {7, 5}, {0, 5}}}, true);
    for (std::uint32_t y = 0; y < 5; ++y) {
        for (std::uint32_t x = 0; x < 7; ++x) {
            const bool set = tile.get(x % 3, y % 2) != 0;
            EXPECT_EQ(opaque.get(x, y), set ? 7U : 9U);
            EXPECT_EQ(masked.get(x, y), set ? 7U : 0U);
        }
    }
}

TEST(Painter, ThinLinesTakeOnePixelAStep)
{
    std::mt19937 random(11);
    std::uniform_int_distribution<int> position(-10, 33);
    for (int round = 0; round < 300; ++round) {
        const int x0 = position(random);
        const int y0 = position(random);
        const int x1 = position(random);
        const int y1 = position(random);
        QsdPixels pixels(Side, Side, 8);
        QsdPainter(pixels, QsdRegion::Full(), {1, {}, nullptr}).thinLine({x0 + 0.5, y0 + 0.5}, {x1 + 0.5, y1 + 0.5});
        QsdPixels expected(Side, Side, 8);
        const int steps = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
        const bool steep = std::abs(y1 - y0) > std::abs(x1 - x0);
        for (int i = 0; i <= steps; ++i) {
            // From whichever end: the nearest pixel across, halves rounded up.
            const auto at = [&](int a, int b) {
                return steps == 0 ? a : static_cast<int>(std::floor(a + static_cast<double>(b - a) * i / steps + 0.5));
            };
            const int x = steep ? at(x0, x1) : x0 + (x1 < x0 ? -i : i);
            const int y = steep ? y0 + (y1 < y0 ? -i : i) : at(y0, y1);
            if (x >= 0 && y >= 0 && x < static_cast<int>(Side) && y < static_cast<int>(Side)) {
                expected.set(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), 1);
            }
        }
        int different = 0;
        for (std::size_t i = 0; i < expected.bytes().size(); ++i) {
            different += expected.bytes()[i] != pixels.bytes()[i] ? 1 : 0;
        }
        ASSERT_EQ(different, 0) << x0 << ' ' << y0 << ' ' << x1 << ' ' << y1;
    }
}

TEST(Painter, WideLinesCoverWhatIsNear)
{
    QsdPixels pixels(Side, Side, 8);
    const QsdRealPoint a{4.2, 5.1};
    const QsdRealPoint b{18.3, 14.7};
    QsdPainter(pixels, QsdRegion::Full(), {1, {}, nullptr}).stroke({a, b}, false, 5, {});
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    for (std::uint32_t y = 0; y < Side; ++y) {
        for (std::uint32_t x = 0; x < Side; ++x) {
            const double dx = x + 0.5 - a.x;
            const double dy = y + 0.5 - a.y;
            const double along = (dx * (b.x - a.x) + dy * (b.y - a.y)) / length;
            const double across = std::fabs(dx * (b.y - a.y) - dy * (b.x - a.x)) / length;
            EXPECT_EQ(pixels.get(x, y), along >= 0 && along <= length && across <= 2.5 ? 1U : 0U) << x << ' ' << y;
        }
    }
}

TEST(Painter, CornersAreMitred)
{
    QsdPixels pixels(Side, Side, 8);
    QsdPainter(pixels, QsdRegion::Full(), {1, {}, nullptr}).stroke({{4, 4}, {20, 4}, {20, 20}, {4, 20}}, true, 4, {});
    for (std::uint32_t y = 0; y < Side; ++y) {
        for (std::uint32_t x = 0; x < Side; ++x) {
            const bool outer = x >= 2 && x < 22 && y >= 2 && y < 22;
            const bool inner = x >= 6 && x < 18 && y >= 6 && y < 18;
            EXPECT_EQ(pixels.get(x, y), outer && !inner ? 1U : 0U) << x << ' ' << y;
        }
    }
}

std::string dashesOf(const QsdChain& chain, const std::vector<double>& dashes)
{
    QsdPixels pixels(Side, 1, 8);
    QsdPainter(pixels, QsdRegion::Full(), {1, {}, nullptr}).stroke(chain, false, 1, dashes);
    std::string text;
    for (std::uint32_t x = 0; x < Side; ++x) {
        text += pixels.get(x, 0) != 0 ? '#' : '.';
    }
    return text;
}

TEST(Painter, DashesRepeat)
{
    EXPECT_EQ(dashesOf({{0, 0.5}, {24, 0.5}}, {3, 2}), "###..###..###..###..###.");
    EXPECT_EQ(dashesOf({{0, 0.5}, {24, 0.5}}, {3}), "###...###...###...###...");
    EXPECT_EQ(dashesOf({{0, 0.5}, {24, 0.5}}, {2, 1, 1}), "##.#..#.##.#..#.##.#..#.");
    EXPECT_EQ(dashesOf({{0, 0.5}, {4, 0.5}, {24, 0.5}}, {3, 2}), "###..###..###..###..###.");
    EXPECT_EQ(dashesOf({{0, 0.5}, {23, 0.5}}, {0, 0}), std::string(Side, '#'));
    EXPECT_EQ(dashesOf({{0, 0.5}, {24, 0.5}}, {1.75, 2.25}), "##..##..##..##..##..##..");
    EXPECT_EQ(dashesOf({{0, 0.5}, {24, 0.5}}, {1e-9, 1e-300}), std::string(Side, '#'));
}

TEST(Painter, DashesOfEndlessLinesKeepTheirPlace)
{
    // A whole number of periods of five lies before the first column.
    EXPECT_EQ(dashesOf({{-2000000000, 0.5}, {2000000000, 0.5}}, {3, 2}), "###..###..###..###..###.");
    EXPECT_EQ(dashesOf({{-1e300, 0.5}, {1e300, 0.5}}, {0, 1}), std::string(Side, '.'));
}

TEST(ColorTable, FindsTheNearest)
{
    const QsdColorTable cube = QsdColorTable::Cube();
    ASSERT_EQ(cube.size(), 256U);
    for (std::size_t i = 0; i < cube.size(); ++i) {
        EXPECT_EQ(cube.color(cube.nearest(cube.color(i))), cube.color(i));
    }
    EXPECT_EQ(cube.color(cube.nearest({250, 3, 4})), (QsdRGB{255, 0, 0}));
    EXPECT_EQ(cube.color(1000), QsdRGB());
    EXPECT_EQ(QsdColorTable().nearest({1, 2, 3}), 0);
}

} // namespace
