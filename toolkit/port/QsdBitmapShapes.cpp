// Shapes drawn into a bitmap.
#include "toolkit/port/QsdBitmap.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdBitmapPath_p.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/raster/QsdPainter.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace {

/// The pixels of a pattern, whose rows may be longer than they need to be.
template <class Pattern>
QsdPixels pixelsOf(const Pattern& pattern)
{
    QsdPixels pixels(pattern.width(), pattern.height(), pattern.depth());
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(pattern.getBitmapData(size));
    const std::size_t rowBytes = size / pattern.height();
    for (std::uint32_t y = 0; y < pixels.height(); ++y) {
        std::copy_n(data.get() + y * rowBytes, std::min(rowBytes, pixels.rowBytes()), pixels.row(y));
    }
    return pixels;
}

/// A colour pattern as a tile for pixels of `depth`; of set bits where those stand for ink, not for light.
QsdPixels tileOf(const QsdColorPattern& pattern, std::uint16_t depth, const QsdColorTable& colors)
{
    QsdPixels given = pixelsOf(pattern);
    if (given.depth() == depth && depth != 1) {
        return given;
    }
    QsdPixels tile(given.width(), given.height(), depth);
    for (std::uint32_t y = 0; y < tile.height(); ++y) {
        for (std::uint32_t x = 0; x < tile.width(); ++x) {
            const QsdPixels::Value value = given.get(x, y);
            const QsdRGB light = value != 0 ? QsdRGB{255, 255, 255} : QsdRGB{};
            const QsdRGB color = given.depth() == 1 ? light : QsdPixels::ColorOf(value, given.depth(), colors);
            tile.set(x, y, QsdPixels::ValueOf(color, depth, colors));
        }
    }
    return tile;
}

} // namespace

void QsdBitmap::stroke(const QsdPalette& palette, const QsdBitmapPath& path, bool closed) const
{
    const QsdPainter painter(_pixels, visibleRegion(palette), {valueOf(*palette.foreground()), {}, nullptr});
    const QsdLineStyle& style = *palette.lineStyle();
    const double scale = path.scale();
    std::vector<double> dashes(style.dashes(), style.dashes() + style.count());
    for (double& length : dashes) {
        length *= scale;
    }
    const double width = palette.lineWidth() * scale;
    for (const QsdChain& chain : path.chains()) {
        painter.stroke(chain, closed, width, dashes);
    }
}

void QsdBitmap::fill(const QsdPalette& palette, const QsdBitmapPath& path) const
{
    QsdPaint paint{valueOf(*palette.foreground()), {}, nullptr};
    std::optional<QsdPixels> tile;
    if (palette.fillStyle() == QsdFillColorPattern) {
        if (palette.colorPattern() == nullptr) {
            return;
        }
        tile = tileOf(*palette.colorPattern(), depth(), display()->colors());
        paint.color = 1;
        paint.background = 0;
    } else if (palette.pattern() != display()->solidPattern()) {
        tile = pixelsOf(*palette.pattern());
        if (palette.fillStyle() == QsdFillPattern) {
            paint.background = valueOf(*palette.background());
        }
    }
    paint.tile = tile ? &*tile : nullptr;
    QsdPainter(_pixels, visibleRegion(palette), paint).fill(path.chains(), palette.fillRule() == QsdEvenOddRule);
}

void QsdBitmap::drawPoint(const QsdPalette* palette, const QsdPoint& point) const
{
    drawPoints(palette, 1, &point);
}

void QsdBitmap::drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const QsdPainter painter(_pixels, visibleRegion(*palette), {valueOf(*palette->foreground()), {}, nullptr});
    for (unsigned long i = 0; i < count; ++i) {
        QsdPoint at = points[i];
        _transformer.transform(at);
        painter.point(at.x, at.y);
    }
}

void QsdBitmap::drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const
{
    drawSegments(palette, 1, &from, &to);
}

void QsdBitmap::drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                             const QsdPoint* ends) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    for (unsigned long i = 0; i < count; ++i) {
        const QsdPoint line[] = {starts[i], ends[i]};
        path.addPoints(2, line);
    }
    stroke(*palette, path, false);
}

void QsdBitmap::drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addPoints(count, points);
    stroke(*palette, path, false);
}

void QsdBitmap::drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                             const QsdDeltaPoint* deltas) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addSteps(origin, count, deltas);
    stroke(*palette, path, false);
}

void QsdBitmap::fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points, bool) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    path.addPoints(count, points);
    fill(*palette, path);
}

void QsdBitmap::fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                             const QsdDeltaPoint* deltas, bool) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    path.addSteps(origin, count, deltas);
    fill(*palette, path);
}

void QsdBitmap::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addRectangle(rect);
    stroke(*palette, path, true);
}

void QsdBitmap::fillRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    path.addRectangle(rect);
    fill(*palette, path);
}

void QsdBitmap::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addArc(rect, start, range);
    stroke(*palette, path, false);
}

void QsdBitmap::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    path.addArc(rect, start, range);
    if (palette->arcMode() == QsdArcPie) {
        path.add({rect.x + rect.width / 2.0, rect.y + rect.height / 2.0});
    }
    fill(*palette, path);
}

void QsdBitmap::fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    for (unsigned long i = 0; i < count; ++i) {
        path.addPoints(arrays[i].count(), arrays[i].points());
    }
    fill(*palette, path);
}

void QsdBitmap::drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addCurves(count, points, false);
    stroke(*palette, path, false);
}

void QsdBitmap::drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCenter);
    path.addCurves(count, points, true);
    stroke(*palette, path, true);
}

void QsdBitmap::fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    QsdBitmapPath path(_transformer, QsdBitmapPath::PixelCorner);
    path.addCurves(count, points, true);
    fill(*palette, path);
}
