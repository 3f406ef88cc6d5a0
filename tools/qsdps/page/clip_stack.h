// The clips that are in force while a drawing is painted.
#pragma once

#include "drawing/canvas.h"
#include "page/rings.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qsdps {

/// What a shape may cover: a rectangle, an area within it, or everything.
struct ClipArea {
    std::optional<QsdRect> rect; ///< none: no limit
    std::optional<Rings> area;   ///< non-zero rule; none: all of the rectangle
};

class ClipStack {
public:
    /// Gives the outlines of a text's letters in its user space, those of spans with a fill.
    using LettersOf = std::function<std::vector<Path>(const TextChunk&)>;

    /// A stack of clips whose outlines are flattened to within `tolerance` units; `pageToUnits` maps their pages, and
    /// `lettersOf` is called for their texts (none: texts have no outlines).
    ClipStack(const Matrix& pageToUnits, double tolerance, LettersOf lettersOf = {})
        : _pageToUnits(pageToUnits), _tolerance(tolerance), _lettersOf(std::move(lettersOf))
    {
    }

    void push(const ClipPath& clip);
    /// Limits what follows to an area in units (non-zero rule) besides the clip in force.
    void push(const Rings& rings);
    void pop();
    /// The clip in force.
    [[nodiscard]] const ClipArea& top() const { return _stack.empty() ? _unlimited : _stack.back(); }

private:
    /// What the clips cover that were met so far: several may share those inside of them.
    using KnownClips = std::unordered_map<const ClipPath*, Rings>;

    const Rings& ringsOfClip(const ClipPath& clip, KnownClips& known) const;
    [[nodiscard]] Rings unlimitedRings(const ClipOutline& outline) const;
    [[nodiscard]] Rings ringsOfTexts(const ClipOutline& outline) const;

    Matrix _pageToUnits;
    double _tolerance;
    LettersOf _lettersOf;
    ClipArea _unlimited;
    std::vector<ClipArea> _stack;
};

} // namespace qsdps
