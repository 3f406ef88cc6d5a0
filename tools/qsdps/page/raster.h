// Parts of a page as pixels, for what is too intricate to be cut up as areas.
#pragma once

#include "images/pixels.h"
#include "page/rings.h"
#include "toolkit/raster/QsdPolygonFill.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace qsdps {

/// A rectangle of the page's grid of pixels, which begins at the origin of the units.
struct RasterFrame {
    double pixel = 1; ///< side in units
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    /// The smallest frame around a rectangle of units.
    [[nodiscard]] static RasterFrame around(const QsdRect& bounds, double pixel);
    /// The index, row by row, of the pixel that a point of units lies in; none outside.
    [[nodiscard]] std::optional<std::size_t> indexAt(Point p) const;
    /// The middle of a pixel in units.
    [[nodiscard]] Point centre(std::size_t index) const;
    /// The smallest frame around this and another one of the same grid.
    [[nodiscard]] RasterFrame united(const RasterFrame& other) const;
    /// The rectangle of units that it covers.
    [[nodiscard]] QsdRect bounds() const;
    [[nodiscard]] std::size_t pixels() const
    {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
};

/// Pixels of the page that were painted as such.
struct RasterPicture {
    RasterFrame frame;
    Pixels pixels; ///< of the frame; wholly transparent where nothing was painted

    /// Copies what is painted in another picture of the same grid, as far as it lies in this frame.
    void lay(const RasterPicture& other);
    /// Lays another picture of the same grid on this one, which grows as needed; false, and nothing done, when the two
    /// lie so far apart that most of it would be empty.
    bool unite(const RasterPicture& other);
};

/// Calls use(index in `a`, index in `b`) for each pixel that two frames of one grid share.
template <class Use>
void forEachShared(const RasterFrame& a, const RasterFrame& b, Use use)
{
    const auto index = [](const RasterFrame& frame, std::int32_t x, std::int32_t y) {
        return static_cast<std::size_t>(y - frame.y) * static_cast<std::size_t>(frame.width) +
               static_cast<std::size_t>(x - frame.x);
    };
    const std::int32_t right = std::min(a.x + a.width, b.x + b.width);
    const std::int32_t bottom = std::min(a.y + a.height, b.y + b.height);
    for (std::int32_t y = std::max(a.y, b.y); y < bottom; ++y) {
        for (std::int32_t x = std::max(a.x, b.x); x < right; ++x) {
            use(index(a, x, y), index(b, x, y));
        }
    }
}

/// Calls `set` with the index, row by row, of each pixel of the frame whose centre lies inside the rings.
template <class Set>
void fillRaster(const RasterFrame& frame, const Rings& rings, FillRule rule, Set set)
{
    std::vector<QsdChain> chains;
    for (const Ring& ring : rings) {
        QsdChain& chain = chains.emplace_back();
        for (const QsdPoint& p : ring) {
            chain.push_back({p.x / frame.pixel - frame.x, p.y / frame.pixel - frame.y});
        }
    }
    const QsdRect area{0, 0, static_cast<std::uint32_t>(frame.width), static_cast<std::uint32_t>(frame.height)};
    QsdFillPolygons(chains, rule == FillRule::EvenOdd, area,
                    [&](std::int32_t y, std::int32_t left, std::int32_t right) {
                        const std::size_t row = static_cast<std::size_t>(y) * area.width;
                        for (std::int32_t x = left; x < right; ++x) {
                            set(row + static_cast<std::size_t>(x));
                        }
                    });
}

} // namespace qsdps
