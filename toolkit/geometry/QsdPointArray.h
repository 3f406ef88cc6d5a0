// The points of one sub-path.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"

#include <vector>

/// A list of points: its own, or, when it has none, those of another array that it refers to (not owned; the other
/// array must outlive the reference). References are followed one after the other, but never in a circle.
class QSD_API QsdPointArray {
public:
    QsdPointArray() = default;
    /// Copies `count` points; `points` may be null when `count` is 0.
    QsdPointArray(unsigned long count, const QsdPoint* points);
    /// Takes `points` over.
    explicit QsdPointArray(std::vector<QsdPoint> points);

    /// Appends a point of its own.
    void add(const QsdPoint& point) { _points.push_back(point); }
    /// Removes its own points and its reference.
    void clear();
    /// Makes the array stand for `other` as long as it has no points of its own; null ends that.
    void referTo(const QsdPointArray* other) { _other = other; }

    /// Number of points, its own or, when there are none, those referred to.
    [[nodiscard]] unsigned long count() const;
    /// The points that count() counts; null when there are none.
    [[nodiscard]] const QsdPoint* points() const;

private:
    [[nodiscard]] const QsdPointArray& resolved() const;

    std::vector<QsdPoint> _points;
    const QsdPointArray* _other = nullptr;
};
