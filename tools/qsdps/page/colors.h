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

/// A colour that lets what is under it shine through.
struct Ink {
    Rgb color;
    double alpha = 1; ///< 0 to 1

    [[nodiscard]] bool isOpaque() const { return alpha > 1 - LeastAlpha; }
    [[nodiscard]] bool isInvisible() const { return !(alpha > LeastAlpha); }

private:
    static constexpr double LeastAlpha = 1.0 / 512; ///< less makes no difference in 8 bits
};

/// What a paint amounts to when it has to be one colour. None when nothing is to be seen. What that only approximates,
/// or cannot do, is counted in `report`.
[[nodiscard]] std::optional<Ink> inkOf(const Paint& paint, Report& report);
/// How far two colours are apart where they differ most, 0 to 255.
[[nodiscard]] int differenceOf(Rgb a, Rgb b);
/// `ink` with its own and another `opacity`, laid on `ground`.
[[nodiscard]] Rgb blend(const Ink& ink, double opacity, Rgb ground);

} // namespace qsdps
