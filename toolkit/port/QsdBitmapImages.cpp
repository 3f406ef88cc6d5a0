// Bitmaps and pixels drawn into a bitmap.
#include "toolkit/port/QsdBitmap.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmapPath_p.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/raster/QsdPainter.h"
#include "toolkit/raster/QsdPolygonFill.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

QsdRect areaOf(const QsdBitmap& bitmap)
{
    return {0, 0, bitmap.pixels().width(), bitmap.pixels().height()};
}

/// The factors of `t` with `at` as the translation.
QsdTransformer placed(const QsdTransformer& t, const QsdPoint& at)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    return {x11, x12, x21, x22, static_cast<double>(at.x), static_cast<double>(at.y)};
}

/// A part of a drawable's pixels; those outside the drawable are 0.
class SourcePixels {
public:
    SourcePixels(const QsdSystemPort& source, const QsdRect& part)
        : _area(part.intersected({0, 0, static_cast<std::uint32_t>(std::min<unsigned long>(source.width(), UINT32_MAX)),
                                  static_cast<std::uint32_t>(std::min<unsigned long>(source.height(), UINT32_MAX))})),
          _pixels(_area.width, _area.height, source.depth())
    {
        unsigned long size = 0;
        const std::unique_ptr<unsigned char, QsFreeDeleter> data(source.display()->getBitmapData(&source, size, _area));
        if (data != nullptr) {
            std::copy_n(data.get(), std::min<std::size_t>(size, _pixels.bytes().size()), _pixels.row(0));
        }
    }

    [[nodiscard]] QsdPixels::Value get(std::int32_t x, std::int32_t y) const
    {
        if (!_area.contains({x, y})) {
            return 0;
        }
        return _pixels.get(static_cast<std::uint32_t>(std::int64_t{x} - _area.x),
                           static_cast<std::uint32_t>(std::int64_t{y} - _area.y));
    }

private:
    QsdRect _area;
    QsdPixels _pixels;
};

/// Which pixel of `from` a position in it, counted from its corner, falls on. The edges of a picture may lie a crumb
/// outside.
struct SourcePosition {
    explicit SourcePosition(const QsdRect& from) : _from(from) {}
    [[nodiscard]] std::int32_t column(double x) const { return onto(_from.x, _from.width, x); }
    [[nodiscard]] std::int32_t row(double y) const { return onto(_from.y, _from.height, y); }

private:
    static std::int32_t onto(std::int32_t start, std::uint32_t length, double offset)
    {
        const double last = static_cast<double>(length) - 1;
        return static_cast<std::int32_t>(std::min(start + std::clamp(std::floor(offset), 0.0, last), 2147483647.0));
    }

    QsdRect _from;
};

/// The part of `from` that can be seen in `area` when `back` leads from there to it.
QsdRect neededPart(const QsdRect& from, const QsdRect& area, const QsdTransformer& back)
{
    QsdRect seen = back.transform(area);
    constexpr std::int64_t Margin = 1;
    const std::int64_t left = std::clamp<std::int64_t>(std::int64_t{seen.x} + from.x - Margin, INT32_MIN, INT32_MAX);
    const std::int64_t top = std::clamp<std::int64_t>(std::int64_t{seen.y} + from.y - Margin, INT32_MIN, INT32_MAX);
    const auto wider = [](std::uint32_t length) {
        return static_cast<std::uint32_t>(std::min<std::uint64_t>(std::uint64_t{length} + 2 * Margin, UINT32_MAX));
    };
    return from.intersected(
        {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top), wider(seen.width), wider(seen.height)});
}

} // namespace

// The picture's outline is filled, and each pixel in it asks back which pixel of the source its centre falls on.
void QsdBitmap::drawImage(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& from,
                          const QsdTransformer& placing, const QsdRect* clip, bool transparent) const
{
    const bool oneBit = source.depth() == 1;
    const QsdSystemPort* mask = nullptr;
    if (transparent && !oneBit) {
        mask = source.isABitmap() ? static_cast<const QsdBitmap&>(source).mask() : nullptr;
        if (mask == nullptr) {
            return;
        }
    }
    QsdTransformer matrix = placing;
    matrix.compose(_transformer);
    QsdRegion visible = visibleRegion(palette);
    if (clip != nullptr) {
        visible.intersect(mapped(QsdRegion(*clip)));
    }
    const QsdPainter painter(_pixels, visible, {});
    if (from.isEmpty() || matrix.isSingular() || painter.area().isEmpty()) {
        return;
    }
    const QsdTransformer back = matrix.inverted();
    const QsdRect part = neededPart(from, painter.area(), back);
    const SourcePixels pixels(source, part);
    const SourcePixels maskPixels(mask == nullptr ? source : *mask, mask == nullptr ? QsdRect{} : part);
    const QsdPixels::Value foreground = valueOf(*palette.foreground());
    const QsdPixels::Value background = valueOf(*palette.background());
    const QsdColorTable colors = source.display()->colors();
    const SourcePosition position(from);

    QsdBitmapPath outline(matrix, QsdBitmapPath::PixelCorner);
    outline.addRectangle({0, 0, from.width, from.height});
    QsdFillPolygons(outline.chains(), true, painter.area(), [&](std::int32_t y, std::int32_t left, std::int32_t right) {
        for (std::int32_t x = left; x < right; ++x) {
            double sourceX = x + 0.5;
            double sourceY = y + 0.5;
            back.transform(sourceX, sourceY);
            const std::int32_t column = position.column(sourceX);
            const std::int32_t row = position.row(sourceY);
            if (mask != nullptr && maskPixels.get(column, row) == 0) {
                continue;
            }
            const QsdPixels::Value value = pixels.get(column, row);
            if (oneBit) {
                if (value != 0 || !transparent) {
                    painter.point(x, y, value != 0 ? foreground : background);
                }
            } else if (source.depth() == depth()) {
                painter.point(x, y, value);
            } else {
                const QsdRGB color = QsdPixels::ColorOf(value, source.depth(), colors);
                painter.point(x, y, QsdPixels::ValueOf(color, depth(), colors));
            }
        }
    });
}

void QsdBitmap::drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                           const QsdPoint& at) const
{
    if (source != nullptr) {
        drawImage(*palette, *source, rect, placed({}, at), nullptr, false);
    }
}

void QsdBitmap::drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                      const QsdPoint& at) const
{
    if (source != nullptr) {
        drawImage(*palette, *source, rect, placed({}, at), nullptr, true);
    }
}

void QsdBitmap::stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                              const QsdTransformer& t, const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        drawImage(*palette, *bitmap, areaOf(*bitmap), placed(t, at), clip, false);
    }
}

void QsdBitmap::stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                         const QsdTransformer& t, const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        drawImage(*palette, *bitmap, areaOf(*bitmap), placed(t, at), clip, true);
    }
}

void QsdBitmap::stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                              const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        stretchBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest), clip);
    }
}

void QsdBitmap::stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                         const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        stretchTransparentBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest),
                                 clip);
    }
}

void QsdBitmap::stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                                  const QsdRect& dest, bool) const
{
    if (source == nullptr) {
        return;
    }
    QsdRGBBitmapData pixels(from.width, from.height);
    pixels.copy(*source, from, QsdPoint{});
    const QsdBitmap bitmap(display(), pixels);
    stretchBitmap(palette, dest, &bitmap, nullptr);
}
