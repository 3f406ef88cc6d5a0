#include "expected_picture.h"

#include "page_pixels.h"

#include <algorithm>
#include <cmath>

namespace {

bool isVisible(const std::vector<QsdRect>& clip, const QsdPoint& point)
{
    return clip.empty() ||
           std::any_of(clip.begin(), clip.end(), [&](const QsdRect& rect) { return rect.contains(point); });
}

bool isVisible(const Form& form, const QsdPoint& point)
{
    return (form.dest.isEmpty() || form.dest.contains(point)) && isVisible(form.paletteClip, point) &&
           isVisible(form.clip, point);
}

} // namespace

std::optional<QsdRGB> expectedColor(const Form& form, const SourcePixels& pixels, int x, int y)
{
    const bool oneBit = pixels.isOneBit(form.source);
    if (!isVisible(form, {x, y}) || (form.leavesOut && !oneBit)) {
        return {};
    }
    // The source pixel on which the centre of this one lies. Shapes and images are painted where their inside covers
    // a centre.
    const Matrix& m = form.matrix;
    const double right = x + 0.5 - form.at.x;
    const double down = y + 0.5 - form.at.y;
    const double determinant = m.x11 * m.x22 - m.x12 * m.x21;
    const auto u = static_cast<std::int64_t>(std::floor((m.x22 * right - m.x12 * down) / determinant));
    const auto v = static_cast<std::int64_t>(std::floor((m.x11 * down - m.x21 * right) / determinant)) -
                   (oneBit ? 0 : form.rowsLow);
    if (u < 0 || v < 0 || u >= form.from.width || v >= form.from.height) {
        return {};
    }
    const std::int64_t column = u + form.from.x;
    const std::int64_t row = v + form.from.y;
    if (oneBit) {
        if (pixels.bit(form.source, column, row)) {
            return Foreground;
        }
        return form.transparent ? std::nullopt : std::optional(Background);
    }
    if (form.transparent && !pixels.inMask(form.source, column, row)) {
        return {};
    }
    return pixels.color(column, row);
}
