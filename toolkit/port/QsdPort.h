// The abstract surface on which the toolkit draws.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdPointArray.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/geometry/QsdTransformer.h"
#include "toolkit/graphics/QsdPosition.h"
#include "toolkit/port/QsdPalette.h"

class QsdBidiString;
class QsdBitmap;
class QsdBitmapData;
class QsdDisplay;
class QsdSystemPort;

/// The shape of a marker.
enum QsdMarkerType {
    QsdMarkerPlus,
    QsdMarkerCross,
    QsdMarkerSquare,
    QsdMarkerFilledSquare,
    QsdMarkerCircle,
    QsdMarkerFilledCircle,
    QsdMarkerDiamond,
    QsdMarkerFilledDiamond,
    QsdMarkerTriangle,
    QsdMarkerFilledTriangle
};

/// A drawing port: a window, a pixmap, a bitmap in memory, or a document. Coordinates are integers with the origin at
/// the top left and y downwards; a palette gives each call its colours, line, font, pattern and clip. Angles are
/// degrees, 0 along +x, positive ranges counter-clockwise as seen. A palette, and every array of points with its stated
/// count, must be there; lengths of texts count bytes (wide characters in the wide forms), a negative length of a
/// narrow text means up to its terminating zero.
class QSD_API QsdPort {
public:
    virtual ~QsdPort();
    QsdPort(const QsdPort&) = delete;
    QsdPort& operator=(const QsdPort&) = delete;

    /// Whether the port writes a document instead of painting pixels.
    [[nodiscard]] virtual bool isADevice() const;
    /// Whether the port cannot be drawn on now.
    [[nodiscard]] virtual bool isBad() const;
    /// Opens a document; only devices have any. With `bbox`, in device coordinates, it is one to be placed in others.
    /// False when that fails or the port has none.
    virtual bool initDevice(const char* fileName, QsdRect* bbox = nullptr);
    /// Finishes the document of initDevice.
    virtual void end();
    /// Goes on to the next page of a document; false when the port has no pages.
    virtual bool newPage() const;
    /// Sets the transformer of what is drawn from now on. Ports that cannot transform ignore it.
    virtual void setTransformer(const QsdTransformer& t);
    /// Puts text of the device's own language into its document; ignored by other ports.
    virtual void send(const char* text) const;
    /// Sets the clip of what is drawn from now on, besides that of the palettes; null: none.
    virtual void clip(const QsdRect* rect) const;
    /// The same by a region.
    virtual void clip(const QsdRegion* region) const;

    virtual void
    drawPoint(const QsdPalette* palette,
              const QsdPoint& point) const = 0; ///< draws the pixel, or the dot of the line width, at `point`
    virtual void drawPoints(const QsdPalette* palette, unsigned long count,
                            const QsdPoint* points) const = 0; ///< draws `count` separate points
    virtual void drawLine(const QsdPalette* palette, const QsdPoint& from,
                          const QsdPoint& to) const = 0; ///< draws a line in the palette's foreground, dashes and width
    /// Draws `count` separate lines, the i-th from starts[i] to ends[i].
    virtual void drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                              const QsdPoint* ends) const = 0;
    /// Draws a line through `count` points (at least one).
    virtual void drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const = 0;
    /// The same through `origin` and count - 1 further points, each given by its step from the one before.
    virtual void drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                              const QsdDeltaPoint* deltas) const = 0;
    /// Fills the polygon of `count` points (at least one); `convex` promises that it is convex.
    virtual void fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points,
                              bool convex) const = 0;
    /// The same, given by steps as for drawPolyLine.
    virtual void fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                              const QsdDeltaPoint* deltas, bool convex) const = 0;
    virtual void drawRectangle(const QsdPalette* palette,
                               const QsdRect& rect) const = 0; ///< draws the outline of `rect`
    virtual void fillRectangle(const QsdPalette* palette,
                               const QsdRect& rect) const = 0; ///< fills `rect` with the palette's colour or pattern
    /// Draws the arc of the ellipse inside `rect` from `start` over `range` degrees.
    virtual void drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const = 0;
    /// Fills it as a pie slice or a chord, by the palette's arc mode.
    virtual void fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const = 0;
    /// Copies the area `rect` of a drawable so that its top left corner comes to `at`. Of a one-bit source, set bits
    /// get the foreground and the others the background.
    virtual void drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                            const QsdPoint& at) const = 0;
    /// The same for set bits, or pixels inside the mask of a colour bitmap, alone.
    virtual void drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                       const QsdPoint& at) const = 0;
    /// Draws a whole bitmap under the four factors of `t`, its origin at `at`; `clip` (null: none) limits it.
    virtual void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                               const QsdTransformer& t, const QsdRect* clip) const = 0;
    /// The same for set bits, or pixels inside the mask of a colour bitmap, alone.
    virtual void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                          const QsdTransformer& t, const QsdRect* clip) const = 0;
    /// Draws a text whose baseline starts, is centred or ends at `at`.
    virtual void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                            QsdPosition position) const = 0;
    /// The same on a box in the background colour.
    virtual void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                             QsdPosition position) const = 0;
    /// Draws a text whose top left corner is the origin mapped by `t`; the bounding rectangle of `clip` (null: none)
    /// limits it.
    virtual void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                                       const QsdRegion* clip) const = 0;
    /// Fills the sub-paths together, as one path.
    virtual void fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const = 0;
    /// Draws a whole bitmap so that it fills `dest`.
    virtual void stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                               const QsdRect* clip) const = 0;
    /// The same for set bits, or pixels inside the mask of a colour bitmap, alone.
    virtual void stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                          const QsdRect* clip) const = 0;
    /// Places a bitmap inside `dest` by `position`, at its natural size, limited to `dest` and to `clip` (null: none);
    /// with `transparent`, through its mask (or set bits).
    virtual void drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& dest,
                            const QsdRegion* clip, QsdPosition position, bool transparent) const;
    /// The same with the area `from` of the bitmap.
    virtual void drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& from,
                            const QsdRect& dest, const QsdRegion* clip, QsdPosition position, bool transparent) const;
    /// Draws a wide text; it is converted by the C library's locale.
    virtual void drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                           QsdPosition position) const = 0;
    /// The same on a box in the background colour.
    virtual void drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                            QsdPosition position) const = 0;
    /// Draws cubic curves through points[0], [3], [6], ... with the points between as control points; one point left
    /// over is reached by a straight line, two by a curve with a doubled control point. Fewer than two draw nothing.
    virtual void drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const = 0;
    /// The same, closed back to points[0].
    virtual void drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const = 0;
    virtual void fillBezier(const QsdPalette* palette, unsigned long count,
                            const QsdPoint* points) const = 0; ///< fills the area inside drawClosedBezier
    /// Draws a bidirectional text in the order in which it is seen.
    virtual void drawString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                            QsdPosition position) const = 0;
    /// The same on a box in the background colour.
    virtual void drawIString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                             QsdPosition position) const = 0;
    /// The same as for other texts, in the order in which it is seen.
    virtual void drawTransformedString(const QsdPalette* palette, const QsdBidiString* text, int length,
                                       const QsdTransformer& t, const QsdRegion* clip) const = 0;
    /// Draws the area `from` of pixels in memory stretched into `dest`; `smooth` asks ports that can for smoothing.
    virtual void stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                                   const QsdRect& dest, bool smooth) const = 0;

    /// Fills an area with the palette's background.
    virtual void clearArea(const QsdPalette* palette, const QsdRect& rect) const;
    /// Clears the whole port.
    virtual void clear(const QsdPalette* palette) const;
    /// Draws and fills a rectangle whose corners are quarter circles of `radius` (at most half the shorter side).
    virtual void drawRoundRectangle(const QsdPalette* palette, const QsdRect& rect, unsigned short radius) const;
    /// Fills such a rectangle.
    virtual void fillRoundRectangle(const QsdPalette* palette, const QsdRect& rect, unsigned short radius) const;
    /// Draws a line with a filled head that points from `from` to `to` and whose tip lies at the part `at` (0 to 1) of
    /// the way.
    virtual void drawArrow(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to, float at) const;
    /// Draws a marker of `size` units, corner to corner, centred on `at`.
    virtual void drawMarker(const QsdPalette* palette, const QsdPoint& at, QsdMarkerType type,
                            unsigned short size) const;
    /// Draws the same marker on each of `count` points.
    virtual void drawMarkers(const QsdPalette* palette, unsigned long count, const QsdPoint* points, QsdMarkerType type,
                             unsigned short size) const;
    /// Draws a rectangle that seems to stand out of the page: `face` fills it, `light` draws the upper and
    /// left edges and `dark` the others, `thickness` units wide.
    virtual void drawReliefRectangle(const QsdPalette* face, const QsdPalette* light, const QsdPalette* dark,
                                     const QsdRect& rect, unsigned short thickness) const;
    /// The same of the diamond inside `rect`, whose two upper edges are light.
    virtual void drawReliefDiamond(const QsdPalette* face, const QsdPalette* light, const QsdPalette* dark,
                                   const QsdRect& rect, unsigned short thickness) const;
    /// Draws a groove: a dark line over a light one, each `thickness` units wide.
    virtual void drawReliefLine(const QsdPalette* light, const QsdPalette* dark, const QsdPoint& from,
                                const QsdPoint& to, unsigned short thickness) const;
    /// Draws a filled rectangle that casts a shadow of `thickness` units to the corner that `position` names (bottom
    /// right when it names none).
    virtual void drawShadowRectangle(const QsdPalette* face, const QsdPalette* shadow, const QsdRect& rect,
                                     unsigned short thickness, QsdPosition position) const;
    /// Draws a text of one or several lines (separated by newlines) inside `rect` by `position`, limited to `rect` and
    /// to `clip` (null: none).
    virtual void drawLabel(const QsdPalette* palette, const QsdRect& rect, const char* text, int length,
                           const QsdRegion* clip, QsdPosition position) const;
    /// Draws the outline of each sub-path, closed.
    virtual void drawPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const;
    /// Makes everything drawn so far visible, where drawing is held back.
    virtual void flushRedraw() const;

    /// The display that the port was made for; never null.
    [[nodiscard]] QsdDisplay* display() const { return _display; }
    /// Width in coordinate units.
    [[nodiscard]] unsigned long width() const { return _width; }
    /// Height in coordinate units.
    [[nodiscard]] unsigned long height() const { return _height; }

protected:
    /// A port of `display`, which is not owned and must outlive it.
    QsdPort(QsdDisplay* display, unsigned long width, unsigned long height);

    /// Changes the width that width() tells; nothing is drawn.
    void setWidth(unsigned long width) { _width = width; }
    /// Changes the height that height() tells; nothing is drawn.
    void setHeight(unsigned long height) { _height = height; }

private:
    QsdDisplay* _display;
    unsigned long _width;
    unsigned long _height;
};
