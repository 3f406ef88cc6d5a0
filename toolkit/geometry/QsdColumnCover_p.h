// Which columns two lists of rectangles both cover, while their rectangles come and go.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A stretch of columns, the end excluded.
struct QsdSpan {
    std::int64_t left;
    std::int64_t right;
};

/// Stretches of columns from left to right with gaps between them.
using QsdSpans = std::vector<QsdSpan>;

/// Counts how often columns are covered by each of two lists. Stretches are added and removed in logarithmic time
/// however many there are, so that thousands of rectangles over each other cost no more than as many beside each other.
class QsdColumnCover {
public:
    /// `edges` are the columns at which stretches may begin or end, in order, each once; at least two.
    explicit QsdColumnCover(std::vector<std::int64_t> edges);

    /// Changes by `by` how often list 0 or 1 covers the columns of `span`, whose ends must be edges.
    void change(std::size_t list, const QsdSpan& span, std::int32_t by) { change(all(), list, span, by); }
    /// The number of columns that both lists cover.
    [[nodiscard]] std::int64_t covered() const { return _nodes.front().both; }
    /// The columns that both lists cover.
    [[nodiscard]] QsdSpans spans() const;

private:
    /// A node of a binary tree over the stretches between the edges; the children of node n are 2n + 1 and 2n + 2.
    /// Nothing in it takes account of its parents.
    struct Node {
        std::array<std::int32_t, 2> whole{};   ///< how often each list covers all of the node at once
        std::array<std::int64_t, 2> covered{}; ///< the columns of the node that each list covers
        std::int64_t both = 0;                 ///< the columns of the node that both cover
    };

    /// What a node stands for: the stretches from one edge to another, by their indices.
    struct Range {
        std::size_t node;
        std::size_t first;
        std::size_t last;

        [[nodiscard]] bool isLeaf() const { return last - first == 1; }
        [[nodiscard]] std::size_t middle() const { return (first + last) / 2; }
        [[nodiscard]] Range lower() const { return {2 * node + 1, first, middle()}; }
        [[nodiscard]] Range upper() const { return {2 * node + 2, middle(), last}; }
    };

    [[nodiscard]] Range all() const { return {0, 0, _edges.size() - 1}; }
    void change(const Range& range, std::size_t list, const QsdSpan& span, std::int32_t by);
    void count(const Range& range);
    /// Appends what both cover of a range; `covered` tells which list covers a parent of it as a whole.
    void collect(const Range& range, std::array<bool, 2> covered, QsdSpans& spans) const;

    std::vector<std::int64_t> _edges;
    std::vector<Node> _nodes;
};
