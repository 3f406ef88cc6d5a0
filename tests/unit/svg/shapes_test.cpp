// Shapes, strokes and markers.
#include "drawing/report.h"
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

TEST(Shapes, BecomeOutlines)
{
    EXPECT_EQ(linesOf("<rect x='1' y='2' width='3' height='4'/>"), (Lines{"fill #000000 M1,2 L4,2 L4,6 L1,6 Z"}));
    EXPECT_EQ(linesOf("<polygon points='0,0 5,0 5,5 9'/>"), (Lines{"fill #000000 M0,0 L5,0 L5,5 Z"}));
    EXPECT_EQ(linesOf("<polyline points='0,0 5,0' fill='none' stroke='red'/>"), (Lines{"stroke #ff0000 1 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<line x2='5' stroke='red'/>"), (Lines{"stroke #ff0000 1 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<circle r='0'/><rect width='-1' height='5'/><ellipse rx='1' ry='0'/><path/>"), Lines{});
}

TEST(Shapes, ReportWhatIsWrong)
{
    EXPECT_EQ(draw("\n<path d='M0 0 L5 5 L x'/>").messages, "in:2: path drawn up to a fault in its data\n");
    EXPECT_EQ(draw("<rect fill='blurple' width='1' height='1'/>").messages,
              "in:1: bad value 'blurple' of fill ignored\n");
}

TEST(Shapes, FoldOpacityIntoASinglePaint)
{
    EXPECT_EQ(linesOf("<g opacity='.5'><rect width='1' height='1' opacity='.5'/></g>"),
              (Lines{"fill #000000*0.25 M0,0 L1,0 L1,1 L0,1 Z"}));
    EXPECT_EQ(linesOf("<rect width='1' height='1' opacity='.5' stroke='red'/>"),
              (Lines{"group 0.5", "fill #000000 M0,0 L1,0 L1,1 L0,1 Z", "stroke #ff0000 1 M0,0 L1,0 L1,1 L0,1 Z",
                     "endGroup"}));
}

TEST(Shapes, PaintInTheOrderAskedFor)
{
    const Lines lines = linesOf("<rect width='1' height='1' stroke='red' paint-order='stroke'/>");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].starts_with("stroke"));
    EXPECT_TRUE(lines[1].starts_with("fill"));
}

TEST(Strokes, CarryTheirStyle)
{
    const Recording r = draw("<path d='M0 0H10' stroke='red' stroke-width='10%' stroke-linecap='round' "
                             "stroke-linejoin='bevel' stroke-miterlimit='7' stroke-dasharray='1 2 3' "
                             "stroke-dashoffset='4' vector-effect='non-scaling-stroke' fill='none'/>");
    ASSERT_EQ(r.canvas.strokes.size(), 1U);
    const StrokeStyle& style = r.canvas.strokes[0];
    EXPECT_DOUBLE_EQ(style.width, 10);
    EXPECT_EQ(style.cap, LineCap::Round);
    EXPECT_EQ(style.join, LineJoin::Bevel);
    EXPECT_EQ(style.miterLimit, 7);
    EXPECT_EQ(style.dashes, (std::vector<double>{1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(style.dashOffset, 4);
    EXPECT_TRUE(style.nonScaling);
}

TEST(Strokes, MeasureDashesByPathLength)
{
    const Recording r = draw("<path d='M0 0H10' pathLength='1' stroke='red' stroke-dasharray='.1' fill='none'/>");
    ASSERT_EQ(r.canvas.strokes.size(), 1U);
    EXPECT_EQ(r.canvas.strokes[0].dashes, (std::vector<double>{1, 1}));
}

TEST(Strokes, IgnoreImpossibleDashes)
{
    const auto lineOf = [](const std::string& dashes) {
        return draw("<path d='M0 0H10' stroke='red' stroke-dasharray='" + dashes + "'/>");
    };
    std::string endless;
    for (int i = 0; i < 10000; ++i)
        endless += "1 ";
    for (const std::string& dashes : {std::string("-1 2"), std::string("3 -1%"), std::string("1 x"), endless}) {
        const Recording r = lineOf(dashes);
        ASSERT_EQ(r.canvas.strokes.size(), 1U);
        EXPECT_TRUE(r.canvas.strokes[0].dashes.empty()) << dashes;
        EXPECT_EQ(r.messages, "in:1: " + badValue(dashes, "stroke-dasharray") + "\n");
    }
    for (const char* solid : {"0 0", "none", "0"}) {
        const Recording r = lineOf(solid);
        ASSERT_EQ(r.canvas.strokes.size(), 1U);
        EXPECT_TRUE(r.canvas.strokes[0].dashes.empty()) << solid;
        EXPECT_EQ(r.messages, "") << solid;
    }
}

TEST(Markers, StandOnTheVertices)
{
    const Lines lines = linesOf("<marker id='m' orient='auto' overflow='visible' refX='1' markerUnits='userSpaceOnUse'>"
                                "<path d='M0 0H1'/></marker>"
                                "<path d='M0 0H10V10' fill='none' marker-start='url(#m)' marker-mid='url(#m)' "
                                "marker-end='url(#m)'/>");
    EXPECT_EQ(lines,
              (Lines{"fill #000000 M-1,0 L0,0", "fill #000000 M9.293,-0.707 L10,0", "fill #000000 M10,9 L10,10"}));
}

TEST(Markers, ScaleWithTheStrokeAndAreCut)
{
    const Lines lines = linesOf("<marker id='m' viewBox='0 0 10 10' markerWidth='5' markerHeight='5'>"
                                "<path d='M0 0H10' fill='context-stroke'/></marker>"
                                "<line x2='10' stroke='red' stroke-width='2' marker-end='url(#m)'/>");
    EXPECT_EQ(lines, (Lines{"stroke #ff0000 2 M0,0 L10,0", "clip M10,0 L20,0 L20,10 L10,10 Z",
                            "fill #ff0000 M10,0 L20,0", "popClip"}));
}

} // namespace
} // namespace qsdps
