#include "qsdview/view.h"

#include <algorithm>
#include <cmath>

namespace qsdview {

namespace {

/// A side of a page in pixels: none is too thin to be seen.
double pixelsOf(double side, double zoom)
{
    constexpr double Rounding = 1e-6; // what arithmetic adds makes no pixel
    return std::max(1.0, std::ceil(side * zoom - Rounding));
}

/// Where the window begins along one side: in the middle of what is shorter.
double settled(double at, double window, double page)
{
    return window >= page ? std::floor((page - window) / 2) : std::clamp(at, 0.0, page - window);
}

} // namespace

void View::setPage(double width, double height)
{
    // So that no page, however large its file says it is, leaves the integers.
    constexpr double Longest = 1e7;
    _pageWidth = std::clamp(width, 1e-3, Longest);
    _pageHeight = std::clamp(height, 1e-3, Longest);
    _left = 0;
    _top = 0;
    settle();
}

void View::resize(std::uint32_t width, std::uint32_t height)
{
    _width = width;
    _height = height;
    settle();
}

void View::fit()
{
    _fitting = true;
    settle();
}

void View::setZoom(double zoom, const QsdPoint& anchor)
{
    const double next = std::clamp(zoom, LeastZoom, MostZoom);
    const double factor = next / _zoom;
    _left = (_left + anchor.x) * factor - anchor.x;
    _top = (_top + anchor.y) * factor - anchor.y;
    _zoom = next;
    _fitting = false;
    settle();
}

void View::setZoom(double zoom)
{
    setZoom(zoom, {static_cast<std::int32_t>(_width / 2), static_cast<std::int32_t>(_height / 2)});
}

void View::scroll(double right, double down)
{
    _left += right;
    _top += down;
    settle();
}

void View::settle()
{
    if (_fitting) {
        _zoom = std::clamp(std::min(_width / _pageWidth, _height / _pageHeight), LeastZoom, MostZoom);
    }
    _left = settled(_left, _width, pixelsOf(_pageWidth, _zoom));
    _top = settled(_top, _height, pixelsOf(_pageHeight, _zoom));
}

QsdRect View::page() const
{
    return {0, 0, static_cast<std::uint32_t>(pixelsOf(_pageWidth, _zoom)),
            static_cast<std::uint32_t>(pixelsOf(_pageHeight, _zoom))};
}

QsdRect View::window() const
{
    return {static_cast<std::int32_t>(std::lround(_left)), static_cast<std::int32_t>(std::lround(_top)), _width,
            _height};
}

} // namespace qsdview
