// How far drawing reaches.
#pragma once

#include <algorithm>
#include <limits>

/// An upright rectangle of the page in points, empty at first.
struct QsdPSExtent {
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    /// A point or a line is not empty: interpreters paint it.
    [[nodiscard]] bool isEmpty() const { return !(left <= right && bottom <= top); }
    [[nodiscard]] bool contains(const QsdPSExtent& other) const
    {
        return left <= other.left && bottom <= other.bottom && right >= other.right && top >= other.top;
    }
    void add(double x, double y)
    {
        left = std::min(left, x);
        bottom = std::min(bottom, y);
        right = std::max(right, x);
        top = std::max(top, y);
    }
    void add(const QsdPSExtent& other)
    {
        if (!other.isEmpty()) {
            add(other.left, other.bottom);
            add(other.right, other.top);
        }
    }
    void limitTo(const QsdPSExtent& other)
    {
        left = std::max(left, other.left);
        bottom = std::max(bottom, other.bottom);
        right = std::min(right, other.right);
        top = std::min(top, other.top);
    }
};
