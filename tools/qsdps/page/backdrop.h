// What is behind a translucent object: the page as it shows now, and as it was when the groups around it began.
#pragma once

#include "page/colors.h"
#include "page/ground.h"
#include "page/rings.h"

#include <array>
#include <cstddef>
#include <vector>

namespace qsdps {

/// What is behind an object at one place.
struct Backdrop {
    Rgb below;                     ///< what the page shows there
    std::array<float, 3> around{}; ///< what shows through the groups: its colour times what they let through
};

/// A part of an area and what is behind it; the area is for the non-zero rule.
struct BackdropPart {
    Rings area;
    Backdrop backdrop;
};

/// The translucent groups under way. The content of a group is composed by itself and laid on the page as it was when
/// the group began: so an opaque object hides the rest of its group and still lets that page shine through.
class GroupStack {
public:
    /// Begins a group of its own `opacity` (below 1) on the first `groundEnd` areas of the ground.
    void begin(double opacity, std::size_t groundEnd);
    /// Ends the group begun last; nothing without one.
    void end();
    [[nodiscard]] bool empty() const { return _groups.empty(); }
    /// The opacity of all groups together.
    [[nodiscard]] double opacity() const;
    /// How many areas of the ground are from before the innermost group.
    [[nodiscard]] std::size_t start() const { return _groups.empty() ? 0 : _groups.back().groundEnd; }
    /// Whether an ink hides all that is behind it, groups included.
    [[nodiscard]] bool isOpaque(const Ink& ink) const;
    /// How many of the first `groundEnd` areas shine through an ink: opaque objects hide those of their own group.
    [[nodiscard]] std::size_t endFor(const Ink& ink, std::size_t groundEnd) const;

    /// The parts of an area (non-zero rule) with different backdrops of the first `groundEnd` areas, in the order in
    /// which to fill them, as from Ground::under. Neighbours whose colours differ too little to show through `ink` are
    /// one part; parts that show through paint of several inks are asked for with the most translucent of them.
    [[nodiscard]] std::vector<BackdropPart> under(Ground& ground, const Rings& area, const Ink& ink,
                                                  std::size_t groundEnd) const;
    /// The backdrop at a point.
    [[nodiscard]] Backdrop at(Ground& ground, QsdPoint point, std::size_t groundEnd) const;
    /// The backdrops of the pixels of a frame, row by row.
    [[nodiscard]] std::vector<Backdrop> pixelsOf(Ground& ground, const RasterFrame& frame, std::size_t groundEnd) const;
    /// The colour that an ink has on the page in these groups.
    [[nodiscard]] Rgb shown(const Ink& ink, const Backdrop& backdrop) const;

private:
    struct Group {
        double opacity;
        std::size_t groundEnd;
        double showing; ///< how much of the page at its beginning shows through it and the groups inside it
    };
    void weigh();

    std::vector<Group> _groups;
};

} // namespace qsdps
