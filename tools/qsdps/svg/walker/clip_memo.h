// Clips that are made once for all that refer to them from one place.
#pragma once

#include "drawing/canvas.h"
#include "svg/xml/document.h"
#include "values/length.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace qsdps::svg {

/// What cuts one object: its clip, and the clips that those inside refer to. Clips may refer to others several times
/// each, so without it their number could double with every level.
class ClipMemo {
public:
    using Clip = std::shared_ptr<const ClipPath>;

    /// All that a clip depends on.
    struct Place {
        pugi::xml_node node; ///< the clipPath
        Matrix toPage;
        Size viewport;
        std::optional<Box> box; ///< of the object that is cut, where the clip is fitted to it

        bool operator==(const Place&) const = default;
    };

    /// No more than this many clips cut one object.
    static constexpr std::size_t MostClips = 1000;

    /// How many clips were begun.
    [[nodiscard]] std::size_t count() const { return _count; }
    /// Counts one more clip; false when there are as many as may be.
    [[nodiscard]] bool begin() { return ++_count <= MostClips; }
    /// The clip that was made for a place; null when there is none.
    [[nodiscard]] const Clip* find(const Place& place) const
    {
        const auto known =
            std::find_if(_made.begin(), _made.end(), [&](const auto& made) { return made.first == place; });
        return known == _made.end() ? nullptr : &known->second;
    }
    void add(const Place& place, Clip clip) { _made.emplace_back(place, std::move(clip)); }

private:
    std::size_t _count = 0;
    std::vector<std::pair<Place, Clip>> _made;
};

} // namespace qsdps::svg
