// Puts colour on the pixels that shapes cover.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/raster/QsdFlatten.h"
#include "toolkit/raster/QsdPixels.h"
#include "toolkit/raster/QsdStroke.h"

#include <cstdint>
#include <optional>
#include <vector>

/// What covered pixels become: one value, or those of a tile that repeats from the top left corner of the pixels.
struct QSD_API QsdPaint {
    QsdPixels::Value color = 0;                 ///< where there is no tile, or its bit is set
    std::optional<QsdPixels::Value> background; ///< where the tile's bit is not set; none: left alone
    const QsdPixels* tile = nullptr;            ///< one bit deep, or as deep as the pixels; not owned; null: none
};

/// Paints shapes on pixels inside a clip. Coordinates are those of the pixels' corners: the pixel in column x of row y
/// covers the unit square from (x, y). Coordinates of any size, also such as are no numbers, are safe.
class QSD_API QsdPainter {
public:
    /// Paints on `pixels`, which must outlive the painter, inside `clip`.
    QsdPainter(QsdPixels& pixels, const QsdRegion& clip, const QsdPaint& paint);

    /// The smallest rectangle around what can be painted on.
    [[nodiscard]] const QsdRect& area() const { return _clip.boundingRect(); }

    /// Paints the columns from `left` up to, but not including, `right` of row `y`.
    void span(std::int64_t y, std::int64_t left, std::int64_t right) const;
    /// Paints one pixel.
    void point(std::int64_t x, std::int64_t y) const { span(y, x, x + 1); }
    /// Gives one pixel a value of its own.
    void point(std::int64_t x, std::int64_t y, QsdPixels::Value value) const;
    /// Paints the pixels whose centres lie inside closed rings taken together, by the even-odd or the winding rule.
    void fill(const std::vector<QsdChain>& rings, bool evenOdd) const;
    /// Paints a line one pixel wide, both ends included.
    void thinLine(QsdRealPoint from, QsdRealPoint to) const;
    /// Paints a line of `width` units along `chain`. `dashes` are lengths of dashes and gaps in turn, none, or
    /// none that could be told apart: a solid line. The ends of a closed chain are joined. A chain of a single point is
    /// a dot. A mitre longer than `miterLimit` widths is cut off.
    void stroke(const QsdChain& chain, bool closed, double width, const std::vector<double>& dashes,
                double miterLimit = QsdUsualMiterLimit) const;

private:
    template <class Use>
    void forVisible(std::int64_t y, std::int64_t left, std::int64_t right, Use use) const;
    void paintRun(std::uint32_t y, std::uint32_t left, std::uint32_t right) const;

    QsdPixels& _pixels;
    QsdRegion _clip; ///< within the pixels, in its canonical form
    QsdPaint _paint;
};
