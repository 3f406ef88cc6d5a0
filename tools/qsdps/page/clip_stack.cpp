#include "page/clip_stack.h"

#include "page/flatten.h"

#include <utility>

namespace qsdps {

namespace {

/// The rectangle cut by what is in force already.
QsdRect limited(const QsdRect& rect, const ClipArea& outer)
{
    return outer.rect ? rect.intersected(*outer.rect) : rect;
}

} // namespace

void ClipStack::push(const ClipPath& clip)
{
    KnownClips known;
    push(ringsOfClip(clip, known));
}

void ClipStack::push(const Rings& rings)
{
    const ClipArea& outer = top();
    const std::optional<QsdRect> rect = asRectangle(rings);
    ClipArea next;
    if (rect && !outer.area) {
        next.rect = limited(*rect, outer);
    } else {
        Rings area = outer.area ? intersection(rings, FillRule::NonZero, *outer.area) : rings;
        if (outer.rect && !outer.area) {
            area = intersection(area, FillRule::NonZero, ringsOf(*outer.rect));
        }
        next.rect = limited(boundsOf(area), outer);
        next.area = std::move(area);
    }
    _stack.push_back(std::move(next));
}

void ClipStack::pop()
{
    if (!_stack.empty()) {
        _stack.pop_back();
    }
}

// Letters may go around what they enclose either way, so each is brought into one way before they are joined.
Rings ClipStack::ringsOfTexts(const ClipOutline& outline) const
{
    Rings letters;
    for (const TextChunk& text : outline.texts) {
        if (_lettersOf == nullptr) {
            break;
        }
        for (const Path& letter : _lettersOf(text)) {
            const Rings rings = ringsOf(flattened(letter, _pageToUnits * outline.toPage, _tolerance));
            const Rings alike = simplified(rings, FillRule::NonZero);
            letters.insert(letters.end(), alike.begin(), alike.end());
        }
    }
    return simplified(letters, FillRule::NonZero);
}

Rings ClipStack::unlimitedRings(const ClipOutline& outline) const
{
    if (!outline.texts.empty()) {
        return ringsOfTexts(outline);
    }
    Rings rings = ringsOf(flattened(outline.path, _pageToUnits * outline.toPage, _tolerance));
    return asRectangle(rings) ? rings : simplified(rings, outline.rule);
}

const Rings& ClipStack::ringsOfClip(const ClipPath& clip, KnownClips& known) const
{
    if (const auto found = known.find(&clip); found != known.end()) {
        return found->second;
    }
    const auto cut = [&](Rings& rings, const std::shared_ptr<const ClipPath>& inner) {
        if (inner) {
            rings = intersection(rings, FillRule::NonZero, ringsOfClip(*inner, known));
        }
    };
    Rings united;
    for (const ClipOutline& outline : clip.outlines) {
        Rings rings = unlimitedRings(outline);
        cut(rings, outline.inner);
        cut(rings, outline.around);
        united = united.empty() ? std::move(rings) : unionOf(united, rings);
    }
    cut(united, clip.within);
    return known.emplace(&clip, std::move(united)).first->second;
}

} // namespace qsdps
