#include "page/raster.h"

#include <algorithm>
#include <cmath>

namespace qsdps {

RasterFrame RasterFrame::around(const QsdRect& bounds, double pixel)
{
    const auto cell = [](double v) { return static_cast<std::int32_t>(std::clamp(v, -1e9, 1e9)); };
    RasterFrame frame;
    frame.pixel = pixel;
    frame.x = cell(std::floor(bounds.x / pixel));
    frame.y = cell(std::floor(bounds.y / pixel));
    frame.width = cell(std::ceil(static_cast<double>(bounds.right()) / pixel)) - frame.x;
    frame.height = cell(std::ceil(static_cast<double>(bounds.bottom()) / pixel)) - frame.y;
    return frame;
}

std::optional<std::size_t> RasterFrame::indexAt(Point p) const
{
    const double column = std::floor(p.x / pixel) - x;
    const double row = std::floor(p.y / pixel) - y;
    if (!(column >= 0 && row >= 0 && column < width && row < height)) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column);
}

Point RasterFrame::centre(std::size_t index) const
{
    const auto columns = static_cast<std::size_t>(width);
    const std::size_t row = index / columns;
    return {(x + static_cast<double>(index % columns) + 0.5) * pixel, (y + static_cast<double>(row) + 0.5) * pixel};
}

RasterFrame RasterFrame::united(const RasterFrame& other) const
{
    RasterFrame both = *this;
    both.x = std::min(x, other.x);
    both.y = std::min(y, other.y);
    both.width = std::max(x + width, other.x + other.width) - both.x;
    both.height = std::max(y + height, other.y + other.height) - both.y;
    return both;
}

QsdRect RasterFrame::bounds() const
{
    const QsdPoint start{static_cast<std::int32_t>(std::floor(x * pixel)),
                         static_cast<std::int32_t>(std::floor(y * pixel))};
    const double right = std::ceil((static_cast<double>(x) + width) * pixel);
    const double bottom = std::ceil((static_cast<double>(y) + height) * pixel);
    return {start.x, start.y, static_cast<std::uint32_t>(right - start.x),
            static_cast<std::uint32_t>(bottom - start.y)};
}

void RasterPicture::lay(const RasterPicture& other)
{
    forEachShared(frame, other.frame, [&](std::size_t to, std::size_t from) {
        if (other.pixels.rgba[4 * from + 3] != 0) {
            std::copy_n(&other.pixels.rgba[4 * from], 4, &pixels.rgba[4 * to]);
        }
    });
}

bool RasterPicture::unite(const RasterPicture& other)
{
    constexpr double MostWaste = 1.5;
    const RasterFrame both = frame.united(other.frame);
    if (static_cast<double>(both.pixels()) > MostWaste * static_cast<double>(frame.pixels() + other.frame.pixels())) {
        return false;
    }
    if (both.pixels() != frame.pixels()) {
        RasterPicture united{both, {}};
        united.pixels.width = static_cast<std::uint32_t>(both.width);
        united.pixels.height = static_cast<std::uint32_t>(both.height);
        united.pixels.rgba.resize(4 * both.pixels());
        united.lay(*this);
        *this = std::move(united);
    }
    lay(other);
    return true;
}

} // namespace qsdps
