#include "command/layout.h"

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

/// Whether a density is one that some device may have.
bool isSensible(const Density& density)
{
    constexpr double Least = 1;
    constexpr double Most = 1e5;
    return density.across >= Least && density.across <= Most && density.down >= Least && density.down <= Most;
}

/// The map that turns a picture of that size upright, its top left corner to the origin. From 5 on, its rows become
/// columns.
Matrix turnUpright(int orientation, double width, double height)
{
    switch (orientation) {
    case 2:
        return {-1, 0, 0, 1, width, 0};
    case 3:
        return {-1, 0, 0, -1, width, height};
    case 4:
        return {1, 0, 0, -1, 0, height};
    case 5:
        return {0, 1, 1, 0, 0, 0};
    case 6:
        return {0, 1, -1, 0, height, 0};
    case 7:
        return {0, -1, -1, 0, height, width};
    case 8:
        return {0, -1, 1, 0, 0, width};
    default:
        return {};
    }
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
    const double roomAcross = paper.width - options.margins.left - options.margins.right;
    const double roomDown = paper.height - options.margins.top - options.margins.bottom;
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

Matrix pictureToDrawing(const ImageHeader& header, const Options& options)
{
    const Density none{options.dpi, options.dpi};
    const Density density = isSensible(header.density) ? header.density : none;
    const double across = options.dpi / density.across;
    const double down = options.dpi / density.down;
    return turnUpright(header.orientation, header.width * across, header.height * down) * Matrix::scaling(across, down);
}

Box sizeOfPicture(const ImageHeader& header, const Options& options)
{
    const Point corner =
        pictureToDrawing(header, options).map({static_cast<double>(header.width), static_cast<double>(header.height)});
    const Point origin = pictureToDrawing(header, options).map({0, 0});
    return {0, 0, std::abs(corner.x - origin.x), std::abs(corner.y - origin.y)};
}

} // namespace qsdps
