#include "toolkit/x11/QsdXCoverage_p.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

struct Run {
    std::uint32_t left;
    std::uint32_t right;

    friend bool operator==(const Run&, const Run&) = default;
};

/// The first bit from `x` on that is `set`, or `width`.
std::uint32_t findBit(const unsigned char* row, std::uint32_t x, std::uint32_t width, bool set)
{
    const unsigned flip = set ? 0 : 0xFF;
    while (x < width) {
        const auto bits = static_cast<unsigned char>((row[x / 8] ^ flip) & (0xFFU >> x % 8));
        if (bits != 0) {
            return std::min(width, x / 8 * 8 + static_cast<std::uint32_t>(std::countl_zero(bits)));
        }
        x = x / 8 * 8 + 8;
    }
    return width;
}

} // namespace

std::vector<XRectangle> QsdXRectanglesOf(const QsdPixels& mask, const QsdPoint& origin)
{
    std::vector<XRectangle> rectangles;
    std::vector<Run> above;
    std::vector<Run> runs;
    std::size_t firstOfAbove = 0; // among the rectangles
    for (std::uint32_t y = 0; y < mask.height(); ++y) {
        runs.clear();
        const unsigned char* const row = mask.row(y);
        for (std::uint32_t x = findBit(row, 0, mask.width(), true); x < mask.width();) {
            const std::uint32_t end = findBit(row, x, mask.width(), false);
            runs.push_back({x, end});
            x = findBit(row, end, mask.width(), true);
        }
        if (runs == above) {
            std::for_each(rectangles.begin() + static_cast<std::ptrdiff_t>(firstOfAbove), rectangles.end(),
                          [](XRectangle& rectangle) { ++rectangle.height; });
            continue;
        }
        firstOfAbove = rectangles.size();
        for (const Run& run : runs) {
            rectangles.push_back(
                QsdXRectangle(origin.x + std::int64_t{run.left}, origin.y + std::int64_t{y}, run.right - run.left, 1));
        }
        above.swap(runs);
    }
    return rectangles;
}
