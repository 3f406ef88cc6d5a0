#include "drawing/geometry.h"

#include <algorithm>
#include <cmath>

namespace qsdps {

double Matrix::meanScale() const
{
    return std::sqrt(std::abs(determinant()));
}

bool Matrix::isUniform() const
{
    const double first = std::hypot(a, b);
    const double second = std::hypot(c, d);
    const double tolerance = 1e-6 * std::max(first, second);
    return std::abs(first - second) <= tolerance && std::abs(a * c + b * d) <= tolerance * std::max(first, second);
}

Matrix Matrix::inverse() const
{
    const double det = determinant();
    if (det == 0 || !std::isfinite(det)) {
        return {};
    }
    return {d / det, -b / det, -c / det, a / det, (c * f - d * e) / det, (b * e - a * f) / det};
}

Matrix operator*(const Matrix& outer, const Matrix& inner)
{
    return {outer.a * inner.a + outer.c * inner.b,           outer.b * inner.a + outer.d * inner.b,
            outer.a * inner.c + outer.c * inner.d,           outer.b * inner.c + outer.d * inner.d,
            outer.a * inner.e + outer.c * inner.f + outer.e, outer.b * inner.e + outer.d * inner.f + outer.f};
}

void Path::moveTo(Point p)
{
    _verbs.push_back(Verb::Move);
    _points.push_back(p);
}

void Path::lineTo(Point p)
{
    _verbs.push_back(Verb::Line);
    _points.push_back(p);
}

void Path::cubicTo(Point c1, Point c2, Point p)
{
    _verbs.push_back(Verb::Cubic);
    _points.push_back(c1);
    _points.push_back(c2);
    _points.push_back(p);
}

void Path::close()
{
    _verbs.push_back(Verb::Close);
}

void Path::append(const Path& other)
{
    _verbs.insert(_verbs.end(), other._verbs.begin(), other._verbs.end());
    _points.insert(_points.end(), other._points.begin(), other._points.end());
}

Box Path::controlBox() const
{
    if (_points.empty()) {
        return {};
    }
    Point low = _points.front();
    Point high = low;
    for (const Point& p : _points) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return {low.x, low.y, high.x - low.x, high.y - low.y};
}

Path Path::transformed(const Matrix& m) const
{
    Path result = *this;
    for (Point& p : result._points) {
        p = m.map(p);
    }
    return result;
}

Path outlineOf(const Box& box)
{
    Path path;
    path.moveTo({box.x, box.y});
    path.lineTo({box.x + box.width, box.y});
    path.lineTo({box.x + box.width, box.y + box.height});
    path.lineTo({box.x, box.y + box.height});
    path.close();
    return path;
}

} // namespace qsdps
