#include "svg/shapes/shapes.h"

#include "svg/shapes/arc.h"
#include "svg/shapes/path_data.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

using Fault = std::function<void(std::string_view)>;

std::optional<double> radius(std::string_view text, Axis axis, const LengthBase& base)
{
    auto length = parseLength(text);
    if (!length || length->value < 0) {
        return {};
    }
    length->neverNegative = true;
    return resolve(*length, axis, base);
}

/// An elliptical corner or half; each radius stands in for the other where that one is not given.
Size radii(const Element& element, const LengthBase& base)
{
    const auto rx = radius(element.get(Geometry::Rx), Axis::Horizontal, base);
    const auto ry = radius(element.get(Geometry::Ry), Axis::Vertical, base);
    return {rx.value_or(ry.value_or(0)), ry.value_or(rx.value_or(0))};
}

Path roundedBox(const Box& box, double rx, double ry)
{
    const double right = box.x + box.width;
    const double bottom = box.y + box.height;
    Path path;
    const auto corner = [&](Point from, Point to) { appendArc(path, {from, rx, ry, 0, false, true, to}); };
    path.moveTo({box.x + rx, box.y});
    path.lineTo({right - rx, box.y});
    corner({right - rx, box.y}, {right, box.y + ry});
    path.lineTo({right, bottom - ry});
    corner({right, bottom - ry}, {right - rx, bottom});
    path.lineTo({box.x + rx, bottom});
    corner({box.x + rx, bottom}, {box.x, bottom - ry});
    path.lineTo({box.x, box.y + ry});
    corner({box.x, box.y + ry}, {box.x + rx, box.y});
    path.close();
    return path;
}

Path rectPath(const Element& element, const LengthBase& base, const Fault& fault)
{
    const Box box{lengthOr(element.get(Geometry::X), Axis::Horizontal, base, 0),
                  lengthOr(element.get(Geometry::Y), Axis::Vertical, base, 0),
                  lengthOr(element.get(Geometry::Width), Axis::Horizontal, base, 0),
                  lengthOr(element.get(Geometry::Height), Axis::Vertical, base, 0)};
    if (box.width < 0 || box.height < 0) {
        fault("rect element left out: its size is negative");
    }
    if (!(box.width > 0) || !(box.height > 0)) {
        return {};
    }
    const Size corner = radii(element, base);
    if (corner.width <= 0 || corner.height <= 0) {
        return outlineOf(box);
    }
    return roundedBox(box, std::min(corner.width, box.width / 2), std::min(corner.height, box.height / 2));
}

Path ellipsePath(const Element& element, const LengthBase& base)
{
    Size size = radii(element, base);
    if (element.tag == Tag::Circle) {
        size.width = lengthOr(element.get(Geometry::R), Axis::Diagonal, base, 0);
        size.height = size.width;
    }
    Path path;
    if (size.width > 0 && size.height > 0) {
        appendEllipse(path,
                      {lengthOr(element.get(Geometry::Cx), Axis::Horizontal, base, 0),
                       lengthOr(element.get(Geometry::Cy), Axis::Vertical, base, 0)},
                      size.width, size.height);
    }
    return path;
}

Path linePath(const Element& element, const LengthBase& base)
{
    const auto get = [&](const char* name, Axis axis) {
        return lengthOr(attribute(element.node, name), axis, base, 0);
    };
    Path path;
    path.moveTo({get("x1", Axis::Horizontal), get("y1", Axis::Vertical)});
    path.lineTo({get("x2", Axis::Horizontal), get("y2", Axis::Vertical)});
    return path;
}

Path polyPath(const Element& element, const Fault& fault)
{
    const std::vector<double> values = parseNumberList(attribute(element.node, "points"));
    if (values.size() % 2 != 0) {
        fault("last number of points ignored: it has no partner");
    }
    Path path;
    for (std::size_t i = 0; i + 1 < values.size(); i += 2) {
        const Point p{values[i], values[i + 1]};
        if (i == 0) {
            path.moveTo(p);
        } else {
            path.lineTo(p);
        }
    }
    if (element.tag == Tag::Polygon && !path.empty()) {
        path.close();
    }
    return path;
}

} // namespace

double lengthOr(std::string_view text, Axis axis, const LengthBase& base, double initial)
{
    if (text.empty()) {
        return initial;
    }
    const auto length = parseLength(text);
    return length ? resolve(*length, axis, base) : initial;
}

Path shapePath(const Element& element, const LengthBase& base, const Fault& fault)
{
    switch (element.tag) {
    case Tag::Path: {
        PathData data = parsePathData(attribute(element.node, "d"));
        if (!data.complete) {
            fault("path drawn up to a fault in its data");
        }
        return std::move(data.path);
    }
    case Tag::Rect:
        return rectPath(element, base, fault);
    case Tag::Circle:
    case Tag::Ellipse:
        return ellipsePath(element, base);
    case Tag::Line:
        return linePath(element, base);
    case Tag::Polygon:
    case Tag::Polyline:
        return polyPath(element, fault);
    default:
        return {};
    }
}

} // namespace qsdps::svg
