// How far an operation reaches by its shape.
#pragma once

#include "ps/classic/QsdPSOperation_p.h"
#include "ps/print/QsdPSPageReach_p.h"
#include "toolkit/port/QsdPalette.h"

/// Adds the shape of one operation to the reach of a page. Curves are taken by their control points, arcs by their
/// ellipse, and texts by the toolkit's metrics, which are those of the printer's own fonts.
class QsdPSShapeReach final : public QsdPSShapeReader {
public:
    /// For an operation that draws with `use` of `palette` on `page` (neither is owned). `linesZoom` tells whether the
    /// widths of lines are in the coordinates in force, not in points.
    QsdPSShapeReach(QsdPSPageReach& page, const QsdPalette& palette, QsdPSUse use, bool linesZoom);

    /// False when nothing of the operation shows, and interpreters would stop at it.
    [[nodiscard]] bool shows() const { return _shows; }

    void line(const QsdPoint& from, const QsdPoint& to) override;
    void box(const QsdRect& rect) override;
    void path(unsigned long count, const QsdPoint* points, bool closed) override;
    void steps(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas) override;
    void text(const QsdPoint& at, const char* text, int length, QsdPosition position) override;
    void text(const QsdTransformer& t, const char* text, int length) override;
    void mapped(const QsdRect& rect, const QsdTransformer& t, const QsdPoint& at) override;

private:
    void add(double x1, double y1, double x2, double y2);
    [[nodiscard]] bool showsText(const QsdTransformer& t) const;

    QsdPSPageReach& _page;
    const QsdPalette& _palette;
    double _halfLine; ///< how far lines reach beyond the shape; 0 where none are drawn
    bool _linesZoom;
    bool _shows = true;
};
