// Images: raster files are handed on as they are, drawings inside of the drawing are drawn.
#include "drawing/path_metrics.h"
#include "images/image_size.h"
#include "svg/shapes/shapes.h"
#include "svg/walker/root_size.h"
#include "svg/walker/viewport.h"
#include "svg/walker/walker.h"
#include "svg/xml/inflate.h"
#include "svg/xml/linked_file.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

constexpr std::size_t MaxImage = std::size_t{256} << 20;
constexpr int MaxEmbedded = 4;

bool looksLikeSvg(const std::string& data)
{
    const std::string_view head = std::string_view(data).substr(0, 4096);
    return isGzip(data) || (trim(head).starts_with('<') && head.find("svg") != head.npos) ||
           head.starts_with("\xEF\xBB\xBF<");
}

/// Sides that are not given follow from the image's own size and shape.
void completeSize(Box& viewport, const Element& element, std::optional<Size> own)
{
    const auto given = [&](Geometry which) { return parseLength(element.get(which)).has_value(); };
    const bool width = given(Geometry::Width);
    const bool height = given(Geometry::Height);
    if (!own || !(own->width > 0) || !(own->height > 0) || (width && height)) {
        return;
    }
    if (width) {
        viewport.height = viewport.width * own->height / own->width;
    } else if (height) {
        viewport.width = viewport.height * own->width / own->height;
    } else {
        viewport = {viewport.x, viewport.y, own->width, own->height};
    }
}

} // namespace

void Walker::drawImage(const Element& element, State state)
{
    if (!element.style.visible) {
        return;
    }
    const LengthBase base = baseOf(state);
    ImageObject image;
    image.viewport = {lengthOr(element.get(Geometry::X), Axis::Horizontal, base, 0),
                      lengthOr(element.get(Geometry::Y), Axis::Vertical, base, 0),
                      lengthOr(element.get(Geometry::Width), Axis::Horizontal, base, 0),
                      lengthOr(element.get(Geometry::Height), Axis::Vertical, base, 0)};
    if (measuring() && image.viewport.width > 0 && image.viewport.height > 0) {
        _canvas.image(image, 1, state.toPage);
        return;
    }
    const std::string_view source = href(element.node);
    if (source.empty()) {
        return;
    }
    std::size_t& budget = _scene.budget().imageBytes;
    auto bytes = readLinked(source, _scene.options().baseFolder, std::min(budget, MaxImage));
    if (!bytes) {
        if (!measuring()) {
            _scene.notDrawn("image", element.node, source);
        }
        return;
    }
    budget -= std::min(budget, bytes->data.size());
    if (looksLikeSvg(bytes->data)) {
        drawEmbedded(std::move(bytes->data), element, image.viewport, state);
        return;
    }
    completeSize(image.viewport, element, imageSize(bytes->data));
    if (!(image.viewport.width > 0) || !(image.viewport.height > 0) ||
        !isFinite(outlineOf(image.viewport), state.toPage)) {
        return;
    }
    const AspectRatio aspect = parseAspectRatio(attribute(element.node, "preserveAspectRatio"));
    image.data = std::move(bytes->data);
    image.name = std::move(bytes->name);
    image.preserveAspect = aspect.preserve;
    image.alignX = aspect.alignX;
    image.alignY = aspect.alignY;
    image.slice = aspect.slice;
    image.smooth = element.style.smoothImages;
    _canvas.image(image, state.opacity, state.toPage);
}

void Walker::drawEmbedded(std::string bytes, const Element& element, Box viewport, State state)
{
    Budget& budget = _scene.budget();
    // Reading a drawing costs far more than handing on a picture.
    constexpr std::size_t DrawingCost = 16;
    budget.imageBytes -= std::min(budget.imageBytes, bytes.size() * DrawingCost);
    if (budget.embedded >= MaxEmbedded) {
        _scene.notDrawn("image", element.node, href(element.node));
        return;
    }
    const auto loaded = StyledDocument::load(std::move(bytes), _scene.options().baseFolder);
    if (!loaded) {
        _scene.notDrawn("image", element.node, href(element.node));
        return;
    }
    const StyledDocument& document = **loaded;
    budget.imageBytes -= std::min(budget.imageBytes, document.sheetBytes() * DrawingCost);
    ++budget.embedded;
    drawDocument(document, element, viewport, state);
    --budget.embedded;
}

void Walker::drawDocument(const StyledDocument& document, const Element& element, Box viewport, State state)
{
    const Size size = rootSize(document, _scene.options(), _scene.budget());
    completeSize(viewport, element, size);
    if (!(viewport.width > 0) || !(viewport.height > 0) || !(size.width > 0) || !(size.height > 0)) {
        return;
    }
    const AspectRatio aspect = parseAspectRatio(attribute(element.node, "preserveAspectRatio"));
    const Matrix toPage = state.toPage * fitBox({0, 0, size.width, size.height}, aspect, viewport);
    if (!isFinite(toPage)) {
        return;
    }
    pushBoxClip(viewport, state.toPage);
    const bool group = beginGroup(state, true);
    Scene scene(document, _scene.options(), _scene.report(), _scene.budget(), size);
    Walker(scene, _canvas, _purpose).drawRoot(toPage);
    endGroup(group);
    _canvas.popClip();
}

} // namespace qsdps::svg
