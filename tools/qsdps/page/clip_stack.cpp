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
    push(ringsOfClip(clip));
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

Rings ClipStack::ringsOfClip(const ClipPath& clip) const
{
    Rings united;
    for (const ClipOutline& outline : clip.outlines) {
        Rings rings = ringsOf(flattened(outline.path, _pageToUnits * outline.toPage, _tolerance));
        if (!asRectangle(rings)) {
            rings = simplified(rings, outline.rule);
        }
        if (outline.inner) {
            rings = intersection(rings, FillRule::NonZero, ringsOfClip(*outline.inner));
        }
        united = united.empty() ? std::move(rings) : unionOf(united, rings);
    }
    return clip.within ? intersection(united, FillRule::NonZero, ringsOfClip(*clip.within)) : united;
}

} // namespace qsdps
