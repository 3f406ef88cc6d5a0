#include "layout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

namespace {

constexpr double PointsPerInch = 72;

/// Points in a pixel of the drawing, across and down.
std::pair<double, double> scaleOf(double width, double height, const Options& options)
{
    const double natural = PointsPerInch / options.dpi * options.zoom;
    double across = natural;
    double down = natural;
    if (options.width && width > 0) {
        across = *options.width / width;
    }
    if (options.height && height > 0) {
        down = *options.height / height;
    }
    // With one side given the other follows.
    if (options.width && !options.height) {
        down = across;
    } else if (options.height && !options.width) {
        across = down;
    }
    return {across, down};
}

} // namespace

Box sizeOnPaper(double width, double height, const Options& options)
{
    const auto [across, down] = scaleOf(width, height, options);
    return {0, 0, width * across, height * down};
}

PaperSize paperFor(const std::vector<Box>& sizes, const Options& options)
{
    double widest = 0;
    double tallest = 0;
    for (const Box& size : sizes) {
        widest = std::max(widest, size.width);
        tallest = std::max(tallest, size.height);
    }
    PaperSize paper{widest + options.margins.left + options.margins.right,
                    tallest + options.margins.top + options.margins.bottom};
    if (options.paper) {
        paper = *options.paper;
    }
    const bool isLandscape = paper.width > paper.height;
    const bool wantsLandscape =
        options.orientation == Orientation::Landscape ||
        (options.orientation == Orientation::Auto && (options.paper ? widest > tallest : isLandscape));
    if (isLandscape != wantsLandscape) {
        std::swap(paper.width, paper.height);
    }
    return paper;
}

Matrix placement(double width, double height, const PaperSize& paper, const Options& options)
{
    auto [across, down] = scaleOf(width, height, options);
    const double roomAcross = std::max(1.0, paper.width - options.margins.left - options.margins.right);
    const double roomDown = std::max(1.0, paper.height - options.margins.top - options.margins.bottom);
    if (options.paper && options.fit != Fit::None && width > 0 && height > 0) {
        const double fitting = std::min(roomAcross / (width * across), roomDown / (height * down));
        if (options.fit == Fit::Page || fitting < 1) {
            across *= fitting;
            down *= fitting;
        }
    }
    const double x = options.margins.left + (roomAcross - width * across) * options.alignX;
    const double y = options.margins.top + (roomDown - height * down) * options.alignY;
    return {across, 0, 0, down, x, y};
}

} // namespace qsdps
