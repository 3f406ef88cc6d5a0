// The chains of points that a drawing call names.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/geometry/QsdTransformer.h"
#include "toolkit/raster/QsdFlatten.h"

#include <vector>

/// Chains under a transformer, with curves as lines.
class QSD_API QsdBitmapPath {
public:
    /// Where a point of whole coordinates lies: in the middle of the pixel that it names, as lines have it, or on the
    /// pixel's top left corner, as areas have it.
    enum Anchor { PixelCenter, PixelCorner };

    QsdBitmapPath(const QsdTransformer& transformer, Anchor anchor) : _transformer(transformer), _anchor(anchor) {}

    [[nodiscard]] const std::vector<QsdChain>& chains() const { return _chains; }

    /// How much wider lines, and longer their dashes, are under the transformer.
    [[nodiscard]] double scale() const;

    /// Begins a new chain.
    void begin() { _chains.emplace_back(); }
    /// Adds a point to the last chain.
    void add(QsdRealPoint point);
    /// A new chain of `count` points.
    void addPoints(unsigned long count, const QsdPoint* points);
    /// A new chain of `count` points, the first one given and each other by its step from the one before.
    void addSteps(const QsdPoint& origin, unsigned long count, const QsdDeltaPoint* deltas);
    void addRectangle(const QsdRect& rect);
    /// A new chain of the arc of the ellipse in `rect`.
    void addArc(const QsdRect& rect, float start, float range);
    /// A new chain of the curves of QsdPort::drawBezier (or, closed, QsdPort::drawClosedBezier).
    void addCurves(unsigned long count, const QsdPoint* points, bool closed);

private:
    /// How much longer a line is under the transformer at most.
    [[nodiscard]] double stretch() const;
    [[nodiscard]] QsdRealPoint mapped(QsdRealPoint point) const;

    QsdTransformer _transformer;
    Anchor _anchor;
    std::vector<QsdChain> _chains;
};
