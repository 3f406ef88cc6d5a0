// What a shape is filled or stroked with.
#pragma once

#include "drawing/geometry.h"
#include "values/rgb.h"

#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace qsdps {

class Canvas;

enum class FillRule : unsigned char { NonZero, EvenOdd };

struct GradientStop {
    double offset = 0; ///< 0 to 1, never falling from one stop to the next
    Rgb color;
    double opacity = 1; ///< 0 to 1
};

enum class Spread : unsigned char { Pad, Reflect, Repeat };

/// A linear or radial gradient whose units and transformation are already resolved.
struct Gradient {
    enum class Kind : unsigned char { Linear, Radial };
    Kind kind = Kind::Linear;
    Point start;            ///< linear: where offset 0 lies; radial: the focal point
    Point end;              ///< linear: where offset 1 lies; radial: the centre of the end circle
    double startRadius = 0; ///< radial: radius of the focal circle
    double endRadius = 0;   ///< radial: radius of the end circle
    Spread spread = Spread::Pad;
    Matrix toUser;                   ///< gradient space to the user space of the painted shape
    std::vector<GradientStop> stops; ///< at least two
};

/// A tile of drawn content that repeats over the plane.
struct Tile {
    Box cell;      ///< one tile in pattern space; width and height above 0
    Matrix toUser; ///< pattern space to the user space of the painted shape
    /// Draws the content of one cell on a canvas, under the given map from pattern space; the canvas may repeat it.
    /// May be called as long as the drawing that made the tile is being drawn.
    std::function<void(Canvas&, const Matrix&)> draw;
};

/// A resolved paint: nothing, one colour, a gradient or a tile; opacity (0 to 1) applies to all of them.
struct Paint {
    std::variant<std::monostate, Rgb, std::shared_ptr<const Gradient>, std::shared_ptr<const Tile>> source;
    double opacity = 1;

    [[nodiscard]] bool none() const { return source.index() == 0 || opacity <= 0; }
};

enum class LineCap : unsigned char { Butt, Round, Square };
enum class LineJoin : unsigned char { Miter, Round, Bevel };

struct StrokeStyle {
    double width = 1; ///< user units, above 0
    LineCap cap = LineCap::Butt;
    LineJoin join = LineJoin::Miter;
    double miterLimit = 4;
    std::vector<double> dashes; ///< user units; empty: solid; an even number of entries, their sum above 0
    double dashOffset = 0;
    bool nonScaling = false; ///< the width is in page units (CSS pixels of the drawing), not user units
};

} // namespace qsdps
