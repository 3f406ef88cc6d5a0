// Style sheets, style attributes and inheritance.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

/// The colour that a path of class "a b", id "p", inside g.outer gets from a style sheet.
std::string colorFrom(const std::string& sheet, const std::string& attributes = {})
{
    const Lines lines = linesOf("<style>" + sheet + "</style><g class='outer'><g><path id='p' class='a b' d='M0 0H5' " +
                                attributes + "/></g></g>");
    return lines.size() == 1 ? lines[0].substr(5, 7) : "nothing";
}

constexpr const char* kRed = "#ff0000";
constexpr const char* kBlue = "#0000ff";
constexpr const char* kBlack = "#000000";

TEST(StyleSheets, SelectElements)
{
    for (const char* selector : {"*", "path", ".a", "#p", "path.a.b#p", ".outer path", "g > g > path", ".outer>g>.b",
                                 "[d]", "path[d='M0 0H5']", "[class~=b]", "[d^=M]", "[d$=H5]", "[d*='0 0']", "x, path",
                                 "path:first-child", "svg g path"})
        EXPECT_EQ(colorFrom(std::string(selector) + "{fill:red}"), kRed) << selector;
    for (const char* selector :
         {"rect", ".c", "#q", ".a.c", ".outer > path", "path:hover", "g + path", "[class=a]", "[x]", "path g", ""})
        EXPECT_EQ(colorFrom(std::string(selector) + "{fill:red}"), kBlack) << selector;
}

TEST(StyleSheets, WeighRulesAgainstEachOther)
{
    EXPECT_EQ(colorFrom("#p{fill:red} .a.b{fill:blue} path{fill:green}"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:blue} .b{fill:red}"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:red}", "fill='blue'"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:blue}", "style='fill:red'"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:red !important}", "style='fill:blue'"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:blue !important}", "style='fill:red!important'"), kRed);
}

TEST(StyleSheets, PassOverWhatTheyDoNotKnow)
{
    EXPECT_EQ(
        colorFrom("@import url(x.css); @media print{.a{fill:blue}} /* .a{fill:blue} */ .a{ fill : red ; zap: 1 }"),
        kRed);
    EXPECT_EQ(colorFrom("<![CDATA[ .a > .b {fill:blue} .a{fill:red} ]]>"), kRed);
    EXPECT_EQ(colorFrom(".a{fill:red"), kRed);
}

TEST(Styles, Inherit)
{
    EXPECT_EQ(linesOf("<g fill='red' opacity='0.9'><g><path d='M0 0H5'/></g></g>"),
              (Lines{"fill #ff0000*0.9 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<g stroke='red'><path d='M0 0H5' fill='inherit' stroke='initial'/></g>"),
              (Lines{"fill #000000 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<g color='blue' fill='currentColor'><path d='M0 0H5' color='red'/></g>"),
              (Lines{"fill #ff0000 M0,0 L5,0"}));
    EXPECT_EQ(linesOf("<g style='opacity:.5'><path d='M0 0H5' style='opacity:inherit'/></g>"),
              (Lines{"fill #000000*0.25 M0,0 L5,0"}));
}

TEST(Styles, HideThings)
{
    EXPECT_EQ(linesOf("<g display='none'><path d='M0 0H5'/></g>"), Lines{});
    EXPECT_EQ(linesOf("<g visibility='hidden'><path d='M0 0H5'/><path d='M1 1H5' visibility='visible'/></g>"),
              (Lines{"fill #000000 M1,1 L5,1"}));
    EXPECT_EQ(linesOf("<path d='M0 0H5' opacity='0'/><path d='M0 0H5' fill-opacity='0'/>"), Lines{});
}

TEST(Styles, PlaceShapesFromTheSheet)
{
    EXPECT_EQ(linesOf("<style>rect{width:5px;x:1;transform:translate(10px,0)}</style><rect height='2'/>"),
              (Lines{"fill #000000 M11,0 L16,0 L16,2 L11,2 Z"}));
}

TEST(Styles, KeepTheLastValidValue)
{
    EXPECT_EQ(colorFrom(".a{fill:red}", "fill='nonsense'"), kRed);
    EXPECT_EQ(linesOf("<g fill='blue'><path d='M0 0H5' fill='nonsense'/></g>")[0].substr(5, 7), kBlue);
}

} // namespace
} // namespace qsdps
