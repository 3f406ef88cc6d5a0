// The colours that pixels of few bits stand for.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdBitmapData.h"

#include <cstdint>
#include <vector>

/// Up to 256 colours, known by their index.
class QSD_API QsdColorTable {
public:
    QsdColorTable() = default;
    /// Keeps the first 256 of `colors`.
    explicit QsdColorTable(std::vector<QsdRGB> colors);

    /// Black and white, for one-bit screens: 0 is white and 1 is black.
    [[nodiscard]] static QsdColorTable BlackAndWhite();
    /// A cube of six levels a component and a ramp of forty greys.
    [[nodiscard]] static QsdColorTable Cube();

    /// Number of colours.
    [[nodiscard]] std::size_t size() const { return _colors.size(); }
    /// The colour of an index; black beyond the table.
    [[nodiscard]] QsdRGB color(std::size_t index) const { return index < _colors.size() ? _colors[index] : QsdRGB{}; }
    /// The index of the entry nearest to `color`, the first of several; 0 for an empty table.
    [[nodiscard]] std::uint8_t nearest(QsdRGB color) const;

private:
    std::vector<QsdRGB> _colors;
};
