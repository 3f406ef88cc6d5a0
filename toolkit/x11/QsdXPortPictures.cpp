// Bitmaps and pixels drawn with the X server.
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/port/QsdBitmapPath_p.h"
#include "toolkit/raster/QsdPainter.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXGraphics_p.h"
#include "toolkit/x11/QsdXPort.h"
#include "toolkit/x11/QsdXReduction_p.h"

#include <memory>

namespace {

/// The factors of `t` with `at` as the translation.
QsdTransformer placed(const QsdTransformer& t, const QsdPoint& at)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    return {x11, x12, x21, x22, static_cast<double>(at.x), static_cast<double>(at.y)};
}

} // namespace

std::unique_ptr<QsdBitmap> QsdXPort::outlineOf(const QsdPalette& palette, const PicturePlace& place,
                                               const QsdRect& area) const
{
    QsdTransformer matrix = place.placing;
    matrix.compose(_transformer).translate(-area.x, -area.y);
    QsdBitmapPath outline(matrix, QsdBitmapPath::PixelCorner);
    outline.addRectangle({0, 0, place.width, place.height});
    QsdRegion visible = visibleRegion(palette, place.clip);
    visible.translate(-area.x, -area.y);
    auto mask = std::make_unique<QsdBitmap>(&_xDisplay, area.width, area.height, std::uint16_t{1});
    QsdPainter(mask->pixels(), visible, {1, {}, nullptr}).fill(outline.chains(), true);
    return mask;
}

// A picture is made in a bitmap as large as what can be seen of it, and sent through a mask of what it covers. Both are
// made before anything changes, because the source may be this very port.
void QsdXPort::drawPicture(const QsdPalette& palette, const QsdSystemPort& source, const PicturePlace& place,
                           bool transparent, const PictureDrawing& draw) const
{
    const QsdRect area = visibleArea({place.placing.transform(QsdRect{0, 0, place.width, place.height})});
    if (isBad() || area.isEmpty()) {
        return;
    }
    const auto coverageOf = [&](const QsdSystemPort& bits) {
        return coverage(palette, area,
                        [&](const QsdBitmap& target, const QsdPalette* ink) { draw(target, ink, bits, true); });
    };
    if (source.depth() == 1) {
        const std::unique_ptr<QsdBitmap> bits = coverageOf(source);
        if (!transparent) {
            _graphics->setColor(*palette.background());
            fillCovered(*outlineOf(palette, place, area), area);
        }
        _graphics->setColor(*palette.foreground());
        fillCovered(*bits, area);
    } else {
        const QsdSystemPort* const mask =
            transparent && source.isABitmap() ? static_cast<const QsdBitmap&>(source).mask() : nullptr;
        if (transparent && mask == nullptr) {
            return;
        }
        const std::unique_ptr<QsdBitmap> picture = bitmapFor(area, depth());
        draw(*picture, &palette, source, false);
        const std::unique_ptr<QsdBitmap> covered =
            mask != nullptr ? coverageOf(*mask) : outlineOf(palette, place, area);
        _graphics->put(picture->pixels(), {area.x, area.y}, covered->pixels());
    }
    finish();
}

// Between drawables of the server no pixel has to travel.
bool QsdXPort::copyDirectly(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& rect,
                            const QsdPoint& at) const
{
    const auto* const from = dynamic_cast<const QsdXPort*>(&source);
    const std::optional<Placing> place = placing(palette);
    if (from == nullptr || &from->_xDisplay != &_xDisplay || isBad() || from->isBad() || !place || rect.isEmpty() ||
        rect.intersected(from->portArea()) != rect) {
        return false;
    }
    const std::optional<QsdPoint> to = (*place)(at);
    if (!to || (from->depth() != 1 && from->depth() != depth())) {
        return false;
    }
    _graphics->setClip(place->clip);
    if (from->depth() == 1) {
        const QsdXColors& colors = _xDisplay.xColors();
        const auto swapped = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
        if (colors.pixel(1, 1) == 0) {
            swapped->setForeground(palette.background());
            swapped->setBackground(palette.foreground());
        }
        _graphics->setColors(*swapped);
        XCopyPlane(_graphics->display(), from->xDrawable(), xDrawable(), _graphics->gc(), rect.x, rect.y, rect.width,
                   rect.height, to->x, to->y, 1);
    } else {
        XCopyArea(_graphics->display(), from->xDrawable(), xDrawable(), _graphics->gc(), rect.x, rect.y, rect.width,
                  rect.height, to->x, to->y);
    }
    finish();
    return true;
}

void QsdXPort::drawBitmapPart(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& rect,
                              const QsdPoint& at, bool transparent) const
{
    drawPicture(palette, source, {placed({}, at), rect.width, rect.height, nullptr}, transparent,
                [&](const QsdBitmap& target, const QsdPalette* colors, const QsdSystemPort& what, bool setBitsOnly) {
                    setBitsOnly ? target.drawTransparentBitmap(colors, &what, rect, at)
                                : target.drawBitmap(colors, &what, rect, at);
                });
}

void QsdXPort::drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                          const QsdPoint& at) const
{
    if (!copyDirectly(*palette, *source, rect, at)) {
        drawBitmapPart(*palette, *source, rect, at, false);
    }
}

void QsdXPort::drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                     const QsdPoint& at) const
{
    drawBitmapPart(*palette, *source, rect, at, true);
}

void QsdXPort::drawWholeBitmap(const QsdPalette& palette, const QsdPoint& at, const QsdBitmap& bitmap,
                               const QsdTransformer& t, const QsdRect* clip, bool transparent) const
{
    drawPicture(palette, bitmap, {placed(t, at), bitmap.pixels().width(), bitmap.pixels().height(), clip}, transparent,
                [&](const QsdBitmap& target, const QsdPalette* colors, const QsdSystemPort& what, bool setBitsOnly) {
                    const auto* const picture = static_cast<const QsdBitmap*>(&what);
                    setBitsOnly ? target.stretchTransparentBitmap(colors, at, picture, t, clip)
                                : target.stretchBitmap(colors, at, picture, t, clip);
                });
}

void QsdXPort::stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                             const QsdTransformer& t, const QsdRect* clip) const
{
    drawWholeBitmap(*palette, at, *bitmap, t, clip, false);
}

void QsdXPort::stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                        const QsdTransformer& t, const QsdRect* clip) const
{
    drawWholeBitmap(*palette, at, *bitmap, t, clip, true);
}

void QsdXPort::stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                             const QsdRect* clip) const
{
    QsdXReduction(*this).QsdBitmap::stretchBitmap(palette, dest, bitmap, clip);
}

void QsdXPort::stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                        const QsdRect* clip) const
{
    QsdXReduction(*this).QsdBitmap::stretchTransparentBitmap(palette, dest, bitmap, clip);
}

void QsdXPort::stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                                 const QsdRect& dest, bool smooth) const
{
    QsdXReduction(*this).QsdBitmap::stretchBitmapData(palette, source, from, dest, smooth);
}
