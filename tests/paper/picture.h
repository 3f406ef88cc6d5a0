// Pages as pixels, and how much two of them differ.
#pragma once

#include "toolkit/geometry/QsdRect.h"
#include "toolkit/graphics/QsdBitmapData.h"
#include "toolkit/port/QsdSystemPort.h"

#include <cstddef>
#include <vector>

/// The colours of a page's pixels, row by row.
class Picture {
public:
    Picture(int width, int height, std::vector<QsdRGB> pixels);
    /// The pixels of a whole drawable of direct colours.
    explicit Picture(const QsdSystemPort& port);

    [[nodiscard]] int width() const { return _width; }
    [[nodiscard]] int height() const { return _height; }
    [[nodiscard]] bool contains(int x, int y) const { return x >= 0 && y >= 0 && x < _width && y < _height; }
    /// The pixel at (x, y), which must be inside.
    [[nodiscard]] QsdRGB at(int x, int y) const { return _pixels[index(x, y)]; }

    /// The box of all pixels of other colours than that of the paper; empty when there are none.
    [[nodiscard]] QsdRect extent(QsdRGB paper) const;
    /// How many pixels have a neighbour above, below or beside them of another colour.
    [[nodiscard]] std::size_t outline() const;
    /// How many pixels have no equal one in `other`, of the same size, within `distance` columns and rows. Those so
    /// near the edge that it could lie beyond do not count.
    [[nodiscard]] std::size_t strays(const Picture& other, int distance) const;

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    [[nodiscard]] std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) + static_cast<std::size_t>(x);
    }
    /// Whether a pixel around (x, y) has the colour; all of them must be inside.
    [[nodiscard]] bool hasNear(int x, int y, QsdRGB color, int distance) const;

    int _width;
    int _height;
    std::vector<QsdRGB> _pixels;
};

/// How much two pictures of the same size differ.
struct Difference {
    std::size_t strays;    ///< pixels of either one without an equal one nearby in the other
    std::size_t differing; ///< pixels that differ in place
    std::size_t outline;   ///< of the first
};

/// Compares with pixels up to `distance` columns and rows away.
[[nodiscard]] Difference difference(const Picture& screen, const Picture& page, int distance);
