// var() and calc() in the values of properties.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

/// How a path is filled that has a style sheet and, around it, a group.
std::string filled(const std::string& sheet, const std::string& attributes = {}, const std::string& group = {})
{
    const Lines lines =
        linesOf("<style>" + sheet + "</style><g " + group + "><path class='a' d='M0 0H5' " + attributes + "/></g>");
    return lines.size() == 1 ? lines[0].substr(5, 7) : "nothing";
}

constexpr const char* Red = "#ff0000";
constexpr const char* Blue = "#0000ff";
constexpr const char* Black = "#000000";

TEST(Variables, AreInherited)
{
    EXPECT_EQ(filled(":root{--c:red} .a{fill:var(--c)}"), Red);
    EXPECT_EQ(filled(":root{--c:blue} .a{fill:var( --c )} g{--c:red}"), Red);
    EXPECT_EQ(filled(":root{--c:red}", "fill='var(--c)'"), Red);
    EXPECT_EQ(filled(":root{--c:blue}", "style='--c:red; fill:VAR(--c)'"), Red);
    // The value is worked out where it is declared.
    EXPECT_EQ(filled(":root{--x:red; --c:var(--x)} .a{--x:blue; fill:var(--c)}"), Red);
    EXPECT_EQ(filled(":root{--C:blue;--c:red} .a{fill:var(--c)}"), Red);
    EXPECT_EQ(filled(":root{--c:red} g{--c:inherit} .a{--c:unset;fill:var(--c)}"), Red);
}

TEST(Variables, WeighAsOtherPropertiesDo)
{
    EXPECT_EQ(filled(".a{--c:red!important} path{--c:blue} .a{fill:var(--c)}", "style='--c:blue'"), Red);
    EXPECT_EQ(filled("path{--c:blue;fill:var(--c)} .a{--c:red}"), Red);
    EXPECT_EQ(filled(".a{--c:red} @media screen{.a{--c:blue}} .a{fill:var(--c)}"), Red);
}

TEST(Variables, HaveFallbacks)
{
    EXPECT_EQ(filled(".a{fill:var(--none, red)}"), Red);
    EXPECT_EQ(filled(".a{fill:var(--none, var(--other, var(--more,red)))}"), Red);
    EXPECT_EQ(filled(".a{fill:var(--none, rgb(255, 0, 0))}"), Red);
    EXPECT_EQ(filled(":root{--r:255, 0} .a{fill:rgb(var(--r), 0)}"), Red);
    EXPECT_EQ(filled(":root{--c:red} .a{fill:var(--c, blue)}"), Red);
    EXPECT_EQ(filled(":root{--c:blue} g{--c:initial} .a{fill:var(--c, red)}"), Red);
}

TEST(Variables, WithoutAValueLeaveThePropertyAsIfNotGiven)
{
    // No weaker value comes in: whether there is a variable shows too late for that.
    EXPECT_EQ(filled(".a{fill:var(--none)}", "fill='blue'", "fill='red'"), Red);
    EXPECT_EQ(filled(":root{--c:nonsense} .a{fill:var(--c)}", "fill='blue'", "fill='red'"), Red);
    EXPECT_EQ(filled(".a{fill:var(--none)}"), Black);
    EXPECT_EQ(linesOf("<g opacity='.5'><path d='M0 0H5' style='opacity:var(--none)'/></g>"),
              (Lines{"fill #000000*0.5 M0,0 L5,0"}));
    EXPECT_EQ(draw("<path d='M0 0H5' style='fill:var(--none)'/>").messages,
              "in:1: fill left as if not given: variable '--none' has no value\n");
    EXPECT_NE(draw("<path d='M0 0H5' style='--c:x;fill:var(--c)'/>").messages.find("of fill ignored"),
              std::string::npos);
    EXPECT_NE(draw("<path d='M0 0H5' style='fill:var(c)'/>").messages.find("var('c') is not understood"),
              std::string::npos);
}

TEST(Variables, InCirclesHaveNoValue)
{
    EXPECT_EQ(filled(".a{--c:var(--c);fill:var(--c,red)}"), Red);
    EXPECT_EQ(filled(".a{--b:var(--c,blue);--c:var(--b,blue);fill:var(--b,red)}"), Red);
    EXPECT_EQ(filled(".a{--a:var(--b);--b:var(--c);--c:var(--b);fill:var(--a,red)}"), Red);
    // What only leads to a circle has its fallback.
    EXPECT_EQ(filled(".a{--a:var(--b,red);--b:var(--c);--c:var(--b);fill:var(--a,blue)}"), Red);
    EXPECT_EQ(filled("g{--c:blue} .a{--c:var(--c);fill:var(--c,red)}"), Red);
}

TEST(Variables, MayHoldAnything)
{
    EXPECT_EQ(filled(".a{--c:{x:y;fill:blue}; fill:red}"), Red);
    EXPECT_EQ(filled(".a{--c:;--d:red var(--c);fill:var(--d)}"), Red);
    EXPECT_EQ(filled(".a{--c:\"var(--x)\";fill:red}"), Red);
    EXPECT_EQ(linesOf("<style>:root{--t:translate(3px,4px);--w:2px}</style>"
                      "<rect width='var(--w)' height='2' style='transform:var(--t)'/>"),
              (Lines{"fill #000000 M3,4 L5,4 L5,6 L3,6 Z"}));
}

/// The box of a rect in a drawing of 100 by 100, as the canvas has it.
std::string box(const std::string& attributes)
{
    const Lines lines = linesOf("<rect " + attributes + "/>");
    return lines.size() == 1 ? lines[0].substr(13) : "nothing";
}

TEST(Calc, PlacesShapes)
{
    const std::string expected = "M1,2 L5,2 L5,8 L1,8 Z";
    EXPECT_EQ(box("style='x:calc(2px / 2);y:calc(1% + 1px);width:calc(2*(1px + 1px));height:calc(10% - 4px)'"),
              expected);
    EXPECT_EQ(box("x='calc(2px / 2)' y='calc(1% + 1px)' width='calc(2*(1px + 1px))' height='calc(10% - 4px)'"),
              expected);
    EXPECT_EQ(box("style='--a:2px;x:1;y:var(--a);width:calc(var(--a) * 2);height:calc(3 * var(--a))'"), expected);
    EXPECT_EQ(linesOf("<circle r='calc(10% - 5px)' cx='calc(1em + 50%)'/><circle r='5' cx='66'/>")[0],
              linesOf("<circle r='5' cx='66'/>")[0]);
    EXPECT_EQ(linesOf("<line x2='calc(10% - 5px)' stroke='red'/>"), (Lines{"stroke #ff0000 1 M0,0 L5,0"}));
}

TEST(Calc, WorksInEveryProperty)
{
    EXPECT_EQ(filled(".a{fill:rgb(calc(250 + 5), calc(0%), 0)}"), Red);
    EXPECT_EQ(linesOf("<path d='M0 0H5' opacity='calc(1 / 4)' style='transform:translate(calc(2px * 2), 0)'/>"),
              (Lines{"fill #000000*0.25 M4,0 L9,0"}));
    EXPECT_EQ(linesOf("<path d='M0 0H5' style='transform:rotate(calc(1turn / 4))'/>"),
              (Lines{"fill #000000 M0,0 L0,5"}));
    const Recording r =
        draw("<g font-size='10'><text style='font-size:calc(100% + 1em + 5px);letter-spacing:calc(1em + "
             "1px);font-weight:calc(300 * 2)' dx='calc(1px + 1%)' stroke='red' "
             "stroke-width='calc(1px + 2%)' stroke-dasharray='calc(1px + 1%) calc(3px)' "
             "stroke-dashoffset='calc(1% + 1px)'>x</text></g>");
    const TextSpan& span = r.canvas.chunks.at(0).spans.at(0);
    EXPECT_EQ(span.font.size, 25);
    EXPECT_EQ(span.font.weight, 600);
    EXPECT_EQ(span.letterSpacing, 26);
    EXPECT_EQ(span.strokeStyle.width, 3);
    EXPECT_EQ(span.strokeStyle.dashes, (std::vector<double>{2, 3}));
    EXPECT_EQ(span.strokeStyle.dashOffset, 2);
    EXPECT_EQ(r.messages, "");
    EXPECT_EQ(draw("<text baseline-shift='calc(50% + 1px)' font-size='10'><tspan baseline-shift='calc(50% + 1px)'>x"
                   "</tspan></text>")
                  .canvas.chunks.at(0)
                  .spans.at(0)
                  .baselineShift,
              6);
    EXPECT_EQ(
        draw("<path id='p' d='M0 0H40'/><text><textPath href='#p' startOffset='calc(25% + 1px)'>a</textPath></text>")
            .canvas.chunks.at(0)
            .startOffset,
        11);
    EXPECT_EQ(draw("<text style='font:bold calc(1em / 2 + 2px)/calc(1 + 1) serif'>x</text>")
                  .canvas.chunks.at(0)
                  .spans.at(0)
                  .font.size,
              10);
    EXPECT_EQ(drawFile("<svg width='calc(1in + 4px)' height='calc(2 * 5px)'/>").width, 100);
    EXPECT_EQ(drawFile("<svg width='calc(1in + 4px)' height='calc(2 * 5px)'/>").height, 10);
}

TEST(Calc, BelowZeroCountsAsZero)
{
    EXPECT_EQ(linesOf("<g stroke='red'><path d='M0 0H5' style='stroke-width:calc(1px - 2px)'/></g>"),
              (Lines{"fill #000000 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<g stroke='red'><path d='M0 0H5' style='stroke-width:calc(1px - 50%)'/></g>"),
              (Lines{"fill #000000 M0,0 L5,0"}));
    EXPECT_EQ(box("x='calc(1px - 2px)' width='3' height='4' rx='calc(1px - 2px)' ry='2'"), "M-1,0 L2,0 L2,4 L-1,4 Z");
    EXPECT_EQ(box("width='3' height='4' rx='calc(1px - 2%)' ry='2'"), "M0,0 L3,0 L3,4 L0,4 Z");
    EXPECT_EQ(linesOf("<path d='M0 0H5' opacity='calc(-1)'/>"), Lines{});
}

TEST(Calc, ThatIsFaultyIsTold)
{
    const Recording r = draw("<rect width='5' height='5' style='width:calc(5px + 1);fill:red'/>");
    EXPECT_EQ(r.canvas.lines, (Lines{"fill #ff0000 M0,0 L5,0 L5,5 L0,5 Z"}));
    EXPECT_EQ(r.messages, "in:1: bad value 'calc(5px + 1)' of width ignored\n");
}

} // namespace
} // namespace qsdps
