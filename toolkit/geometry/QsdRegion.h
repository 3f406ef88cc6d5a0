// Sets of pixels made of rectangles.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"

#include <cstdint>
#include <vector>

/// A region: everything ("full"), nothing ("empty"), or a set of rectangles. The rectangles are kept in a canonical
/// form (bands from top to bottom, in each band disjoint rectangles from left to right, equal bands joined), so two
/// regions that cover the same pixels are equal however they came about.
/// The one exception is a region built with add(): it keeps the rectangles as given until an operation on sets
/// (unite, intersect) or a comparison needs the canonical form.
class QSD_API QsdRegion {
public:
    /// The rectangle that stands for the full plane.
    static const QsdRect _FullRect;

    /// An empty region.
    QsdRegion() = default;
    /// A region of one rectangle; of none when the rectangle has no area.
    explicit QsdRegion(const QsdRect& rect);

    /// The full region: no clipping.
    [[nodiscard]] static QsdRegion Full();

    /// Whether everything belongs to the region.
    [[nodiscard]] bool isFull() const { return _full; }
    /// True when nothing belongs to the region.
    [[nodiscard]] bool isEmpty() const { return !_full && _rects.empty(); }
    /// Number of rectangles; 0 for a full region. A region never holds more than 65,535: an operation that would need
    /// more keeps the bounding rectangle instead of the excess bands.
    [[nodiscard]] std::uint16_t count() const { return static_cast<std::uint16_t>(_rects.size()); }
    /// The rectangles, count() of them.
    [[nodiscard]] const QsdRect* rects() const { return _rects.data(); }
    /// The smallest rectangle around the region: _FullRect when full, all zero when empty.
    [[nodiscard]] const QsdRect& boundingRect() const { return _bounds; }
    /// Whether `point` belongs to the region.
    [[nodiscard]] bool contains(const QsdPoint& point) const;

    /// Makes the region empty.
    void empty();
    /// Makes the region full.
    void setFull();
    /// Adds one rectangle at the end of the list, as it is; one without area is left out. A full region stays full.
    /// When the list has no room, it is put in its canonical form first, with at most 61,439 rectangles.
    void add(const QsdRect& rect);
    /// Adds what belongs to `other`; of a full one: everything.
    void unite(const QsdRegion& other);
    /// Adds what `rect` covers.
    void unite(const QsdRect& rect) { unite(QsdRegion(rect)); }
    /// Keeps what belongs to `other` too.
    void intersect(const QsdRegion& other);
    /// Keeps what `rect` covers.
    void intersect(const QsdRect& rect) { intersect(QsdRegion(rect)); }
    /// Moves every rectangle; one that would begin outside of the coordinate space is held at its edge. A full region
    /// stays as it is.
    void translate(std::int32_t dx, std::int32_t dy);

    /// Equality of the pixels covered.
    friend QSD_API bool operator==(const QsdRegion& a, const QsdRegion& b);

private:
    void setCanonical(std::vector<QsdRect> rects);
    void updateBounds();

    std::vector<QsdRect> _rects;
    QsdRect _bounds;
    bool _full = false;
    bool _canonical = true; ///< whether the list is known to be in the canonical form
};
