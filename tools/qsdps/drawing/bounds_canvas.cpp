#include "drawing/bounds_canvas.h"

#include "drawing/path_metrics.h"
#include "values/utf8.h"

#include <algorithm>

namespace qsdps {
namespace {

// Common proportions of Latin text, in ems.
constexpr double MeanAdvance = 0.5;
constexpr double Ascent = 0.8;
constexpr double Descent = 0.2;

} // namespace

Box estimateText(const TextChunk& chunk)
{
    double width = 0;
    double size = 0;
    for (const TextSpan& span : chunk.spans) {
        size = std::max(size, span.font.size);
        const auto count = static_cast<double>(countCharacters(span.text));
        width += span.textLength.value_or(count * (span.font.size * MeanAdvance + span.letterSpacing)) + span.dx;
    }
    width = std::max(width, 0.0);
    double x = chunk.at.x;
    if (chunk.anchor != TextAnchor::Start) {
        x -= chunk.anchor == TextAnchor::Middle ? width / 2 : width;
    }
    return {x, chunk.at.y - size * Ascent, width, size * (Ascent + Descent)};
}

void BoundsCanvas::add(const Path& path, const Matrix& toPage, double margin)
{
    const Matrix map = _fromPage * toPage;
    if (!isFinite(path, map)) {
        return;
    }
    auto box = pathBounds(path.transformed(map));
    if (!box) {
        return;
    }
    const double grow = margin * map.meanScale();
    const Box grown{box->x - grow, box->y - grow, box->width + 2 * grow, box->height + 2 * grow};
    _box = _box ? unite(*_box, grown) : grown;
}

void BoundsCanvas::fill(const Path& path, FillRule, const Paint&, const Matrix& toPage)
{
    add(path, toPage, 0);
}

void BoundsCanvas::stroke(const Path& path, const StrokeStyle& style, const Paint&, const Matrix& toPage)
{
    if (_withStrokes) {
        add(path, toPage, style.width / 2);
    }
}

void BoundsCanvas::text(const TextChunk& chunk, const Matrix& toPage)
{
    add(chunk.along ? *chunk.along : outlineOf(estimateText(chunk)), toPage, 0);
}

void BoundsCanvas::image(const ImageObject& image, double, const Matrix& toPage)
{
    add(outlineOf(image.viewport), toPage, 0);
}

} // namespace qsdps
