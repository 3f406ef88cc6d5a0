// How far the drawing on a page reaches.
#pragma once

#include "ps/print/QsdPSExtent_p.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/geometry/QsdTransformer.h"

/// A clip in the space of the transformer that it was given under.
struct QsdPSPlacedClip {
    QsdRegion region = QsdRegion::Full();
    QsdTransformer transformer;
};

/// The extent of what is drawn on the page under way, in points, as far as the paper and the clips let it show.
class QsdPSPageReach {
public:
    /// Begins a document. Nothing shows beyond `paper` (points); `toPoints` maps the port's coordinates to points.
    void beginDocument(const QsdPSExtent& paper, const QsdTransformer& toPoints);
    /// Begins a page: nothing is drawn on it, the transformer is the identity, and the clips are these.
    void beginPage(const QsdPSPlacedClip& outer, const QsdPSPlacedClip& inner);
    /// Takes the clips that are in force from now on.
    void setClips(const QsdPSPlacedClip& outer, const QsdPSPlacedClip& inner);
    /// Takes the transformer that is in force from now on.
    void setTransformer(const QsdTransformer& t);

    /// Takes into account that a box in the coordinates in force, and what lies `margin` points around it, was drawn
    /// on.
    void add(const QsdPSExtent& box, double margin)
    {
        // Most drawings lie among earlier ones.
        if (!(margin == 0 && holds(box))) {
            addFurther(box, margin);
        }
    }
    /// Whether a box in the coordinates in force changes nothing.
    [[nodiscard]] bool holds(const QsdPSExtent& box) const { return _held.contains(box); }

    [[nodiscard]] const QsdPSExtent& extent() const { return _extent; }
    /// From the coordinates in force to points.
    [[nodiscard]] const QsdTransformer& toPaper() const { return _toPaper; }

private:
    void addFurther(const QsdPSExtent& box, double margin);

    QsdPSExtent _paper;
    QsdTransformer _page; ///< from the port's coordinates to points
    QsdTransformer _toPaper;
    bool _isUpright = true; ///< whether boxes stay boxes under it
    QsdPSExtent _clipBox;   ///< of both clips, on the paper
    QsdPSExtent _extent;
    QsdPSExtent _held; ///< in the coordinates in force: a box that the extent holds already, whatever the clip
};

/// The extent of a rectangle of coordinates under a transformer.
[[nodiscard]] QsdPSExtent QsdPSExtentOf(const QsdTransformer& t, double x1, double y1, double x2, double y2);
