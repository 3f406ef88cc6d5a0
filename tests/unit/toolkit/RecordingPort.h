// A port that remembers what it was asked to draw.
#pragma once

#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <string>
#include <vector>

/// Keeps one line a call, the palette of the last one, and the points of the last one that had many.
class RecordingPort : public QsdPort {
public:
    RecordingPort(QsdDisplay* display, unsigned long width, unsigned long height) : QsdPort(display, width, height) {}

    mutable std::vector<std::string> calls;
    mutable std::vector<QsdPoint> points;
    mutable QsdHandle<const QsdPalette> last;

    /// The rectangle between the extremes of the points.
    [[nodiscard]] QsdRect bounds() const
    {
        QsdPoint least = points.front();
        QsdPoint most = least;
        for (const QsdPoint& p : points) {
            least = {std::min(least.x, p.x), std::min(least.y, p.y)};
            most = {std::max(most.x, p.x), std::max(most.y, p.y)};
        }
        return {least.x, least.y, static_cast<std::uint32_t>(most.x - least.x),
                static_cast<std::uint32_t>(most.y - least.y)};
    }

    using QsdPort::drawBitmap;
    void drawPoint(const QsdPalette* p, const QsdPoint& at) const override { note(p, "drawPoint " + text(at)); }
    void drawPoints(const QsdPalette* p, unsigned long n, const QsdPoint* at) const override
    {
        note(p, "drawPoints", n, at);
    }
    void drawLine(const QsdPalette* p, const QsdPoint& from, const QsdPoint& to) const override
    {
        note(p, "drawLine " + text(from) + ' ' + text(to));
    }
    void drawSegments(const QsdPalette* p, unsigned long n, const QsdPoint* starts, const QsdPoint*) const override
    {
        note(p, "drawSegments", n, starts);
    }
    void drawPolyLine(const QsdPalette* p, unsigned long n, const QsdPoint* at) const override
    {
        note(p, "drawPolyLine", n, at);
    }
    void drawPolyLine(const QsdPalette* p, const QsdPoint& origin, unsigned long, const QsdDeltaPoint*) const override
    {
        note(p, "drawPolyLine " + text(origin));
    }
    void fillPolyLine(const QsdPalette* p, unsigned long n, const QsdPoint* at, bool) const override
    {
        note(p, "fillPolyLine", n, at);
    }
    void fillPolyLine(const QsdPalette* p, const QsdPoint& origin, unsigned long, const QsdDeltaPoint*,
                      bool) const override
    {
        note(p, "fillPolyLine " + text(origin));
    }
    void drawRectangle(const QsdPalette* p, const QsdRect& r) const override { note(p, "drawRectangle " + text(r)); }
    void fillRectangle(const QsdPalette* p, const QsdRect& r) const override { note(p, "fillRectangle " + text(r)); }
    void drawArc(const QsdPalette* p, const QsdRect& r, float start, float range) const override
    {
        note(p, "drawArc " + text(r) + ' ' + degrees(start) + ' ' + degrees(range));
    }
    void fillArc(const QsdPalette* p, const QsdRect& r, float start, float range) const override
    {
        note(p, "fillArc " + text(r) + ' ' + degrees(start) + ' ' + degrees(range));
    }
    void drawBitmap(const QsdPalette* p, const QsdSystemPort*, const QsdRect& r, const QsdPoint& at) const override
    {
        note(p, "drawBitmap " + text(r) + ' ' + text(at));
    }
    void drawTransparentBitmap(const QsdPalette* p, const QsdSystemPort*, const QsdRect& r,
                               const QsdPoint& at) const override
    {
        note(p, "drawTransparentBitmap " + text(r) + ' ' + text(at));
    }
    void stretchBitmap(const QsdPalette* p, const QsdPoint& at, const QsdBitmap*, const QsdTransformer&,
                       const QsdRect*) const override
    {
        note(p, "stretchBitmap " + text(at));
    }
    void stretchTransparentBitmap(const QsdPalette* p, const QsdPoint& at, const QsdBitmap*, const QsdTransformer&,
                                  const QsdRect*) const override
    {
        note(p, "stretchTransparentBitmap " + text(at));
    }
    void drawString(const QsdPalette* p, const QsdPoint& at, const char* t, int length,
                    QsdPosition position) const override
    {
        note(p, "drawString " + text(at) + ' ' + std::string(t, static_cast<std::size_t>(length)) + ' ' +
                    std::to_string(position));
    }
    void drawIString(const QsdPalette* p, const QsdPoint& at, const char*, int, QsdPosition) const override
    {
        note(p, "drawIString " + text(at));
    }
    void drawTransformedString(const QsdPalette* p, const char*, int, const QsdTransformer&,
                               const QsdRegion*) const override
    {
        note(p, "drawTransformedString");
    }
    void fillPaths(const QsdPalette* p, unsigned long, const QsdPointArray*) const override { note(p, "fillPaths"); }
    void stretchBitmap(const QsdPalette* p, const QsdRect& dest, const QsdBitmap*, const QsdRect*) const override
    {
        note(p, "stretchBitmap " + text(dest));
    }
    void stretchTransparentBitmap(const QsdPalette* p, const QsdRect& dest, const QsdBitmap*,
                                  const QsdRect*) const override
    {
        note(p, "stretchTransparentBitmap " + text(dest));
    }
    void drawWChar(const QsdPalette* p, const QsdPoint& at, const wchar_t*, int, QsdPosition) const override
    {
        note(p, "drawWChar " + text(at));
    }
    void drawIWChar(const QsdPalette* p, const QsdPoint& at, const wchar_t*, int, QsdPosition) const override
    {
        note(p, "drawIWChar " + text(at));
    }
    void drawBezier(const QsdPalette* p, unsigned long n, const QsdPoint* at) const override
    {
        note(p, "drawBezier", n, at);
    }
    void drawClosedBezier(const QsdPalette* p, unsigned long n, const QsdPoint* at) const override
    {
        note(p, "drawClosedBezier", n, at);
    }
    void fillBezier(const QsdPalette* p, unsigned long n, const QsdPoint* at) const override
    {
        note(p, "fillBezier", n, at);
    }
    void drawString(const QsdPalette* p, const QsdPoint& at, const QsdBidiString*, int, QsdPosition) const override
    {
        note(p, "drawString " + text(at));
    }
    void drawIString(const QsdPalette* p, const QsdPoint& at, const QsdBidiString*, int, QsdPosition) const override
    {
        note(p, "drawIString " + text(at));
    }
    void drawTransformedString(const QsdPalette* p, const QsdBidiString*, int, const QsdTransformer&,
                               const QsdRegion*) const override
    {
        note(p, "drawTransformedString");
    }
    void stretchBitmapData(const QsdPalette* p, const QsdBitmapData*, const QsdRect&, const QsdRect& dest,
                           bool) const override
    {
        note(p, "stretchBitmapData " + text(dest));
    }

private:
    static std::string text(const QsdPoint& p) { return std::to_string(p.x) + ',' + std::to_string(p.y); }
    static std::string text(const QsdRect& r)
    {
        return text(QsdPoint{r.x, r.y}) + ' ' + std::to_string(r.width) + 'x' + std::to_string(r.height);
    }
    static std::string degrees(float angle) { return std::to_string(static_cast<int>(angle)); }
    void note(const QsdPalette* palette, std::string call) const
    {
        last = QsdHandle<const QsdPalette>(palette);
        calls.push_back(std::move(call));
    }
    void note(const QsdPalette* palette, const char* call, unsigned long count, const QsdPoint* at) const
    {
        note(palette, call);
        points.assign(at, at + count);
    }
};
