// Drawing into a bitmap: shapes become polygons, polygons become pixels.
#include "toolkit/port/QsdBitmap.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/raster/QsdPolygonFill.h"
#include "toolkit/raster/QsdStroke.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

QsdRGB rgbOf(const QsdColor& color)
{
    return {static_cast<std::uint8_t>(color.red() >> 8), static_cast<std::uint8_t>(color.green() >> 8),
            static_cast<std::uint8_t>(color.blue() >> 8)};
}

QsdChain chainOf(unsigned long count, const QsdPoint* points)
{
    QsdChain chain;
    for (unsigned long i = 0; i < count; ++i) {
        chain.push_back({static_cast<double>(points[i].x), static_cast<double>(points[i].y)});
    }
    return chain;
}

QsdChain chainOf(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas)
{
    QsdChain chain{{static_cast<double>(origin.x), static_cast<double>(origin.y)}};
    for (unsigned long i = 0; i + 1 < count; ++i) {
        chain.push_back({chain.back().x + deltas[i].dx, chain.back().y + deltas[i].dy});
    }
    return chain;
}

QsdChain chainOf(const QsdRect& rect)
{
    const auto left = static_cast<double>(rect.x);
    const auto top = static_cast<double>(rect.y);
    const auto right = static_cast<double>(rect.right());
    const auto bottom = static_cast<double>(rect.bottom());
    return {{left, top}, {left, bottom}, {right, bottom}, {right, top}};
}

QsdChain arcOf(const QsdRect& rect, float start, float range)
{
    return QsdFlattenArc({rect.x + rect.width / 2.0, rect.y + rect.height / 2.0}, rect.width / 2.0, rect.height / 2.0,
                         std::isfinite(start) ? start : 0, std::isfinite(range) ? range : 0);
}

/// The curves of a Bézier operation; see QsdPort::drawBezier for what becomes of points left over.
QsdChain curvesOf(unsigned long count, const QsdPoint* points, bool closed)
{
    const QsdChain given = chainOf(count, points);
    QsdChain all = given;
    if (closed) {
        all.push_back(given.front());
    }
    QsdChain chain{all.front()};
    std::size_t i = 1;
    for (; i + 2 < all.size(); i += 3) {
        QsdFlattenCurve(chain, all[i], all[i + 1], all[i + 2]);
    }
    if (all.size() - i == 1) {
        chain.push_back(all[i]);
    } else if (all.size() - i == 2) {
        QsdFlattenCurve(chain, all[i], all[i], all[i + 1]);
    }
    return chain;
}

} // namespace

/// One drawing call: the bitmap, the palette, and the pixels that both clips leave.
class QsdBitmap::Painter {
public:
    Painter(const QsdBitmap& bitmap, const QsdPalette& palette)
        : _bitmap(bitmap), _palette(palette), _area(QsdRect{0, 0, bitmap._pixels.width(), bitmap._pixels.height()})
    {
        QsdRegion clip = bitmap._clip;
        clip.intersect(palette.clipRegion());
        _area.intersect(clip);
        const QsdDisplay& display = *bitmap.display();
        const QsdColorTable colors = display.colors();
        _foreground = QsdPixels::ValueOf(rgbOf(*palette.foreground()), bitmap.depth(), colors);
        _background = QsdPixels::ValueOf(rgbOf(*palette.background()), bitmap.depth(), colors);
    }

    /// Paints the line along a chain of points in the coordinates of the call.
    void stroke(const QsdChain& chain, bool closed) const
    {
        const QsdLineStyle& style = *_palette.lineStyle();
        const std::vector<std::uint8_t> dashes(style.dashes(), style.dashes() + style.count());
        std::vector<QsdChain> rings =
            QsdStrokeArea(chain, closed, std::max<int>(_palette.lineWidth(), 1), dashes, style.count());
        // The outline of a line one unit wide covers one pixel a step when it is centred on pixels.
        const double shift = _palette.lineWidth() <= 1 ? 0.5 : 0;
        for (QsdChain& ring : rings) {
            for (QsdRealPoint& point : ring) {
                point = {point.x + shift, point.y + shift};
            }
        }
        forEachPixel(rings, false, [this](std::uint32_t x, std::uint32_t y) { put(x, y, _foreground); });
    }

    /// Fills closed rings by the palette's fill style and rule.
    void fill(const std::vector<QsdChain>& rings) const
    {
        const bool evenOdd = _palette.fillRule() == QsdEvenOddRule;
        switch (_palette.fillStyle()) {
        case QsdFillColorPattern:
            if (_palette.colorPattern() != nullptr) {
                fillColorPattern(rings, evenOdd);
            }
            break;
        default:
            fillPattern(rings, evenOdd, _palette.fillStyle() == QsdFillPattern);
            break;
        }
    }

    void point(const QsdPoint& at) const
    {
        QsdPoint mapped = at;
        _bitmap._transformer.transform(mapped);
        if (_area.contains(mapped)) {
            put(static_cast<std::uint32_t>(mapped.x), static_cast<std::uint32_t>(mapped.y), _foreground);
        }
    }

    /// Paints the area `from` of a drawable, mapped by `t` (before the bitmap's own transformer); with `transparent`,
    /// set or masked pixels alone.
    void image(const QsdSystemPort& source, const QsdRect& from, const QsdTransformer& t, const QsdRegion& limit,
               bool transparent) const
    {
        const QsdSystemPort* mask = nullptr;
        if (transparent && source.depth() != 1) {
            mask = source.isABitmap() ? static_cast<const QsdBitmap&>(source).mask() : nullptr;
            if (mask == nullptr) {
                return;
            }
        }
        const QsdPixels pixels = readPixels(source, from);
        const QsdPixels maskPixels = mask == nullptr ? QsdPixels(0, 0, 1) : readPixels(*mask, from);
        QsdTransformer matrix = t;
        matrix.compose(_bitmap._transformer);
        if (matrix.isSingular()) {
            return;
        }
        const QsdTransformer back = matrix.inverted();
        const bool oneBit = pixels.depth() == 1;
        std::vector<QsdChain> rings{mapped(chainOf(QsdRect{0, 0, from.width, from.height}), matrix)};
        forEachPixel(rings, true, limit, [&](std::uint32_t x, std::uint32_t y) {
            double sourceX = x + 0.5;
            double sourceY = y + 0.5;
            back.transform(sourceX, sourceY);
            const auto column = static_cast<std::uint32_t>(std::clamp(sourceX, 0.0, from.width - 1.0));
            const auto row = static_cast<std::uint32_t>(std::clamp(sourceY, 0.0, from.height - 1.0));
            if (mask != nullptr && maskPixels.get(column, row) == 0) {
                return;
            }
            const QsdPixels::Value value = pixels.get(column, row);
            if (!oneBit) {
                put(x, y, value);
            } else if (value != 0) {
                put(x, y, _foreground);
            } else if (!transparent) {
                put(x, y, _background);
            }
        });
    }

private:
    void put(std::uint32_t x, std::uint32_t y, QsdPixels::Value value) const { _bitmap._pixels.set(x, y, value); }

    [[nodiscard]] static QsdChain mapped(QsdChain chain, const QsdTransformer& t)
    {
        for (QsdRealPoint& point : chain) {
            t.transform(point.x, point.y);
        }
        return chain;
    }

    [[nodiscard]] static QsdPixels readPixels(const QsdSystemPort& source, const QsdRect& rect)
    {
        unsigned long size = 0;
        const std::unique_ptr<unsigned char, QsFreeDeleter> data(source.display()->getBitmapData(&source, size, rect));
        QsdPixels pixels(rect.width, rect.height, source.depth());
        if (data != nullptr) {
            std::copy_n(data.get(), std::min<std::size_t>(size, pixels.bytes().size()), pixels.row(0));
        }
        return pixels;
    }

    void fillPattern(const std::vector<QsdChain>& rings, bool evenOdd, bool opaque) const
    {
        const QsdPattern& pattern = *_palette.pattern();
        unsigned long size = 0;
        const std::unique_ptr<unsigned char, QsFreeDeleter> bits(pattern.getBitmapData(size));
        const std::size_t rowBytes = size / pattern.height();
        forEachPixel(rings, evenOdd, [&](std::uint32_t x, std::uint32_t y) {
            const std::uint32_t column = x % pattern.width();
            const bool set = (bits.get()[y % pattern.height() * rowBytes + column / 8] & (0x80U >> column % 8)) != 0;
            if (set || opaque) {
                put(x, y, set ? _foreground : _background);
            }
        });
    }

    void fillColorPattern(const std::vector<QsdChain>& rings, bool evenOdd) const
    {
        const QsdColorPattern& pattern = *_palette.colorPattern();
        unsigned long size = 0;
        const std::unique_ptr<unsigned char, QsFreeDeleter> data(pattern.getBitmapData(size));
        QsdPixels pixels(pattern.width(), pattern.height(), pattern.depth());
        std::copy_n(data.get(), std::min<std::size_t>(size, pixels.bytes().size()), pixels.row(0));
        forEachPixel(rings, evenOdd, [&](std::uint32_t x, std::uint32_t y) {
            put(x, y, pixels.get(x % pattern.width(), y % pattern.height()));
        });
    }

    template <class Receive>
    void forEachPixel(std::vector<QsdChain> rings, bool evenOdd, Receive receive) const
    {
        for (QsdChain& ring : rings) {
            ring = mapped(std::move(ring), _bitmap._transformer);
        }
        forEachPixel(rings, evenOdd, QsdRegion::Full(), receive);
    }

    template <class Receive>
    void forEachPixel(const std::vector<QsdChain>& rings, bool evenOdd, const QsdRegion& limit, Receive receive) const
    {
        QsdRegion area = _area;
        area.intersect(limit);
        for (std::uint16_t i = 0; i < area.count(); ++i) {
            QsdFillPolygons(rings, evenOdd, area.rects()[i],
                            [&](std::int32_t y, std::int32_t left, std::int32_t right) {
                                for (std::int32_t x = left; x < right; ++x) {
                                    receive(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
                                }
                            });
        }
    }

    const QsdBitmap& _bitmap;
    const QsdPalette& _palette;
    QsdRegion _area;
    QsdPixels::Value _foreground = 0;
    QsdPixels::Value _background = 0;
};

void QsdBitmap::drawPoint(const QsdPalette* palette, const QsdPoint& point) const
{
    drawPoints(palette, 1, &point);
}

void QsdBitmap::drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const Painter painter(*this, *palette);
    std::for_each(points, points + count, [&](const QsdPoint& point) { painter.point(point); });
}

void QsdBitmap::drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const
{
    drawSegments(palette, 1, &from, &to);
}

void QsdBitmap::drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                             const QsdPoint* ends) const
{
    const Painter painter(*this, *palette);
    for (unsigned long i = 0; i < count; ++i) {
        const QsdPoint line[] = {starts[i], ends[i]};
        painter.stroke(chainOf(2, line), false);
    }
}

void QsdBitmap::drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    Painter(*this, *palette).stroke(chainOf(count, points), false);
}

void QsdBitmap::drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                             const QsdDeltaPoint* deltas) const
{
    Painter(*this, *palette).stroke(chainOf(origin, count, deltas), false);
}

void QsdBitmap::fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points, bool) const
{
    Painter(*this, *palette).fill({chainOf(count, points)});
}

void QsdBitmap::fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                             const QsdDeltaPoint* deltas, bool) const
{
    Painter(*this, *palette).fill({chainOf(origin, count, deltas)});
}

void QsdBitmap::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    Painter(*this, *palette).stroke(chainOf(rect), true);
}

void QsdBitmap::fillRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    Painter(*this, *palette).fill({chainOf(rect)});
}

void QsdBitmap::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    Painter(*this, *palette).stroke(arcOf(rect, start, range), false);
}

void QsdBitmap::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    QsdChain area = arcOf(rect, start, range);
    if (palette->arcMode() == QsdArcPie) {
        area.push_back({rect.x + rect.width / 2.0, rect.y + rect.height / 2.0});
    }
    Painter(*this, *palette).fill({area});
}

void QsdBitmap::fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    std::vector<QsdChain> rings;
    for (unsigned long i = 0; i < count; ++i) {
        rings.push_back(chainOf(arrays[i].count(), arrays[i].points()));
    }
    Painter(*this, *palette).fill(rings);
}

void QsdBitmap::drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count >= 2) {
        Painter(*this, *palette).stroke(curvesOf(count, points, false), false);
    }
}

void QsdBitmap::drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count >= 2) {
        Painter(*this, *palette).stroke(curvesOf(count, points, true), true);
    }
}

void QsdBitmap::fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count >= 2) {
        Painter(*this, *palette).fill({curvesOf(count, points, true)});
    }
}

void QsdBitmap::drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                           const QsdPoint& at) const
{
    Painter(*this, *palette).image(*source, rect, QsdTransformer(1, 0, 0, 1, at.x, at.y), QsdRegion::Full(), false);
}

void QsdBitmap::drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                      const QsdPoint& at) const
{
    Painter(*this, *palette).image(*source, rect, QsdTransformer(1, 0, 0, 1, at.x, at.y), QsdRegion::Full(), true);
}

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

QsdRegion limitOf(const QsdRect* clip)
{
    return clip == nullptr ? QsdRegion::Full() : QsdRegion(*clip);
}

} // namespace

void QsdBitmap::stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                              const QsdTransformer& t, const QsdRect* clip) const
{
    Painter(*this, *palette).image(*bitmap, areaOf(*bitmap), placed(t, at), limitOf(clip), false);
}

void QsdBitmap::stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                         const QsdTransformer& t, const QsdRect* clip) const
{
    Painter(*this, *palette).image(*bitmap, areaOf(*bitmap), placed(t, at), limitOf(clip), true);
}

void QsdBitmap::stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                              const QsdRect* clip) const
{
    stretchBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest), clip);
}

void QsdBitmap::stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                         const QsdRect* clip) const
{
    stretchTransparentBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest), clip);
}

void QsdBitmap::stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                                  const QsdRect& dest, bool) const
{
    QsdRGBBitmapData pixels(from.width, from.height);
    pixels.copy(*source, from, QsdPoint{});
    const QsdBitmap bitmap(display(), pixels);
    stretchBitmap(palette, dest, &bitmap, nullptr);
}
