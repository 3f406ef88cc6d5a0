// Bitmaps in memory.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdSystemPort.h"
#include "toolkit/raster/QsdPixels.h"

#include <cstdint>
#include <memory>

class QsdBitmapPath;

/// A drawable whose pixels the program holds itself, on any display: one-bit, or of the display's screen depth, and
/// then with a one-bit mask of its opaque pixels if it likes. It can be drawn into like every port. Colours become the
/// nearest that the depth has; at a depth of 1, colours below half of full light set bits. Areas cover the pixels whose
/// centres they contain; lines go through the centres of the pixels that their points name, and their width and dashes
/// follow the scale of the transformer. Texts are drawn with a plain alphabet of lines for Latin letters, whatever the
/// family, in the advances of the palette's font; a character of several bytes is drawn as a box. Alpha and
/// antialiasing of palettes do not count. A null bitmap, or null pixels, draw nothing.
class QSD_API QsdBitmap : public QsdSystemPort {
public:
    /// A bitmap of zero pixels; `depth` is 1, or anything else for the screen depth of `display`. Throws std::bad_alloc
    /// when there is no memory for the pixels.
    QsdBitmap(QsdDisplay* display, std::uint32_t width, std::uint32_t height, std::uint16_t depth);
    /// A bitmap of the display's screen depth with the pixels of `data` in the nearest colours the display has.
    QsdBitmap(QsdDisplay* display, const QsdBitmapData& data);
    /// A one-bit bitmap of `height` rows of (width + 7) / 8 bytes, the leftmost pixel in the most significant bit;
    /// null `bits` are cleared ones.
    [[nodiscard]] static std::unique_ptr<QsdBitmap> FromBits(QsdDisplay* display, std::uint32_t width,
                                                             std::uint32_t height, const unsigned char* bits);
    /// The same of rows in the X bitmap format, whose leftmost pixel is the least significant bit.
    [[nodiscard]] static std::unique_ptr<QsdBitmap> FromXBM(QsdDisplay* display, std::uint32_t width,
                                                            std::uint32_t height, const unsigned char* bits);
    ~QsdBitmap() override;

    [[nodiscard]] unsigned short depth() const override { return _pixels.depth(); }
    [[nodiscard]] bool isABitmap() const override { return true; }
    /// The pixels; valid as long as the bitmap.
    [[nodiscard]] const QsdPixels& pixels() const { return _pixels; }
    /// The same, to be changed.
    [[nodiscard]] QsdPixels& pixels() { return _pixels; }

    /// The mask of opaque pixels; null: all are. Where the mask is smaller than the bitmap, the rest is transparent.
    [[nodiscard]] const QsdBitmap* mask() const { return _mask.get(); }
    /// Takes `mask`, a one-bit bitmap or null.
    void setMask(std::unique_ptr<QsdBitmap> mask);

    void setTransformer(const QsdTransformer& t) override;
    void clip(const QsdRect* rect) const override;
    void clip(const QsdRegion* region) const override;
    void drawPoint(const QsdPalette* palette, const QsdPoint& point) const override;
    void drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const override;
    void drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                      const QsdPoint* ends) const override;
    void drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                      const QsdDeltaPoint* deltas) const override;
    void fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points,
                      bool convex) const override;
    void fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                      const QsdDeltaPoint* deltas, bool convex) const override;
    void drawRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void fillRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                    const QsdPoint& at) const override;
    void drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                               const QsdPoint& at) const override;
    void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                       const QsdRect* clip) const override;
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                  const QsdTransformer& t, const QsdRect* clip) const override;
    void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                    QsdPosition position) const override;
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const override;
    void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                               const QsdRegion* clip) const override;
    void fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const override;
    void stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                       const QsdRect* clip) const override;
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                  const QsdRect* clip) const override;
    using QsdPort::drawBitmap;
    void drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                   QsdPosition position) const override;
    void drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                    QsdPosition position) const override;
    void drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    /// Of a text with directions, `length` counts the characters from its logical beginning; negative: all.
    void drawString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                    QsdPosition position) const override;
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                     QsdPosition position) const override;
    void drawTransformedString(const QsdPalette* palette, const QsdBidiString* text, int length,
                               const QsdTransformer& t, const QsdRegion* clip) const override;
    void stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                           const QsdRect& dest, bool smooth) const override;

private:
    [[nodiscard]] QsdRegion mapped(const QsdRegion& region) const;
    [[nodiscard]] QsdRegion visibleRegion(const QsdPalette& palette) const;
    [[nodiscard]] QsdPixels::Value valueOf(const QsdColor& color) const;
    void stroke(const QsdPalette& palette, const QsdBitmapPath& path, bool closed) const;
    void fill(const QsdPalette& palette, const QsdBitmapPath& path) const;
    void drawImage(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& from,
                   const QsdTransformer& placing, const QsdRect* clip, bool transparent) const;
    void drawTextAt(const QsdPalette& palette, const QsdPoint& at, const char* text, int length, QsdPosition position,
                    bool opaque) const;
    void drawText(const QsdPalette& palette, const char* text, int length, const QsdTransformer& placing,
                  const QsdRegion& visible, bool opaque) const;

    mutable QsdPixels _pixels; ///< drawing is const in a port, which stands for what is drawn on
    std::unique_ptr<QsdBitmap> _mask;
    QsdTransformer _transformer;
    mutable QsdRegion _clip = QsdRegion::Full();
};
