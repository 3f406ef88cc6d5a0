// Bitmaps and pixels drawn with the X server.
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXGraphics_p.h"
#include "toolkit/x11/QsdXPort.h"
#include "toolkit/x11/QsdXReduction_p.h"

#include <memory>

namespace {

QsdRect wholeOf(const QsdBitmap& bitmap)
{
    return {0, 0, bitmap.pixels().width(), bitmap.pixels().height()};
}

/// Where a bitmap comes to lie.
QsdRect boundsOf(const QsdBitmap& bitmap, const QsdPoint& at, const QsdTransformer& t)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    const QsdTransformer placed(x11, x12, x21, x22, at.x, at.y);
    return placed.transform(wholeOf(bitmap));
}

} // namespace

// A picture is made in a bitmap as large as what can be seen of it, and sent through a mask of what it covers. Both are
// made before anything changes, because the source may be this very port.
void QsdXPort::drawPicture(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& bounds,
                           bool transparent, const PictureDrawing& draw) const
{
    const QsdRect area = visibleArea({bounds});
    if (isBad() || area.isEmpty()) {
        return;
    }
    // Ink makes set bits of both colours, so an opaque picture of one bit covers all that it reaches.
    const auto coverageOf = [&](const QsdSystemPort& bits, bool setBitsOnly) {
        return coverage(palette, area,
                        [&](const QsdBitmap& target, const QsdPalette* ink) { draw(target, ink, bits, setBitsOnly); });
    };
    if (source.depth() == 1) {
        const std::unique_ptr<QsdBitmap> bits = coverageOf(source, true);
        const std::unique_ptr<QsdBitmap> outline = transparent ? nullptr : coverageOf(source, false);
        if (outline != nullptr) {
            _graphics->setColor(*palette.background());
            fillCovered(*outline, area);
        }
        _graphics->setColor(*palette.foreground());
        fillCovered(*bits, area);
    } else {
        const QsdBitmap* const bitmap = source.isABitmap() ? static_cast<const QsdBitmap*>(&source) : nullptr;
        const QsdBitmap* const mask = transparent && bitmap != nullptr ? bitmap->mask() : nullptr;
        if (transparent && mask == nullptr) {
            return;
        }
        // What reaches beyond a drawable counts too, so only a bitmap drawn as a whole needs its size.
        const QsdRect size = bitmap == nullptr ? QsdRect{} : wholeOf(*bitmap);
        const std::unique_ptr<QsdBitmap> covered =
            mask != nullptr ? coverageOf(*mask, true)
                            : coverageOf(QsdBitmap(&_xDisplay, size.width, size.height, 1), false);
        const std::unique_ptr<QsdBitmap> picture = bitmapFor(area, depth());
        draw(*picture, &palette, source, false);
        _graphics->put(picture->pixels(), {area.x, area.y}, &covered->pixels());
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
    drawPicture(palette, source, {at.x, at.y, rect.width, rect.height}, transparent,
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
    drawPicture(palette, bitmap, boundsOf(bitmap, at, t), transparent,
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
