#include "toolkit/geometry/QsdTransformer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

std::int32_t rounded(double value)
{
    constexpr double Least = std::numeric_limits<std::int32_t>::min();
    constexpr double Greatest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int32_t>(std::clamp(std::floor(value + 0.5), Least, Greatest));
}

struct Turn {
    double cosine;
    double sine;
};

/// Quarter turns are exact, so that matrices of upright drawings have no crumbs in them.
Turn turnBy(double degrees)
{
    const double turn = std::fmod(degrees, 360.0);
    if (turn == 0) {
        return {1, 0};
    }
    if (turn == 90 || turn == -270) {
        return {0, 1};
    }
    if (turn == 180 || turn == -180) {
        return {-1, 0};
    }
    if (turn == 270 || turn == -90) {
        return {0, -1};
    }
    constexpr double RadiansPerDegree = 3.14159265358979323846 / 180.0;
    return {std::cos(turn * RadiansPerDegree), std::sin(turn * RadiansPerDegree)};
}

double sideScale(std::uint32_t from, std::uint32_t to)
{
    return static_cast<double>(to) / std::max(from, 1U);
}

} // namespace

QsdTransformer::QsdTransformer(double x11, double x12, double x21, double x22, double x0, double y0)
    : _x11(x11), _x12(x12), _x21(x21), _x22(x22), _x0(x0), _y0(y0)
{
}

QsdTransformer::QsdTransformer(const QsdRect& from, const QsdRect& to)
    : _x11(sideScale(from.width, to.width)), _x22(sideScale(from.height, to.height)), _x0(to.x - from.x * _x11),
      _y0(to.y - from.y * _x22)
{
}

void QsdTransformer::getValues(double& x11, double& x12, double& x21, double& x22, double& x0, double& y0) const
{
    x11 = _x11;
    x12 = _x12;
    x21 = _x21;
    x22 = _x22;
    x0 = _x0;
    y0 = _y0;
}

void QsdTransformer::setValues(double x11, double x12, double x21, double x22, double x0, double y0)
{
    *this = QsdTransformer(x11, x12, x21, x22, x0, y0);
}

bool QsdTransformer::isIdentity() const
{
    return *this == QsdTransformer();
}

bool QsdTransformer::isSingular() const
{
    const double determinant = _x11 * _x22 - _x12 * _x21;
    return determinant == 0 || !std::isfinite(determinant);
}

// Adding a zero turns the negative zeros of products into plain ones, which are written without a sign.
QsdTransformer& QsdTransformer::compose(const QsdTransformer& next)
{
    return *this = QsdTransformer(next._x11 * _x11 + next._x12 * _x21 + 0.0, next._x11 * _x12 + next._x12 * _x22 + 0.0,
                                  next._x21 * _x11 + next._x22 * _x21 + 0.0, next._x21 * _x12 + next._x22 * _x22 + 0.0,
                                  next._x11 * _x0 + next._x12 * _y0 + next._x0 + 0.0,
                                  next._x21 * _x0 + next._x22 * _y0 + next._y0 + 0.0);
}

QsdTransformer& QsdTransformer::translate(double dx, double dy)
{
    _x0 += dx;
    _y0 += dy;
    return *this;
}

QsdTransformer& QsdTransformer::scale(double sx, double sy)
{
    return compose(QsdTransformer(sx, 0, 0, sy, 0, 0));
}

QsdTransformer& QsdTransformer::rotate(double degrees)
{
    const Turn turn = turnBy(degrees);
    return compose(QsdTransformer(turn.cosine, turn.sine, -turn.sine, turn.cosine, 0, 0));
}

QsdTransformer& QsdTransformer::rotate(double degrees, const QsdPoint& center)
{
    return translate(-static_cast<double>(center.x), -static_cast<double>(center.y))
        .rotate(degrees)
        .translate(center.x, center.y);
}

void QsdTransformer::transform(double& x, double& y) const
{
    const double mappedX = _x11 * x + _x12 * y + _x0;
    y = _x21 * x + _x22 * y + _y0;
    x = mappedX;
}

void QsdTransformer::transform(QsdPoint& point) const
{
    double x = point.x;
    double y = point.y;
    transform(x, y);
    point = {rounded(x), rounded(y)};
}

QsdRect QsdTransformer::transform(const QsdRect& rect) const
{
    const auto left = static_cast<double>(rect.x);
    const auto top = static_cast<double>(rect.y);
    const auto right = static_cast<double>(rect.right());
    const auto bottom = static_cast<double>(rect.bottom());
    double xs[] = {left, right, left, right};
    double ys[] = {top, top, bottom, bottom};
    for (int i = 0; i < 4; ++i) {
        transform(xs[i], ys[i]);
    }
    const auto [minX, maxX] = std::minmax_element(xs, xs + 4);
    const auto [minY, maxY] = std::minmax_element(ys, ys + 4);
    const std::int32_t x = rounded(std::floor(*minX));
    const std::int32_t y = rounded(std::floor(*minY));
    const std::int64_t width = std::int64_t{rounded(std::ceil(*maxX))} - x;
    const std::int64_t height = std::int64_t{rounded(std::ceil(*maxY))} - y;
    return {x, y, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

void QsdTransformer::inverse(QsdPoint& point) const
{
    if (!isSingular()) {
        inverted().transform(point);
    }
}

QsdTransformer QsdTransformer::inverted() const
{
    if (isSingular()) {
        return {};
    }
    const double determinant = _x11 * _x22 - _x12 * _x21;
    return {_x22 / determinant,
            -_x12 / determinant + 0.0,
            -_x21 / determinant + 0.0,
            _x11 / determinant,
            (_x12 * _y0 - _x22 * _x0) / determinant + 0.0,
            (_x21 * _x0 - _x11 * _y0) / determinant + 0.0};
}
