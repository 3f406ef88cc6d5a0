// Drawings in SVG: opened once, drawn on any canvas.
#pragma once

#include "drawing/canvas.h"
#include "drawing/report.h"
#include "svg/walker/svg_options.h"
#include "values/result.h"

#include <memory>
#include <string>

namespace qsdps {

namespace svg {
class StyledDocument;
}

/// One drawing in memory. Drawing it reads the parsed file and leaves nothing behind, so memory stays bounded by the
/// file.
class SvgDrawing {
public:
    /// Parses an SVG file, gzipped or not.
    [[nodiscard]] static Result<std::unique_ptr<SvgDrawing>> load(std::string bytes, const SvgOptions& options);
    ~SvgDrawing();
    SvgDrawing(const SvgDrawing&) = delete;
    SvgDrawing& operator=(const SvgDrawing&) = delete;

    /// The drawing's own size in CSS pixels: from width and height, else from viewBox, else from what is drawn.
    [[nodiscard]] double width() const { return _width; }
    [[nodiscard]] double height() const { return _height; }
    /// The text of the title element, blanks for line ends and runs of white space; empty where there is none.
    [[nodiscard]] std::string title() const;
    /// Draws everything in painting order; what cannot be drawn as asked is counted in `report`.
    void draw(Canvas& canvas, Report& report) const;

private:
    SvgDrawing(std::unique_ptr<svg::StyledDocument> document, const SvgOptions& options);

    std::unique_ptr<svg::StyledDocument> _document;
    SvgOptions _options;
    double _width = 0;
    double _height = 0;
};

} // namespace qsdps
