// The clips that are in force while a drawing is painted.
#pragma once

#include "drawing/canvas.h"
#include "page/rings.h"

#include <optional>
#include <vector>

namespace qsdps {

/// What a shape may cover: a rectangle, an area within it, or everything.
struct ClipArea {
    std::optional<QsdRect> rect; ///< none: no limit
    std::optional<Rings> area;   ///< non-zero rule; none: all of the rectangle
};

class ClipStack {
public:
    /// A stack of clips whose outlines are flattened to within `tolerance` units; `pageToUnits` maps their pages.
    ClipStack(const Matrix& pageToUnits, double tolerance) : _pageToUnits(pageToUnits), _tolerance(tolerance) {}

    void push(const ClipPath& clip);
    /// Limits what follows to an area in units (non-zero rule) besides the clip in force.
    void push(const Rings& rings);
    void pop();
    /// The clip in force.
    [[nodiscard]] const ClipArea& top() const { return _stack.empty() ? _unlimited : _stack.back(); }

private:
    [[nodiscard]] Rings ringsOfClip(const ClipPath& clip) const;

    Matrix _pageToUnits;
    double _tolerance;
    ClipArea _unlimited;
    std::vector<ClipArea> _stack;
};

} // namespace qsdps
