// A canvas that only notes how far things reach.
#pragma once

#include "drawing/canvas.h"

#include <optional>

namespace qsdps {

class BoundsCanvas : public Canvas {
public:
    /// Boxes are taken in the space that `fromPage` maps the page to; strokes count where `withStrokes` is set.
    BoundsCanvas(const Matrix& fromPage, bool withStrokes) : _fromPage(fromPage), _withStrokes(withStrokes) {}

    /// The box around everything so far; nothing when there was nothing.
    [[nodiscard]] const std::optional<Box>& box() const { return _box; }

    void fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage) override;
    void stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage) override;
    void text(const TextChunk& chunk, const Matrix& toPage) override;
    void image(const ImageObject& image, double opacity, const Matrix& toPage) override;
    void pushClip(const ClipPath&) override {}
    void popClip() override {}
    void beginGroup(double) override {}
    void endGroup() override {}

private:
    void add(const Path& path, const Matrix& toPage, double margin);

    Matrix _fromPage;
    bool _withStrokes;
    std::optional<Box> _box;
};

/// A rough box of a piece of text, for paints that are fitted to it; fonts are not at hand here.
[[nodiscard]] Box estimateText(const TextChunk& chunk);

} // namespace qsdps
