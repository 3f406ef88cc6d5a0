// Random numbers that are the same everywhere.
#pragma once

#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/graphics/QsdBitmapData.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

/// The pages that are drawn on, in units and pixels.
inline constexpr std::uint32_t PageWidth = 160;
inline constexpr std::uint32_t PageHeight = 120;
inline constexpr QsdRGB Paper{255, 255, 255};

/// Throws numbers, and what can be made of them for a page.
class Dice {
public:
    explicit Dice(unsigned seed) : _generator(seed) {}

    /// From `low` to `high`.
    [[nodiscard]] std::int32_t between(std::int32_t low, std::int32_t high)
    {
        return low + static_cast<std::int32_t>(_generator() % static_cast<std::uint32_t>(high - low + 1));
    }
    /// True once in so many times.
    [[nodiscard]] bool oneIn(std::int32_t times) { return between(1, times) == 1; }
    [[nodiscard]] std::uint16_t size(std::int32_t low, std::int32_t high)
    {
        return static_cast<std::uint16_t>(between(low, high));
    }
    /// On the page or a little outside.
    [[nodiscard]] QsdPoint point() { return {between(-20, 180), between(-20, 140)}; }
    [[nodiscard]] QsdPoint pointInside() { return {between(20, 110), between(20, 80)}; }
    [[nodiscard]] std::vector<QsdPoint> points(std::int32_t least, std::int32_t most)
    {
        std::vector<QsdPoint> result(static_cast<std::size_t>(between(least, most)));
        for (QsdPoint& p : result) {
            p = point();
        }
        return result;
    }
    [[nodiscard]] QsdRect rect()
    {
        const std::int32_t x = between(-10, 110);
        const std::int32_t y = between(-10, 80);
        return {x, y, size(1, 90), size(1, 70)};
    }
    /// A rectangle whose middle has whole coordinates.
    [[nodiscard]] QsdRect evenRect()
    {
        const QsdRect any = rect();
        return {any.x, any.y, 2 * (any.width / 2 + 2), 2 * (any.height / 2 + 2)};
    }
    [[nodiscard]] QsdRegion region()
    {
        QsdRegion result;
        for (std::int32_t i = between(1, 3); i != 0; --i) {
            result.unite(rect());
        }
        return result;
    }
    /// Full or empty components, which every way of writing a number keeps; not that of the paper.
    [[nodiscard]] QsdRGB color()
    {
        const std::int32_t bits = between(0, 6);
        const auto component = [bits](int bit) { return static_cast<std::uint8_t>((bits >> bit & 1) * 255); };
        return {component(0), component(1), component(2)};
    }
    [[nodiscard]] std::vector<unsigned char> bytes(std::size_t count)
    {
        std::vector<unsigned char> result(count);
        for (unsigned char& byte : result) {
            byte = static_cast<unsigned char>(between(0, 255));
        }
        return result;
    }

private:
    std::mt19937 _generator;
};
