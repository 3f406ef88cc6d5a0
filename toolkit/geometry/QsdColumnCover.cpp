#include "toolkit/geometry/QsdColumnCover_p.h"

#include <bit>
#include <utility>

QsdColumnCover::QsdColumnCover(std::vector<std::int64_t> edges)
    : _edges(std::move(edges)), _nodes(2 * std::bit_ceil(_edges.size()))
{
}

QsdSpans QsdColumnCover::spans() const
{
    QsdSpans spans;
    collect(all(), {}, spans);
    return spans;
}

void QsdColumnCover::change(const Range& range, std::size_t list, const QsdSpan& span, std::int32_t by)
{
    const std::int64_t left = _edges[range.first];
    const std::int64_t right = _edges[range.last];
    if (span.right <= left || right <= span.left) {
        return;
    }
    if (span.left <= left && right <= span.right) {
        _nodes[range.node].whole[list] += by;
    } else {
        change(range.lower(), list, span, by);
        change(range.upper(), list, span, by);
    }
    count(range);
}

void QsdColumnCover::count(const Range& range)
{
    Node& node = _nodes[range.node];
    const std::int64_t width = _edges[range.last] - _edges[range.first];
    const Node none;
    const Node& lower = range.isLeaf() ? none : _nodes[range.lower().node];
    const Node& upper = range.isLeaf() ? none : _nodes[range.upper().node];
    for (std::size_t list = 0; list < 2; ++list) {
        node.covered[list] = node.whole[list] != 0 ? width : lower.covered[list] + upper.covered[list];
    }
    if (node.whole[0] != 0) {
        node.both = node.covered[1];
    } else {
        node.both = node.whole[1] != 0 ? node.covered[0] : lower.both + upper.both;
    }
}

void QsdColumnCover::collect(const Range& range, std::array<bool, 2> covered, QsdSpans& spans) const
{
    const Node& node = _nodes[range.node];
    const QsdSpan whole{_edges[range.first], _edges[range.last]};
    const std::int64_t width = whole.right - whole.left;
    std::int64_t both = covered[1] ? node.covered[0] : node.both;
    if (covered[0]) {
        both = covered[1] ? width : node.covered[1];
    }
    if (both == 0) {
        return;
    }
    if (both < width) {
        for (std::size_t list = 0; list < 2; ++list) {
            covered[list] = covered[list] || node.whole[list] != 0;
        }
        collect(range.lower(), covered, spans);
        collect(range.upper(), covered, spans);
    } else if (!spans.empty() && spans.back().right == whole.left) {
        spans.back().right = whole.right;
    } else {
        spans.push_back(whole);
    }
}
