// Drawing operations that come down to others.
#pragma once

#include "toolkit/port/QsdBitmap.h"

/// Hands what a bitmap makes of its higher operations (texts of wide and directed characters, pictures fitted into
/// rectangles) on to another port, which so need not do it again.
class QsdXReduction : public QsdBitmap {
public:
    /// `port` must outlive the reduction.
    explicit QsdXReduction(const QsdPort& port) : QsdBitmap(port.display(), 0, 0, 1), _port(port) {}

    using QsdBitmap::drawIString;
    using QsdBitmap::drawString;
    using QsdBitmap::drawTransformedString;
    using QsdBitmap::stretchBitmap;
    using QsdBitmap::stretchTransparentBitmap;

    void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                    QsdPosition position) const override
    {
        _port.drawString(palette, at, text, length, position);
    }
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const override
    {
        _port.drawIString(palette, at, text, length, position);
    }
    void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                               const QsdRegion* clip) const override
    {
        _port.drawTransformedString(palette, text, length, t, clip);
    }
    void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                       const QsdRect* clip) const override
    {
        _port.stretchBitmap(palette, at, bitmap, t, clip);
    }
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                  const QsdTransformer& t, const QsdRect* clip) const override
    {
        _port.stretchTransparentBitmap(palette, at, bitmap, t, clip);
    }

private:
    const QsdPort& _port;
};
