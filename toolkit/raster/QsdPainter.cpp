#include "toolkit/raster/QsdPainter.h"

#include "toolkit/raster/QsdPolygonFill.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

bool isFinite(QsdRealPoint p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// The pixels that a line passes along its longer direction, limited to those from `low` up to `high`.
struct Steps {
    std::int64_t first;
    std::int64_t end;
};

Steps stepsBetween(double a, double b, std::int64_t low, std::int64_t high)
{
    const auto pixel = [=](double x) {
        return static_cast<std::int64_t>(
            std::clamp(std::floor(x), static_cast<double>(low) - 1, static_cast<double>(high)));
    };
    const std::int64_t from = pixel(std::min(a, b));
    const std::int64_t to = pixel(std::max(a, b));
    return {std::max(from, low), std::min(to + 1, high)};
}

} // namespace

QsdPainter::QsdPainter(QsdPixels& pixels, const QsdRegion& clip, const QsdPaint& paint)
    : _pixels(pixels), _clip(clip), _paint(paint)
{
    _clip.intersect(QsdRect{0, 0, pixels.width(), pixels.height()});
}

// The rectangles stand in bands from top to bottom, so those of a row follow each other.
template <class Use>
void QsdPainter::forVisible(std::int64_t y, std::int64_t left, std::int64_t right, Use use) const
{
    const QsdRect* const end = _clip.rects() + _clip.count();
    const QsdRect* const below =
        std::upper_bound(_clip.rects(), end, y, [](std::int64_t row, const QsdRect& rect) { return row < rect.y; });
    for (const QsdRect* rect = below; rect != _clip.rects() && (rect - 1)->y == (below - 1)->y; --rect) {
        const QsdRect& visible = *(rect - 1);
        const std::int64_t first = std::max<std::int64_t>(left, visible.x);
        const std::int64_t last = std::min(right, visible.right());
        if (y < visible.bottom() && first < last) {
            use(static_cast<std::uint32_t>(y), static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last));
        }
    }
}

void QsdPainter::span(std::int64_t y, std::int64_t left, std::int64_t right) const
{
    forVisible(y, left, right,
               [this](std::uint32_t row, std::uint32_t first, std::uint32_t end) { paintRun(row, first, end); });
}

void QsdPainter::point(std::int64_t x, std::int64_t y, QsdPixels::Value value) const
{
    forVisible(y, x, x + 1,
               [&](std::uint32_t row, std::uint32_t column, std::uint32_t) { _pixels.set(column, row, value); });
}

void QsdPainter::paintRun(std::uint32_t y, std::uint32_t left, std::uint32_t right) const
{
    const QsdPixels* const tile = _paint.tile;
    for (std::uint32_t x = left; x < right; ++x) {
        if (tile == nullptr) {
            _pixels.set(x, y, _paint.color);
            continue;
        }
        const QsdPixels::Value value = tile->get(x % tile->width(), y % tile->height());
        if (tile->depth() != 1) {
            _pixels.set(x, y, value);
        } else if (value != 0) {
            _pixels.set(x, y, _paint.color);
        } else if (_paint.background) {
            _pixels.set(x, y, *_paint.background);
        }
    }
}

void QsdPainter::fill(const std::vector<QsdChain>& rings, bool evenOdd) const
{
    QsdFillPolygons(rings, evenOdd, area(),
                    [this](std::int32_t y, std::int32_t left, std::int32_t right) { span(y, left, right); });
}

void QsdPainter::thinLine(QsdRealPoint from, QsdRealPoint to) const
{
    if (!isFinite(from) || !isFinite(to)) {
        return;
    }
    const bool steep = std::fabs(to.y - from.y) > std::fabs(to.x - from.x);
    if (steep) {
        std::swap(from.x, from.y);
        std::swap(to.x, to.y);
    }
    const double length = to.x - from.x;
    const double rise = to.y - from.y;
    const Steps steps =
        stepsBetween(from.x, to.x, steep ? area().y : area().x, steep ? area().bottom() : area().right());
    const double top = std::min(from.y, to.y);
    const double bottom = std::max(from.y, to.y);
    for (std::int64_t i = steps.first; i < steps.end; ++i) {
        // At the centre of the step, but never past an end.
        const double way = length == 0 ? 0 : (static_cast<double>(i) + 0.5 - from.x) * rise / length;
        const double along = std::clamp(from.y + way, top, bottom);
        if (std::fabs(along) < 4e9) {
            const auto across = static_cast<std::int64_t>(std::floor(along));
            steep ? point(across, i) : point(i, across);
        }
    }
}

void QsdPainter::stroke(const QsdChain& chain, bool closed, double width, const std::vector<double>& dashes,
                        double miterLimit) const
{
    constexpr double ShortestPeriod = 0.25;
    const bool solid = std::accumulate(dashes.begin(), dashes.end(), 0.0) < ShortestPeriod;
    if (chain.empty() || area().isEmpty()) {
        return;
    }
    if (width > 1 || !solid) {
        // Painting a pixel twice does not change it, so every piece can be painted as it comes.
        QsdStroke(chain, closed, std::max(width, 1.0), solid ? std::vector<double>() : dashes, miterLimit, area(),
                  [this](const QsdChain& piece) { fill({piece}, false); });
        return;
    }
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
        thinLine(chain[i], chain[i + 1]);
    }
    if (closed || chain.size() == 1) {
        thinLine(chain.back(), chain.front());
    }
}
