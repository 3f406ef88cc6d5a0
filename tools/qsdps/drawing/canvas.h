// The surface that a reader of drawings draws on: one call per visible object, in painting order, properties resolved.
#pragma once

#include "drawing/geometry.h"
#include "drawing/paint.h"
#include "drawing/text.h"

#include <memory>
#include <string>
#include <vector>

namespace qsdps {

struct ClipPath;

/// One outline of a clip, or texts that take its place; the optional clips limit this outline alone.
struct ClipOutline {
    Path path;
    FillRule rule = FillRule::NonZero;
    Matrix toPage;
    std::shared_ptr<const ClipPath> inner;
    std::shared_ptr<const ClipPath> around = nullptr; ///< cuts it too: the clip of what brings it in by reference
    std::vector<TextChunk> texts = {};                ///< their letters are the outline, those of spans with a fill
};

/// The union of outlines, cut by `within` where that is set. No outline at all hides everything.
struct ClipPath {
    std::vector<ClipOutline> outlines;
    std::shared_ptr<const ClipPath> within;
};

/// A raster image as the drawing carries it: still encoded.
struct ImageObject {
    std::string data; ///< the bytes of the file (PNG, JPEG, …)
    std::string name; ///< for messages: the file's name, or "data URI"
    Box viewport;     ///< where it goes, user space
    bool preserveAspect = true;
    double alignX = 0.5; ///< 0 left, 0.5 middle, 1 right, when the aspect is preserved
    double alignY = 0.5;
    bool slice = false; ///< cover the viewport and cut, instead of fitting inside
    bool smooth = true;
};

/// Receives the objects of one drawing. "Page" is the space of the drawing's own size in CSS pixels, y downwards;
/// every `toPage` maps the object's user space there.
class Canvas {
public:
    virtual ~Canvas() = default;

    virtual void fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage) = 0;
    virtual void stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage) = 0;
    virtual void text(const TextChunk& chunk, const Matrix& toPage) = 0;
    virtual void image(const ImageObject& image, double opacity, const Matrix& toPage) = 0;

    /// Everything up to the matching popClip is limited to `clip` (and to the clips outside it).
    virtual void pushClip(const ClipPath& clip) = 0;
    virtual void popClip() = 0;

    /// Everything up to the matching endGroup is composed first and laid down with `opacity` (below 1) as one object.
    virtual void beginGroup(double opacity) = 0;
    virtual void endGroup() = 0;
};

} // namespace qsdps
