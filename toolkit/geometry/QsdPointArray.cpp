#include "toolkit/geometry/QsdPointArray.h"

#include <utility>

QsdPointArray::QsdPointArray(unsigned long count, const QsdPoint* points) : _points(points, points + count) {}

QsdPointArray::QsdPointArray(std::vector<QsdPoint> points) : _points(std::move(points)) {}

void QsdPointArray::clear()
{
    _points.clear();
    _other = nullptr;
}

unsigned long QsdPointArray::count() const
{
    return resolved()._points.size();
}

const QsdPoint* QsdPointArray::points() const
{
    const std::vector<QsdPoint>& found = resolved()._points;
    return found.empty() ? nullptr : found.data();
}

// A reference may lead back to where it came from; a second runner at twice the speed meets the first in such a circle.
const QsdPointArray& QsdPointArray::resolved() const
{
    const QsdPointArray* slow = this;
    const QsdPointArray* fast = this;
    while (fast->_points.empty() && fast->_other != nullptr) {
        fast = fast->_other;
        if (!fast->_points.empty() || fast->_other == nullptr) {
            break;
        }
        fast = fast->_other;
        slow = slow->_other;
        if (slow == fast) {
            break;
        }
    }
    return *fast;
}
