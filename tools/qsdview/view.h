// Which part of a page a window shows, and how large.
#pragma once

#include "toolkit/geometry/QsdRect.h"

#include <cstdint>

namespace qsdview {

/// A window's view of one page. The page lies in a plane of pixels with its top left corner at the origin; the window
/// shows a rectangle of that plane. A page smaller than the window lies in its middle, a larger one covers it.
class View {
public:
    static constexpr double LeastZoom = 0.02;
    static constexpr double MostZoom = 64;

    /// A view in a window of that size in pixels; the page is as large as the window allows until somebody zooms.
    View(std::uint32_t width, std::uint32_t height) : _width(width), _height(height) {}

    /// Shows a page of that size in CSS pixels from its top left corner.
    void setPage(double width, double height);
    /// Tells the window's new size; what was at its corner stays there.
    void resize(std::uint32_t width, std::uint32_t height);
    /// Makes the page, and those after it, as large as the window allows.
    void fit();
    /// Shows the page with `zoom` pixels in a CSS pixel, held between the limits. What lies at `anchor` in the window
    /// stays there.
    void setZoom(double zoom, const QsdPoint& anchor);
    /// The same with the window's middle as the anchor.
    void setZoom(double zoom);
    /// Moves the window over the page by so many pixels, as far as the page reaches.
    void scroll(double right, double down);

    /// Pixels in a CSS pixel.
    [[nodiscard]] double zoom() const { return _zoom; }
    /// Whether the page follows the size of the window.
    [[nodiscard]] bool isFitting() const { return _fitting; }
    /// The page in the plane of pixels.
    [[nodiscard]] QsdRect page() const;
    /// What the window shows of that plane.
    [[nodiscard]] QsdRect window() const;

private:
    void settle();

    std::uint32_t _width;
    std::uint32_t _height;
    double _pageWidth = 1;
    double _pageHeight = 1;
    double _zoom = 1;
    double _left = 0; ///< of the window in the plane
    double _top = 0;
    bool _fitting = true;
};

} // namespace qsdview
