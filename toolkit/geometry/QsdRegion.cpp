#include "toolkit/geometry/QsdRegion.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t MostRects = std::numeric_limits<std::uint16_t>::max();

/// A stretch of columns, the end excluded.
struct Span {
    std::int64_t left;
    std::int64_t right;

    friend bool operator==(const Span&, const Span&) = default;
};

using Spans = std::vector<Span>;

/// The spans in order and apart from each other.
void joinSpans(Spans& spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.left < b.left; });
    std::size_t kept = 0;
    for (const Span& span : spans) {
        if (kept != 0 && span.left <= spans[kept - 1].right) {
            spans[kept - 1].right = std::max(spans[kept - 1].right, span.right);
        } else {
            spans[kept++] = span;
        }
    }
    spans.resize(kept);
}

Spans commonSpans(const Spans& a, const Spans& b)
{
    Spans common;
    for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end();) {
        const Span span{std::max(i->left, j->left), std::min(i->right, j->right)};
        if (span.left < span.right) {
            common.push_back(span);
        }
        if (i->right < j->right) {
            ++i;
        } else {
            ++j;
        }
    }
    return common;
}

/// Builds the canonical list of rectangles out of bands that come from top to bottom.
class BandBuilder {
public:
    void add(std::int64_t top, std::int64_t bottom, const Spans& spans)
    {
        if (spans.empty() || top > std::numeric_limits<std::int32_t>::max()) {
            return;
        }
        if (_bottom == top && spans == _last) {
            for (std::size_t i = _rects.size() - spans.size(); i < _rects.size(); ++i) {
                _rects[i].height = length(bottom - _rects[i].y);
            }
        } else {
            for (const Span& span : spans) {
                _rects.push_back({static_cast<std::int32_t>(span.left), static_cast<std::int32_t>(top),
                                  length(span.right - span.left), length(bottom - top)});
            }
            _last = spans;
        }
        _bottom = bottom;
    }

    /// The list; when it has grown too long to be counted, the rectangles past the limit are replaced by one around
    /// them.
    std::vector<QsdRect> finish()
    {
        if (_rects.size() > MostRects) {
            QsdRect rest;
            for (std::size_t i = MostRects - 1; i < _rects.size(); ++i) {
                rest = rest.united(_rects[i]);
            }
            _rects.resize(MostRects - 1);
            _rects.push_back(rest);
        }
        return std::move(_rects);
    }

private:
    /// A side that reaches beyond what 32 bits can tell is cut.
    static std::uint32_t length(std::int64_t distance)
    {
        return static_cast<std::uint32_t>(std::min<std::int64_t>(distance, std::numeric_limits<std::uint32_t>::max()));
    }

    std::vector<QsdRect> _rects;
    Spans _last;
    std::int64_t _bottom = std::numeric_limits<std::int64_t>::min();
};

/// The rows at which a list of rectangles begins or ends to cover something, in order.
std::vector<std::int64_t> rowsOf(const std::vector<QsdRect>& rects)
{
    std::vector<std::int64_t> rows;
    for (const QsdRect& rect : rects) {
        rows.push_back(rect.y);
        rows.push_back(rect.bottom());
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

/// Goes down a list of rectangles band by band and tells which columns each covers.
class Sweep {
public:
    explicit Sweep(const std::vector<QsdRect>& rects) : _rects(rects)
    {
        std::sort(_rects.begin(), _rects.end(), [](const QsdRect& a, const QsdRect& b) { return a.y < b.y; });
    }

    /// The columns covered from `top` down to the next row at which that changes. Tops must not go back up.
    Spans spansAt(std::int64_t top)
    {
        while (_next != _rects.size() && _rects[_next].y <= top) {
            _active.push_back(_rects[_next++]);
        }
        std::erase_if(_active, [=](const QsdRect& rect) { return rect.bottom() <= top; });
        Spans spans;
        for (const QsdRect& rect : _active) {
            spans.push_back({rect.x, rect.right()});
        }
        joinSpans(spans);
        return spans;
    }

private:
    std::vector<QsdRect> _rects;
    std::vector<QsdRect> _active;
    std::size_t _next = 0;
};

std::vector<QsdRect> unionOf(const std::vector<QsdRect>& rects)
{
    const std::vector<std::int64_t> rows = rowsOf(rects);
    Sweep sweep(rects);
    BandBuilder bands;
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        bands.add(rows[i], rows[i + 1], sweep.spansAt(rows[i]));
    }
    return bands.finish();
}

std::vector<QsdRect> intersectionOf(const std::vector<QsdRect>& a, const std::vector<QsdRect>& b)
{
    const std::vector<std::int64_t> rowsA = rowsOf(a);
    const std::vector<std::int64_t> rowsB = rowsOf(b);
    std::vector<std::int64_t> rows;
    std::set_union(rowsA.begin(), rowsA.end(), rowsB.begin(), rowsB.end(), std::back_inserter(rows));
    Sweep sweepA(a);
    Sweep sweepB(b);
    BandBuilder bands;
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        bands.add(rows[i], rows[i + 1], commonSpans(sweepA.spansAt(rows[i]), sweepB.spansAt(rows[i])));
    }
    return bands.finish();
}

} // namespace

// A quarter of the coordinate space on each side of the origin, so that its corners stay in range when it is moved.
const QsdRect QsdRegion::_FullRect = {-0x40000000, -0x40000000, 0x80000000U, 0x80000000U};

QsdRegion::QsdRegion(const QsdRect& rect)
{
    add(rect);
}

QsdRegion QsdRegion::Full()
{
    QsdRegion region;
    region.setFull();
    return region;
}

bool QsdRegion::contains(const QsdPoint& point) const
{
    return _full ||
           std::any_of(_rects.begin(), _rects.end(), [&](const QsdRect& rect) { return rect.contains(point); });
}

void QsdRegion::empty()
{
    _rects.clear();
    _bounds = {};
    _full = false;
    _canonical = true;
}

void QsdRegion::setFull()
{
    empty();
    _full = true;
    _bounds = _FullRect;
}

void QsdRegion::add(const QsdRect& rect)
{
    if (_full || rect.isEmpty()) {
        return;
    }
    if (_rects.size() == MostRects) {
        unite(QsdRegion(rect));
        return;
    }
    _canonical = _rects.empty();
    _rects.push_back(rect);
    _bounds = _bounds.united(rect);
}

void QsdRegion::unite(const QsdRegion& other)
{
    if (_full || other.isEmpty()) {
        return;
    }
    if (other._full) {
        setFull();
        return;
    }
    std::vector<QsdRect> all = _rects;
    all.insert(all.end(), other._rects.begin(), other._rects.end());
    setCanonical(unionOf(all));
}

void QsdRegion::intersect(const QsdRegion& other)
{
    if (other._full) {
        return;
    }
    if (_full) {
        *this = other;
    } else if (_rects.size() == 1 && other._rects.size() == 1) {
        *this = QsdRegion(_rects.front().intersected(other._rects.front()));
    } else {
        setCanonical(intersectionOf(_rects, other._rects));
    }
}

void QsdRegion::translate(std::int32_t dx, std::int32_t dy)
{
    if (_full) {
        return;
    }
    const auto moved = [](std::int32_t coordinate, std::int32_t distance) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{coordinate} + distance,
                                                                  std::numeric_limits<std::int32_t>::min(),
                                                                  std::numeric_limits<std::int32_t>::max()));
    };
    for (QsdRect& rect : _rects) {
        rect.x = moved(rect.x, dx);
        rect.y = moved(rect.y, dy);
    }
    _bounds.x = moved(_bounds.x, dx);
    _bounds.y = moved(_bounds.y, dy);
}

void QsdRegion::setCanonical(std::vector<QsdRect> rects)
{
    _rects = std::move(rects);
    _canonical = true;
    _bounds = {};
    for (const QsdRect& rect : _rects) {
        _bounds = _bounds.united(rect);
    }
}

bool operator==(const QsdRegion& a, const QsdRegion& b)
{
    if (a._full || b._full) {
        return a._full == b._full;
    }
    if (a._rects == b._rects) {
        return true;
    }
    if ((a._canonical && b._canonical) || a._bounds != b._bounds) {
        return false;
    }
    return unionOf(a._rects) == unionOf(b._rects);
}
