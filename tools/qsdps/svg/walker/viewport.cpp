#include "svg/walker/viewport.h"

#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

std::optional<double> alignment(std::string_view word)
{
    if (word == "Min") {
        return 0;
    }
    if (word == "Mid") {
        return 0.5;
    }
    if (word == "Max") {
        return 1;
    }
    return {};
}

} // namespace

std::optional<Box> parseViewBox(std::string_view text)
{
    const auto v = parseNumberList(text);
    if (v.size() != 4 || !(v[2] > 0) || !(v[3] > 0)) {
        return {};
    }
    return Box{v[0], v[1], v[2], v[3]};
}

AspectRatio parseAspectRatio(std::string_view text)
{
    AspectRatio aspect;
    Scanner scanner(trim(text));
    std::string_view align = scanner.word();
    scanner.skipSpace();
    if (align == "defer") {
        align = scanner.word();
        scanner.skipSpace();
    }
    if (align == "none") {
        aspect.preserve = false;
        return aspect;
    }
    // "xMidYMid"
    if (align.size() != 8 || align[0] != 'x' || align[4] != 'Y') {
        return aspect;
    }
    const auto x = alignment(align.substr(1, 3));
    const auto y = alignment(align.substr(5, 3));
    if (!x || !y) {
        return aspect;
    }
    aspect.alignX = *x;
    aspect.alignY = *y;
    aspect.slice = scanner.word() == "slice";
    return aspect;
}

Matrix fitBox(const Box& viewBox, const AspectRatio& aspect, const Box& viewport)
{
    double sx = viewport.width / viewBox.width;
    double sy = viewport.height / viewBox.height;
    if (aspect.preserve) {
        sx = sy = aspect.slice ? std::max(sx, sy) : std::min(sx, sy);
    }
    const double spareX = viewport.width - viewBox.width * sx;
    const double spareY = viewport.height - viewBox.height * sy;
    return {sx,
            0,
            0,
            sy,
            viewport.x - viewBox.x * sx + spareX * aspect.alignX,
            viewport.y - viewBox.y * sy + spareY * aspect.alignY};
}

} // namespace qsdps::svg
