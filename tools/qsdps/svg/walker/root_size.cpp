#include "svg/walker/root_size.h"

#include "drawing/bounds_canvas.h"
#include "svg/walker/viewport.h"
#include "svg/walker/walker.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace qsdps::svg {
namespace {

/// A size in absolute units; percentages and missing values say nothing about the drawing's own size.
std::optional<double> absolute(std::string_view text, const LengthBase& base)
{
    const auto length = parseLength(text);
    if (!length || hasPercent(*length) || length->value < 0) {
        return {};
    }
    const double value = resolve(*length, Axis::Diagonal, base);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

Size inkSize(const StyledDocument& document, const SvgOptions& options, Budget& budget)
{
    Report ignored;
    Scene scene(document, options, ignored, budget, {options.fallbackViewport.width, options.fallbackViewport.height});
    BoundsCanvas canvas({}, true);
    Walker(scene, canvas, Walker::Purpose::Measure).drawRoot({});
    const Box box = canvas.box().value_or(Box{});
    return {std::max(0.0, box.x + box.width), std::max(0.0, box.y + box.height)};
}

} // namespace

Size rootSize(const StyledDocument& document, const SvgOptions& options, Budget& budget)
{
    Report ignored;
    Scene scene(document, options, ignored, budget, {options.fallbackViewport.width, options.fallbackViewport.height});
    const Element root = scene.resolve(document.elements().root(), Style{});
    const LengthBase base = scene.lengthBase(root.style, {});
    auto width = absolute(root.get(Geometry::Width), base);
    auto height = absolute(root.get(Geometry::Height), base);
    if (width && height) {
        return {*width, *height};
    }
    if (const auto viewBox = parseViewBox(attribute(document.elements().root(), "viewBox"))) {
        const double ratio = viewBox->height / viewBox->width;
        if (width) {
            return {*width, *width * ratio};
        }
        if (height) {
            return {*height / ratio, *height};
        }
        return {viewBox->width, viewBox->height};
    }
    const Size ink = inkSize(document, options, budget);
    return {width.value_or(ink.width), height.value_or(ink.height)};
}

} // namespace qsdps::svg
