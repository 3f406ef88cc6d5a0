// Colours of drawings as colours of the toolkit.
#pragma once

#include "drawing/paint.h"
#include "drawing/report.h"
#include "toolkit/graphics/QsdColor.h"

#include <optional>
#include <unordered_map>

namespace qsdps {

/// One toolkit colour for each colour used, so that the port sees the same object again and writes nothing twice.
class ColorTable {
public:
    /// The toolkit's colour, owned by the table.
    [[nodiscard]] const QsdColor* get(Rgb color);

private:
    static constexpr std::size_t MostColors = 4096;

    std::unordered_map<std::uint32_t, QsdHandle<const QsdColor>> _colors;
};

/// What a paint amounts to when it has to be one colour on white paper: `opacity` and the paint's own let the paper
/// shine through. None when nothing is to be seen. What that only approximates, or cannot do, is counted in `report`.
[[nodiscard]] std::optional<Rgb> flatColor(const Paint& paint, double opacity, Report& report);

} // namespace qsdps
