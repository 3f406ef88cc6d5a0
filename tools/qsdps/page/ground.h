// What the page shows so far, for things that let it shine through.
#pragma once

#include "page/raster.h"
#include "page/rings.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace qsdps {

/// A part of an area and the colour under it; the area is for the non-zero rule.
struct GroundPart {
    Rings area;
    Rgb color;
    std::size_t newest = 0; ///< number of areas up to the newest one that shows there; 0: the paper
};

/// The opaque areas painted on one page, one over the other. A device without transparency shows a translucent shape
/// right when each part of it is filled with the blend of its colour and the colour under that part.
class Ground {
public:
    using AreaMaker = std::function<Rings()>;

    /// Empty paper of one colour; what is smaller than `detail` units each way is not told apart, and parts reach
    /// `overlap` units under those that hide them.
    Ground(Rgb paper, double detail, double overlap) : _paper(paper), _detail(detail), _overlap(overlap) {}

    /// Lays an area inside `bounds` on top; what sticks out of them is cut off, and they may be larger. The maker gives
    /// its rings for the non-zero rule, and is called only when something translucent comes to lie there. Past a limit
    /// on memory areas are not remembered.
    void add(const QsdRect& bounds, Rings area, FillRule rule, Rgb color);
    void add(const QsdRect& bounds, AreaMaker area, Rgb color);

    /// Lays pixels on top; `area` is what they cover and `color` what they look like from afar. Pixels that lie on top
    /// already become one picture with them, unless they are among the first `kept` areas.
    void add(const QsdRect& bounds, Rings area, Rgb color, RasterPicture picture, std::size_t kept);

    [[nodiscard]] Rgb paper() const { return _paper; }
    /// Number of areas so far.
    [[nodiscard]] std::size_t count() const { return _layers.size(); }
    /// Whether the first `end` areas leave `bounds` free.
    [[nodiscard]] bool isBare(const QsdRect& bounds, std::size_t end) const;
    /// Whether there are pixels among the first `end` areas that lie in `bounds`, or areas are not told apart any more.
    [[nodiscard]] bool isIntricate(const QsdRect& bounds, std::size_t end) const;
    /// What the first `end` areas look like in a frame, row by row.
    [[nodiscard]] std::vector<Rgb> pixelsOf(const RasterFrame& frame, std::size_t end);
    /// The parts of an area (non-zero rule) over the first `end` areas, in the order in which to fill them: a later
    /// part may hide some of an earlier one, and hides a little of those beside it, so that no seams show between them.
    /// Neighbours are one part where their colours differ by no more than `colorStep` (of 255).
    [[nodiscard]] std::vector<GroundPart> under(const Rings& area, std::size_t end, double colorStep);
    /// The colour at a point over the first `end` areas.
    [[nodiscard]] Rgb at(QsdPoint point, std::size_t end);

private:
    struct Layer {
        QsdRect bounds;
        Rings area;
        AreaMaker maker; ///< where the area is still to be made
        FillRule rule = FillRule::NonZero;
        bool ready = false; ///< for the non-zero rule and inside the bounds
        Rgb color;
        std::unique_ptr<RasterPicture> picture; ///< null for an area of one colour
    };
    [[nodiscard]] const Rings& areaOf(Layer& layer);
    /// The colour that a layer has at a point; none where it does not cover it.
    [[nodiscard]] std::optional<Rgb> colorOf(Layer& layer, QsdPoint point);
    [[nodiscard]] bool spend(std::size_t work);
    /// A part of `area` that shows a layer at `shown`, and reaches a little under what hides it: `area` without `open`.
    [[nodiscard]] Rings reaching(Rings part, const Rings& shown, const Rings& area, const Rings& open) const;
    /// The first layers from the top that show through `area`, top first, until nothing is left or it would take too
    /// long; then what is left counts as one colour.
    [[nodiscard]] std::vector<GroundPart> visibleLayers(const Rings& area, std::size_t end);
    /// The colour at a point over the first `end` areas, at little expense: past that, a guess by their bounds.
    [[nodiscard]] Rgb topmostColor(QsdPoint point, std::size_t end);

    Rgb _paper;
    double _detail;
    double _overlap;
    std::vector<Layer> _layers;
    std::size_t _points = 0;
    std::size_t _work = 0;
};

} // namespace qsdps
