// A canvas that writes down, in one short line each, what it is asked to draw.
#pragma once

#include "drawing/canvas.h"
#include "svg/reader.h"

#include <string>
#include <vector>

namespace qsdps {

/// Lines look like "fill #ff0000 M0,0 L10,0 L10,10 Z", coordinates on the page.
class RecordingCanvas : public Canvas {
public:
    std::vector<std::string> lines;
    std::vector<TextChunk> chunks;
    std::vector<ImageObject> images;
    std::vector<StrokeStyle> strokes;
    std::vector<Paint> paints;

    void fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage) override;
    void stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage) override;
    void text(const TextChunk& chunk, const Matrix& toPage) override;
    void image(const ImageObject& image, double opacity, const Matrix& toPage) override;
    void pushClip(const ClipPath& clip) override;
    void popClip() override { lines.emplace_back("popClip"); }
    void beginGroup(double opacity) override;
    void endGroup() override { lines.emplace_back("endGroup"); }
};

/// What one drawing gives.
struct Recording {
    RecordingCanvas canvas;
    std::string messages; ///< of the report
    std::string error;    ///< why it could not be opened
    double width = 0;
    double height = 0;
    std::string title;
};

/// Opens and draws a whole file.
Recording drawFile(const std::string& bytes, const SvgOptions& options = {});
/// The same for the content of a drawing of 100 by 100.
Recording draw(const std::string& content);
/// Only the lines.
std::vector<std::string> linesOf(const std::string& content);

using Lines = std::vector<std::string>;

} // namespace qsdps
