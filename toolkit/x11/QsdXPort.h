// Drawing with the X server.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdSystemPort.h"
#include "toolkit/raster/QsdPixels.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

class QsdXDisplay;
class QsdXFace;
class QsdXGraphics;

/// The common part of windows and pixmaps: a drawable in the X server. Coordinates, areas, lines and colours are those
/// of QsdBitmap, so that both show the same pixels: the server draws where its rules are the toolkit's (points, solid
/// lines, upright rectangles, copies, letters); other shapes are cut into rectangles by the code that draws into
/// bitmaps. Coordinates of all 32 bits are safe although those of X have 16. Texts are drawn with the server's fonts,
/// or like those of bitmaps where it has none that fit. Under a transformer that makes them larger or smaller, they are
/// drawn in the font of that size; where there is none, or they are turned, as pictures of their letters, placed on
/// whole units. Alpha and antialiasing of palettes do not count.
class QSD_API QsdXPort : public QsdSystemPort {
public:
    ~QsdXPort() override;

    [[nodiscard]] unsigned short depth() const override { return _depth; }
    /// Whether the drawable could not be made or the connection is lost; drawing does nothing then.
    [[nodiscard]] bool isBad() const override;
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
    using QsdPort::drawBitmap;
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
    void flushRedraw() const override;

    /// X's number for the drawable that holds the pixels; 0 when there is none.
    [[nodiscard]] unsigned long xDrawable() const;
    /// Reads pixels in QsdPixels' layout; those outside are 0. False, with the pixels at 0, when there is nothing to
    /// read from.
    [[nodiscard]] bool read(const QsdRect& rect, QsdPixels& pixels) const;

protected:
    /// A drawable of its own; the depth as in QsdXPixmap.
    QsdXPort(QsdXDisplay* display, std::uint32_t width, std::uint32_t height, std::uint16_t depth);

    /// Called when pixels may have changed.
    virtual void setDamaged() const {}
    /// Changes the size: what lies in both is kept, the rest becomes white.
    void setSize(std::uint32_t width, std::uint32_t height);
    /// The display, as what it is.
    [[nodiscard]] QsdXDisplay& xDisplay() const { return _xDisplay; }
    /// The graphics contexts that it draws with.
    [[nodiscard]] QsdXGraphics& graphics() const { return *_graphics; }

private:
    /// Draws a shape into a bitmap with the palette given.
    using ShapeDrawing = std::function<void(const QsdBitmap& target, const QsdPalette* palette)>;
    /// Draws `what`, the picture or its mask, into a bitmap: all of it, or its set bits alone.
    using PictureDrawing = std::function<void(const QsdBitmap& target, const QsdPalette* palette,
                                              const QsdSystemPort& what, bool setBitsOnly)>;
    /// Where something is drawn: a rectangle in the coordinates of the call and how many pixels it may stick out.
    struct Extent {
        std::optional<QsdRect> bounds; ///< none: anywhere
        double margin = 1;
    };
    /// How the server can draw by itself: moved by whole pixels and inside a region.
    struct Placing {
        QsdPoint shift;
        QsdRegion clip;

        /// Where a point comes to lie; nothing for one too far away for X's coordinates.
        [[nodiscard]] std::optional<QsdPoint> operator()(const QsdPoint& point) const;
    };
    /// Where a picture of so many pixels lies.
    struct PicturePlace {
        QsdTransformer placing; ///< from its own coordinates to those of the call
        std::uint32_t width;
        std::uint32_t height;
        const QsdRect* clip; ///< null: none
    };
    /// How a text lies at its anchor.
    struct TextForm {
        QsdPosition position;
        bool opaque;
        bool hanging; ///< from the anchor, not standing on it
    };

    [[nodiscard]] QsdRect portArea() const;
    [[nodiscard]] QsdRegion visibleRegion(const QsdPalette& palette, const QsdRect* clip) const;
    [[nodiscard]] std::optional<Placing> placing(const QsdPalette& palette) const;
    [[nodiscard]] QsdRect visibleArea(const Extent& extent) const;
    [[nodiscard]] Extent strokeExtent(const QsdPalette& palette, const std::optional<QsdRect>& bounds) const;
    [[nodiscard]] std::unique_ptr<QsdBitmap> bitmapFor(const QsdRect& area, std::uint16_t depth) const;
    [[nodiscard]] std::unique_ptr<QsdBitmap> coverage(const QsdPalette& palette, const QsdRect& area,
                                                      const ShapeDrawing& draw) const;
    void fillCovered(const QsdBitmap& mask, const QsdRect& area) const;
    void finish() const;

    void stroke(const QsdPalette& palette, const Extent& extent, const ShapeDrawing& draw) const;
    void fill(const QsdPalette& palette, const Extent& extent, const ShapeDrawing& draw) const;
    [[nodiscard]] bool strokeDirectly(const QsdPalette& palette, unsigned long count, const QsdPoint* points) const;
    [[nodiscard]] std::unique_ptr<QsdBitmap> outlineOf(const QsdPalette& palette, const PicturePlace& place,
                                                       const QsdRect& area) const;
    void drawPicture(const QsdPalette& palette, const QsdSystemPort& source, const PicturePlace& place,
                     bool transparent, const PictureDrawing& draw) const;
    void drawBitmapPart(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& rect, const QsdPoint& at,
                        bool transparent) const;
    void drawWholeBitmap(const QsdPalette& palette, const QsdPoint& at, const QsdBitmap& bitmap,
                         const QsdTransformer& t, const QsdRect* clip, bool transparent) const;
    [[nodiscard]] bool copyDirectly(const QsdPalette& palette, const QsdSystemPort& source, const QsdRect& rect,
                                    const QsdPoint& at) const;
    void drawTextAt(const QsdPalette& palette, const QsdPoint& at, const char* text, int length,
                    const TextForm& form) const;
    void drawText(const QsdPalette& palette, const QsdTransformer& placing, const QsdRect* clip, std::string_view text,
                  const TextForm& form, const ShapeDrawing& draw) const;
    [[nodiscard]] bool drawTextUpright(const QsdPalette& palette, const QsdTransformer& placing, const QsdRect* clip,
                                       std::string_view text, const TextForm& form) const;
    void drawTextAsPicture(const QsdPalette& palette, const QsdXFace& face, const QsdTransformer& placing,
                           const QsdRect* clip, std::string_view text, const TextForm& form) const;

    QsdXDisplay& _xDisplay;
    std::uint16_t _depth;
    std::unique_ptr<QsdXGraphics> _graphics;
    QsdTransformer _transformer;
    mutable QsdRegion _clip = QsdRegion::Full();
};
