// Gradients and patterns.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

const std::string Stops = "<stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/>";

/// The paint that a rectangle 10,20 30x40 gets from the definitions, as its fill "url(#g)" and what follows.
Paint paintFrom(const std::string& definitions, const std::string& fallback = {})
{
    const Recording r =
        draw(definitions + "<rect x='10' y='20' width='30' height='40' fill='url(#g) " + fallback + "'/>");
    return r.canvas.paints.empty() ? Paint{} : r.canvas.paints[0];
}

const Gradient& gradientOf(const Paint& paint)
{
    return *std::get<std::shared_ptr<const Gradient>>(paint.source);
}
const Tile& tileOf(const Paint& paint)
{
    return *std::get<std::shared_ptr<const Tile>>(paint.source);
}

TEST(Gradients, FitTheBoundingBox)
{
    const Paint paint = paintFrom("<linearGradient id='g'>" + Stops + "</linearGradient>");
    const Gradient& gradient = gradientOf(paint);
    EXPECT_EQ(gradient.toUser.map(gradient.start), (Point{10, 20}));
    EXPECT_EQ(gradient.toUser.map(gradient.end), (Point{40, 20}));
    ASSERT_EQ(gradient.stops.size(), 2U);
    EXPECT_EQ(gradient.stops[1].color, (Rgb{0, 0, 255}));
}

TEST(Gradients, TakeWhatTheyLackFromOthers)
{
    const Paint paint = paintFrom("<linearGradient id='a' spreadMethod='reflect' x2='5'>" + Stops +
                                  "</linearGradient><radialGradient id='g' xlink:href='#a' r='25%' "
                                  "gradientUnits='userSpaceOnUse' gradientTransform='translate(1 2)'/>");
    const Gradient& gradient = gradientOf(paint);
    EXPECT_EQ(gradient.kind, Gradient::Kind::Radial);
    EXPECT_EQ(gradient.spread, Spread::Reflect);
    EXPECT_EQ(gradient.end, (Point{50, 50}));
    EXPECT_EQ(gradient.start, (Point{50, 50}));
    EXPECT_DOUBLE_EQ(gradient.endRadius, 25);
    EXPECT_EQ(gradient.toUser, Matrix::translation(1, 2));
}

TEST(Gradients, KeepTheFocusInside)
{
    const Paint paint = paintFrom("<radialGradient id='g' fx='9' gradientUnits='userSpaceOnUse' cx='0' cy='0' fy='0' "
                                  "r='5'>" +
                                  Stops + "</radialGradient>");
    const Gradient& gradient = gradientOf(paint);
    EXPECT_GT(gradient.start.x, 4.9);
    EXPECT_LT(gradient.start.x, 5);
}

TEST(Gradients, NormaliseTheirStops)
{
    const Paint paint =
        paintFrom("<linearGradient id='g'><stop offset='-1'/><stop offset='60%' style='stop-opacity:.5'/>"
                  "<stop offset='.2'/><stop offset='7'/></linearGradient>");
    const auto& stops = gradientOf(paint).stops;
    ASSERT_EQ(stops.size(), 4U);
    EXPECT_EQ(stops[0].offset, 0);
    EXPECT_EQ(stops[1].offset, 0.6);
    EXPECT_EQ(stops[1].opacity, 0.5);
    EXPECT_EQ(stops[2].offset, 0.6);
    EXPECT_EQ(stops[3].offset, 1);
}

TEST(Gradients, ComeDownToAColourOrNothing)
{
    EXPECT_EQ(paintFrom("<linearGradient id='g'/>").source.index(), 0U);
    EXPECT_EQ(std::get<Rgb>(paintFrom("<linearGradient id='g'><stop stop-color='red'/></linearGradient>").source),
              (Rgb{255, 0, 0}));
    EXPECT_EQ(std::get<Rgb>(paintFrom("<linearGradient id='g' x2='0'>" + Stops + "</linearGradient>").source),
              (Rgb{0, 0, 255}));
    EXPECT_EQ(std::get<Rgb>(paintFrom("", "red").source), (Rgb{255, 0, 0}));
    EXPECT_EQ(paintFrom("").source.index(), 0U);
    EXPECT_EQ(
        linesOf("<linearGradient id='g'>" + Stops + "</linearGradient><path d='M0 0H5' fill='none' stroke='url(#g)'/>"),
        Lines{});
}

TEST(Patterns, DrawTheirTile)
{
    const Recording r = draw("<pattern id='g' x='.5' width='.5' height='.25' patternTransform='scale(2)'>"
                             "<path d='M0 0H5'/></pattern><rect x='10' y='20' width='30' height='40' fill='url(#g)'/>");
    ASSERT_EQ(r.canvas.paints.size(), 1U);
    const Tile& tile = tileOf(r.canvas.paints[0]);
    EXPECT_EQ(tile.cell, (Box{25, 20, 15, 10}));
    EXPECT_EQ(tile.toUser, Matrix::scaling(2, 2));
}

/// Draws the tile while its drawing is still being drawn.
class TileCanvas : public RecordingCanvas {
public:
    RecordingCanvas inside;

    void fill(const Path&, FillRule, const Paint& paint, const Matrix&) override
    {
        tileOf(paint).draw(inside, Matrix::translation(100, 0));
    }
};

Lines tileLines(const std::string& content)
{
    const auto drawing = SvgDrawing::load("<svg width='9' height='9'>" + content + "</svg>", {});
    TileCanvas canvas;
    Report report;
    (*drawing)->draw(canvas, report);
    return canvas.inside.lines;
}

TEST(Patterns, PlaceTheirContent)
{
    EXPECT_EQ(tileLines("<pattern id='g' x='1' y='2' width='4' height='4' patternUnits='userSpaceOnUse' "
                        "viewBox='0 0 2 2'><path d='M0 0H2'/></pattern><rect width='9' height='9' fill='url(#g)'/>"),
              (Lines{"clip M101,2 L105,2 L105,6 L101,6 Z", "fill #000000 M101,2 L105,2", "popClip"}));
    EXPECT_EQ(tileLines("<pattern id='g' overflow='visible' width='1' height='1' "
                        "patternContentUnits='objectBoundingBox'><path d='M0 0H.5'/></pattern>"
                        "<rect x='1' width='8' height='9' fill='url(#g)'/>"),
              (Lines{"fill #000000 M101,0 L105,0"}));
}

TEST(Patterns, NeedACell)
{
    EXPECT_EQ(paintFrom("<pattern id='g' width='0' height='5'><path d='M0 0H5'/></pattern>").source.index(), 0U);
    EXPECT_EQ(paintFrom("<pattern id='g' width='5' height='5'/>").source.index(), 0U);
}

} // namespace
} // namespace qsdps
