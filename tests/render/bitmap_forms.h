// The ways to draw a bitmap, each with what it is to look like.
#pragma once

#include "bitmap_sources.h"
#include "toolkit/geometry/QsdTransformer.h"
#include "toolkit/graphics/QsdPosition.h"

#include <string>
#include <vector>

struct Form;

/// What forms are drawn with.
struct Stage {
    QsdPort& port;
    QsdDisplay& display;
    const SourcePixels& pixels;
    QsdPalette& palette;
    QsdPoint origin; ///< the corner of the form's cell
};

/// A map of whole numbers: (x, y) goes to (x11 * x + x12 * y, x21 * x + x22 * y).
struct Matrix {
    int x11 = 1;
    int x12 = 0;
    int x21 = 0;
    int x22 = 1;
};

/// One way to draw a bitmap. Places are counted from the corner of the form's cell.
struct Form {
    std::string name;
    void (*draw)(const Stage&, const Form&);
    Source source;
    bool transparent = false;
    /// The part of the source that is drawn.
    QsdRect from = {0, 0, SourcePixels::Width, SourcePixels::Height};
    /// Where the corner of that part comes to, and how the rest lies to it.
    QsdPoint at = {10, 10};
    Matrix matrix{};
    /// What the call is given for the matrix.
    QsdTransformer transformer{};
    /// For forms that place a bitmap in a rectangle by a position; it limits what is seen.
    QsdRect dest{};
    QsdPosition position = QsdPositionNone;
    /// The clip of the palette and the one given with the call; none: no clip.
    std::vector<QsdRect> paletteClip{};
    std::vector<QsdRect> clip{};
    /// A known difference: how many rows of the bitmap what is painted from a colour bitmap lies too low.
    int rowsLow = 0;
    /// A known difference: nothing comes of a colour bitmap.
    bool leavesOut = false;
};

/// Side of the cells.
inline constexpr int CellSide = 128;
/// Cells in a row of the page.
inline constexpr int CellColumns = 10;

/// Every form, in the order of the cells.
[[nodiscard]] std::vector<Form> bitmapForms();
