// What is drawn: the same figures, colours and pixels for everyone who draws them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace bench {

/// A kind of drawing call, repeated to make a document.
enum class Workload {
    OnePen,
    FourPens,
    Polylines,
    Polygons,
    Rectangles,
    Arcs,
    OneFont,
    FourFonts,
    Patterns,
    Image,
    MaskedImage,
    HugeImage
};

struct WorkloadEntry {
    Workload workload;
    std::string_view name;
    std::uint64_t calls; ///< in a document whose time is taken
};

inline constexpr std::array Workloads{
    WorkloadEntry{Workload::OnePen, "lines, one pen", 200000},
    WorkloadEntry{Workload::FourPens, "lines, four pens", 100000},
    WorkloadEntry{Workload::Polylines, "polylines of 50 points", 20000},
    WorkloadEntry{Workload::Polygons, "filled polygons of 20", 50000},
    WorkloadEntry{Workload::Rectangles, "filled rectangles, two colours", 100000},
    WorkloadEntry{Workload::Arcs, "arcs", 100000},
    WorkloadEntry{Workload::OneFont, "strings of 12, one font", 100000},
    WorkloadEntry{Workload::FourFonts, "strings of 12, four fonts", 100000},
    WorkloadEntry{Workload::Patterns, "rectangles filled with a pattern", 20000},
    WorkloadEntry{Workload::Image, "RGB image, 2000 x 2000", 1},
    WorkloadEntry{Workload::MaskedImage, "masked RGB image, 1000 x 1000", 1},
};

[[nodiscard]] constexpr bool isImage(Workload workload)
{
    return workload >= Workload::Image;
}

struct Point {
    int x;
    int y;
};

struct Color {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

struct Pen {
    Color color;
    std::uint16_t width;
};

inline constexpr unsigned Period = 100; ///< calls after which the figures repeat
inline constexpr unsigned PolylinePoints = 50;
inline constexpr unsigned PolygonPoints = 20;
inline constexpr int RectangleWidth = 40;
inline constexpr int RectangleHeight = 25;
inline constexpr int ArcSize = 60; ///< of the square around a circle, of which a quarter is drawn
inline constexpr int FontSize = 12;
inline constexpr std::string_view Text = "Twelve bytes";
inline constexpr int ImageExtent = 500; ///< units that an image is drawn in
inline constexpr std::array<Pen, 4> Pens{{{{0, 0, 0}, 1}, {{255, 0, 0}, 2}, {{0, 128, 0}, 3}, {{0, 0, 255}, 4}}};
/// Rows of a tile, the leftmost pixel in the most significant bit.
inline constexpr std::array<unsigned char, 8> Tile{0x88, 0x44, 0x22, 0x11, 0x88, 0x44, 0x22, 0x11};

/// Points of all figures, without any order; those of the i-th call begin at i % Period.
inline constexpr auto Points = [] {
    std::array<Point, Period + PolylinePoints> points{};
    std::uint32_t state = 1;
    const auto below = [&state](std::uint32_t limit) {
        state = state * 1664525U + 1013904223U;
        return static_cast<int>((state >> 16) % limit);
    };
    for (Point& point : points) {
        point.x = 20 + below(500);
        point.y = 30 + below(700);
    }
    return points;
}();

/// Calls `draw` with the number of each call and its points, which suffice for every figure.
template <class AnyPoint, class Draw>
void repeat(const std::array<AnyPoint, Points.size()>& points, std::uint64_t calls, Draw draw)
{
    for (std::uint64_t i = 0; i < calls; ++i) {
        draw(static_cast<std::size_t>(i), points.data() + i % Period);
    }
}

template <class Draw>
void repeat(std::uint64_t calls, Draw draw)
{
    repeat(Points, calls, draw);
}

/// Pixels of each side of an image; that of the huge one is for memory alone.
[[nodiscard]] constexpr std::uint32_t imageSide(Workload workload)
{
    switch (workload) {
    case Workload::Image:
        return 2000;
    case Workload::MaskedImage:
        return 1000;
    default:
        return 20000;
    }
}

/// The pixel of an image: gentle slopes with some noise, as in photographs.
[[nodiscard]] constexpr Color pixelAt(std::uint32_t x, std::uint32_t y)
{
    const std::uint32_t noise = (x * 2654435761U + y * 40503U) >> 29;
    return {static_cast<std::uint8_t>(x / 8 + noise), static_cast<std::uint8_t>(y / 8),
            static_cast<std::uint8_t>((x + y) / 16 + noise)};
}

/// Whether a pixel of the masked image is seen: those in a circle are.
[[nodiscard]] constexpr bool isOpaque(std::uint32_t x, std::uint32_t y)
{
    const auto radius = static_cast<int>(imageSide(Workload::MaskedImage) / 2);
    const int dx = static_cast<int>(x) - radius;
    const int dy = static_cast<int>(y) - radius;
    return dx * dx + dy * dy < radius * radius;
}

} // namespace bench
