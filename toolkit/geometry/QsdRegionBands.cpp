#include "toolkit/geometry/QsdRegionBands_p.h"

#include "toolkit/geometry/QsdColumnCover_p.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace {

/// A rectangle by its sides, which together may be longer than one of QsdRect can be.
struct Box {
    QsdSpan columns;
    std::int64_t top;
    std::int64_t bottom;
    std::size_t list; ///< the list it comes from, 0 or 1
};

using Boxes = std::vector<Box>;

/// A side that reaches beyond what 32 bits can tell is cut.
std::uint32_t length(std::int64_t distance)
{
    return static_cast<std::uint32_t>(std::min<std::int64_t>(distance, std::numeric_limits<std::uint32_t>::max()));
}

void append(const std::vector<QsdRect>& rects, std::size_t list, Boxes& boxes)
{
    for (const QsdRect& rect : rects) {
        boxes.push_back({{rect.x, rect.right()}, rect.y, rect.bottom(), list});
    }
}

constexpr std::int64_t Least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
/// What extend() begins with.
constexpr Box Nothing{{Most, Least}, Most, Least, 0};

void extend(Box& box, const Box& by)
{
    box.columns = {std::min(box.columns.left, by.columns.left), std::max(box.columns.right, by.columns.right)};
    box.top = std::min(box.top, by.top);
    box.bottom = std::max(box.bottom, by.bottom);
}

std::vector<std::int64_t> edgesOf(const Boxes& boxes)
{
    std::vector<std::int64_t> edges;
    edges.reserve(2 * boxes.size());
    for (const Box& box : boxes) {
        edges.push_back(box.columns.left);
        edges.push_back(box.columns.right);
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

/// Goes down two lists of boxes and tells which columns both cover.
class Sweep {
public:
    explicit Sweep(const Boxes& boxes) : _begins(boxes), _ends(boxes), _cover(edgesOf(boxes))
    {
        std::sort(_begins.begin(), _begins.end(), [](const Box& a, const Box& b) { return a.top < b.top; });
        std::sort(_ends.begin(), _ends.end(), [](const Box& a, const Box& b) { return a.bottom < b.bottom; });
    }

    /// Whether there are boxes that end below the row it is at.
    [[nodiscard]] bool hasMore() const { return _nextEnd != _ends.size(); }
    /// The next row at which a box begins or ends.
    [[nodiscard]] std::int64_t nextRow() const
    {
        const std::int64_t end = _ends[_nextEnd].bottom;
        return _nextBegin == _begins.size() ? end : std::min(_begins[_nextBegin].top, end);
    }

    /// Moves on to the next row. False when the same columns are covered as before: boxes that begin or end behind
    /// others, or one in the place of another, change nothing.
    bool moveOn()
    {
        const std::int64_t row = nextRow();
        const std::int64_t before = _cover.covered();
        for (; _nextBegin != _begins.size() && _begins[_nextBegin].top == row; ++_nextBegin) {
            _cover.change(_begins[_nextBegin].list, _begins[_nextBegin].columns, 1);
        }
        const std::int64_t most = _cover.covered();
        for (; _nextEnd != _ends.size() && _ends[_nextEnd].bottom == row; ++_nextEnd) {
            _cover.change(_ends[_nextEnd].list, _ends[_nextEnd].columns, -1);
        }
        return before != most || most != _cover.covered();
    }

    [[nodiscard]] QsdSpans spans() const { return _cover.spans(); }

    /// The box around what both lists may have in common from `row` downwards, where they have something.
    [[nodiscard]] Box boundsFrom(std::int64_t row) const
    {
        std::array<Box, 2> bounds{Nothing, Nothing};
        for (const Box& box : _begins) {
            if (box.bottom > row) {
                extend(bounds[box.list], box);
            }
        }
        const auto& [a, b] = bounds;
        return {{std::max(a.columns.left, b.columns.left), std::min(a.columns.right, b.columns.right)},
                std::max({a.top, b.top, row}),
                std::min(a.bottom, b.bottom),
                0};
    }

private:
    Boxes _begins; ///< by their tops
    Boxes _ends;   ///< by their bottoms
    QsdColumnCover _cover;
    std::size_t _nextBegin = 0;
    std::size_t _nextEnd = 0;
};

/// Builds the canonical list out of bands that come from top to bottom.
class BandList {
public:
    explicit BandList(std::size_t most) : _most(most) {}

    /// Adds a band. False, and nothing added, when there is no room for it.
    bool add(std::int64_t top, std::int64_t bottom, const QsdSpans& spans)
    {
        if (spans.empty() || top > std::numeric_limits<std::int32_t>::max()) {
            return true;
        }
        if (isEqualBandAbove(top, spans)) {
            for (std::size_t i = _rects.size() - spans.size(); i < _rects.size(); ++i) {
                _rects[i].height = length(bottom - _rects[i].y);
            }
            return true;
        }
        if (_rects.size() + spans.size() > _most) {
            return false;
        }
        for (const QsdSpan& span : spans) {
            _rects.push_back({static_cast<std::int32_t>(span.left), static_cast<std::int32_t>(top),
                              length(span.right - span.left), length(bottom - top)});
        }
        return true;
    }

    /// Makes room for one rectangle below the bands; where they leave none, the last of them goes. Returns the row
    /// from which on that rectangle has to cover everything, `top` or the top of the band that went.
    std::int64_t makeRoom(std::int64_t top)
    {
        if (_rects.size() == _most) {
            top = _rects.back().y;
            std::erase_if(_rects, [=](const QsdRect& rect) { return rect.y == top; });
        }
        return top;
    }

    std::vector<QsdRect> finish() { return std::move(_rects); }

private:
    /// Whether the last band ends at `top` and has the same columns.
    [[nodiscard]] bool isEqualBandAbove(std::int64_t top, const QsdSpans& spans) const
    {
        if (_rects.size() < spans.size() || _rects.back().bottom() != top) {
            return false;
        }
        const std::size_t first = _rects.size() - spans.size();
        const std::int32_t y = _rects.back().y;
        return (first == 0 || _rects[first - 1].y != y) &&
               std::equal(spans.begin(), spans.end(), _rects.begin() + static_cast<std::ptrdiff_t>(first),
                          [=](const QsdSpan& span, const QsdRect& rect) {
                              return rect.y == y && rect.x == span.left && rect.width == length(span.right - span.left);
                          });
    }

    std::size_t _most;
    std::vector<QsdRect> _rects;
};

std::vector<QsdRect> commonBands(const Boxes& boxes, std::size_t most)
{
    Sweep sweep(boxes);
    BandList bands(most);
    QsdSpans spans;
    std::int64_t top = 0;
    while (sweep.hasMore()) {
        const std::int64_t row = sweep.nextRow();
        if (!sweep.moveOn()) {
            continue;
        }
        if (!bands.add(top, row, spans)) {
            const Box rest = sweep.boundsFrom(bands.makeRoom(top));
            bands.add(rest.top, rest.bottom, {rest.columns});
            break;
        }
        spans = sweep.spans();
        top = row;
    }
    return bands.finish();
}

} // namespace

std::vector<QsdRect> QsdUniteRects(const std::vector<QsdRect>& rects, std::size_t most)
{
    if (rects.empty()) {
        return {};
    }
    Boxes boxes;
    append(rects, 0, boxes);
    // What all of the rectangles have in common with a box around them is their union.
    Box around = Nothing;
    around.list = 1;
    for (const Box& box : boxes) {
        extend(around, box);
    }
    boxes.push_back(around);
    return commonBands(boxes, most);
}

std::vector<QsdRect> QsdIntersectRects(const std::vector<QsdRect>& a, const std::vector<QsdRect>& b, std::size_t most)
{
    if (a.empty() || b.empty()) {
        return {};
    }
    Boxes boxes;
    append(a, 0, boxes);
    append(b, 1, boxes);
    return commonBands(boxes, most);
}
