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

constexpr const char* Red = "#ff0000";
constexpr const char* Blue = "#0000ff";
constexpr const char* Black = "#000000";

TEST(StyleSheets, SelectElements)
{
    for (const char* selector : {"*", "path", ".a", "#p", "path.a.b#p", ".outer path", "g > g > path", ".outer>g>.b",
                                 "[d]", "path[d='M0 0H5']", "[class~=b]", "[d^=M]", "[d$=H5]", "[d*='0 0']", "x, path",
                                 "path:first-child", "svg g path"})
        EXPECT_EQ(colorFrom(std::string(selector) + "{fill:red}"), Red) << selector;
    for (const char* selector : {"rect", ".c", "#q", "#p#q", ".a.c", ".outer > path", "path:hover", "g + path",
                                 "[class=a]", "[x]", "path g", ""})
        EXPECT_EQ(colorFrom(std::string(selector) + "{fill:red}"), Black) << selector;
}

TEST(StyleSheets, WeighRulesAgainstEachOther)
{
    EXPECT_EQ(colorFrom("#p{fill:red} .a.b{fill:blue} path{fill:green}"), Red);
    EXPECT_EQ(colorFrom(".a{fill:blue} .b{fill:red}"), Red);
    EXPECT_EQ(colorFrom(".a{fill:red}", "fill='blue'"), Red);
    EXPECT_EQ(colorFrom(".a{fill:blue}", "style='fill:red'"), Red);
    EXPECT_EQ(colorFrom(".a{fill:red !important}", "style='fill:blue'"), Red);
    EXPECT_EQ(colorFrom(".a{fill:blue !important}", "style='fill:red!important'"), Red);
}

/// The letters of the ids, a to f, that a selector chooses among the children of a group: rect, path, rect, text node,
/// path, rect and, inside the last group, path.
std::string chosenBy(const std::string& selector)
{
    const Recording r =
        draw("<style>" + selector +
             "{stroke:red}</style><g class='list'>"
             "<rect id='a' width='1' height='1'/><path id='b' d='M2 0H3'/>"
             "<rect id='c' class='x' x='3' width='1' height='1'/> and <path id='d' d='M4 0H5'/>"
             "<rect id='e' class='x y' x='5' width='1' height='1'/><g><path id='f' d='M6 0H7'/></g></g>");
    EXPECT_EQ(r.messages, "") << selector;
    std::string chosen;
    const std::string starts[] = {"M0,0", "M2,0", "M3,0", "M4,0", "M5,0", "M6,0"};
    for (const std::string& line : r.canvas.lines) {
        if (!line.starts_with("stroke"))
            continue;
        for (std::size_t i = 0; i < 6; ++i) {
            if (line.find(starts[i]) != std::string::npos)
                chosen.push_back(static_cast<char>('a' + i));
        }
    }
    return chosen;
}

TEST(StyleSheets, CountSiblings)
{
    EXPECT_EQ(chosenBy(".list > :first-child"), "a");
    EXPECT_EQ(chosenBy(".list > path:first-child"), "");
    EXPECT_EQ(chosenBy("g > :last-child"), "f");
    EXPECT_EQ(chosenBy("path:only-child"), "f");
    EXPECT_EQ(chosenBy(".list > :nth-child(odd)"), "ace");
    EXPECT_EQ(chosenBy(".list > :NTH-child( EVEN )"), "bdf");
    EXPECT_EQ(chosenBy(".list > :nth-child(2n)"), "bdf");
    EXPECT_EQ(chosenBy(".list > :nth-child(3)"), "c");
    EXPECT_EQ(chosenBy(".list > :nth-child( 3n + 1 )"), "ad");
    EXPECT_EQ(chosenBy(".list > :nth-child(+3n-2)"), "ad");
    EXPECT_EQ(chosenBy(".list > :nth-child(-n+2)"), "ab");
    EXPECT_EQ(chosenBy(".list > :nth-child(n+4):not(g)"), "de");
    EXPECT_EQ(chosenBy(".list > :nth-child(n)"), "abcdef");
    EXPECT_EQ(chosenBy(".list > :nth-child(0n+0)"), "");
    EXPECT_EQ(chosenBy(".list > :nth-child(-3)"), "");
    EXPECT_EQ(chosenBy(".list > :nth-child(99999999999999999999n+1)"), "a");
    EXPECT_EQ(chosenBy(".list > :nth-last-child(2)"), "e");
    EXPECT_EQ(chosenBy("rect:first-of-type"), "a");
    EXPECT_EQ(chosenBy("rect:last-of-type"), "e");
    EXPECT_EQ(chosenBy("path:only-of-type"), "f");
    EXPECT_EQ(chosenBy(".list > :nth-of-type(2)"), "cd");
    EXPECT_EQ(chosenBy(".list > :nth-last-of-type(2)"), "bc");
}

TEST(StyleSheets, TakeElementsOutAndTogether)
{
    EXPECT_EQ(chosenBy(".list > :not(rect)"), "bdf");
    EXPECT_EQ(chosenBy(".list > :not(rect, #b, g)"), "d");
    EXPECT_EQ(chosenBy("rect:not(.x):not(.y)"), "a");
    EXPECT_EQ(chosenBy("path:not(g g path)"), "bd");
    EXPECT_EQ(chosenBy("rect:not(:not(.x))"), "ce");
    EXPECT_EQ(chosenBy(":is(#a, .y, g g > *)"), "aef");
    EXPECT_EQ(chosenBy(":where(#a, path):not(:first-child)"), "bd");
    EXPECT_EQ(chosenBy(":root > g > path"), "bd");
    EXPECT_EQ(chosenBy("g:root path"), "");
    EXPECT_EQ(chosenBy("path:empty"), "bdf");
    EXPECT_EQ(chosenBy("g:empty"), "");
}

TEST(StyleSheets, LookAtElementsBefore)
{
    EXPECT_EQ(chosenBy("rect + path"), "bd");
    EXPECT_EQ(chosenBy("path~path"), "d");
    EXPECT_EQ(chosenBy("#a ~ rect"), "ce");
    EXPECT_EQ(chosenBy("#c ~ g path"), "f");
    EXPECT_EQ(chosenBy("#c + #b"), "");
    EXPECT_EQ(chosenBy("rect + path + rect ~ g > path"), "f");
    EXPECT_EQ(chosenBy(".x[id = \"e\"], [id='f']"), "ef");
}

TEST(StyleSheets, BacktrackToFindAMatch)
{
    EXPECT_EQ(linesOf("<style>.a > .b .c{fill:red}</style><g class='a'><g class='b'><g><g class='b'>"
                      "<path class='c' d='M0 0H5'/></g></g></g></g>")[0]
                  .substr(5, 7),
              Red);
    EXPECT_EQ(linesOf("<style>.a + .b ~ .c{fill:red}</style><g display='none'/><g class='a'/><g class='b'/><g/>"
                      "<g class='b'/><path class='c' d='M0 0H5'/>")[0]
                  .substr(5, 7),
              Red);
}

TEST(StyleSheets, WeighWhatIsInsideOfNot)
{
    EXPECT_EQ(colorFrom("path:not(#q){fill:red} path.a.b{fill:blue}"), Red);
    EXPECT_EQ(colorFrom("path:not(rect){fill:red} path.a{fill:blue}"), Blue);
    EXPECT_EQ(colorFrom(":is(path, #q){fill:red} .a.b{fill:blue}"), Red);
    EXPECT_EQ(colorFrom(":where(#p){fill:blue} path{fill:red}"), Red);
    EXPECT_EQ(colorFrom("path:first-child{fill:red} path{fill:blue}"), Red);
    std::string classes = "path";
    for (int i = 0; i < 60; ++i)
        classes += ".a";
    EXPECT_EQ(colorFrom("#p{fill:red}" + classes + "{fill:blue}"), Red);
}

/// What the report says of a sheet, without the name and place in front.
std::string toldOf(const std::string& sheet)
{
    const std::string all = draw("<style>" + sheet + "</style><path d='M0 0H5'/>").messages;
    std::string told;
    for (std::size_t at = 0; at < all.size(); at = all.find('\n', at) + 1) {
        const std::size_t text = all.find(": ", at) + 2;
        if (!told.empty())
            told += '|';
        told.append(all, text, all.find('\n', at) - text);
    }
    return told;
}

TEST(StyleSheets, TellWhatTheyDoNotKnow)
{
    EXPECT_EQ(toldOf("path:hover{fill:red} rect:hover{fill:red}"),
              "style sheet rule skipped: selector ':hover' is not known");
    EXPECT_EQ(toldOf("path::before{fill:red}"), "style sheet rule skipped: selector '::before' is not known");
    EXPECT_EQ(toldOf("a:nth-child(2 of b){fill:red}"),
              "style sheet rule skipped: selector ':nth-child(2 of b)' is not known");
    EXPECT_EQ(toldOf("a > > b{fill:red}"), "style sheet rule skipped: selector 'a > > b' is not understood");
    EXPECT_EQ(toldOf("@font-face{font-family:x}"), "style sheet rule skipped: '@font-face' is not known");
    EXPECT_EQ(toldOf("path{ .x{fill:red} }"), "style sheet rule skipped: '.x' stands inside of another rule");
    EXPECT_EQ(toldOf("path{fill:red} @import 'x.css';"), "'@import' skipped: it stands behind other rules");
    EXPECT_EQ(toldOf("@media (min-width: 5px){path{fill:red}}"),
              "style sheet part skipped: media query '(min-width: 5px)' is not known");
    EXPECT_EQ(toldOf(":is(path:hover, rect){fill:red}"),
              "part of :is() or :where() skipped: selector ':hover' is not known");
    EXPECT_EQ(toldOf("@charset 'utf-8'; @namespace url(http://www.w3.org/2000/svg); path{fill:red}"), "");
    EXPECT_EQ(draw("<style type='text/less'>path{fill:red}</style>").messages,
              "in:1: style element skipped: its type is 'text/less'\n");
}

TEST(StyleSheets, DropOnlyTheRuleThatIsBad)
{
    EXPECT_EQ(colorFrom(".a{fill:red} .a:hover{fill:blue} ..{fill:blue} .b:not({fill:blue}"), Red);
    EXPECT_EQ(colorFrom(".a{fill:red} path, .a:hover{fill:blue}"), Red);
    EXPECT_EQ(colorFrom(":is(.a:hover, .b){fill:red}"), Red);
    EXPECT_EQ(colorFrom("path:not(.a:hover, .c){fill:blue} .a{fill:red}"), Red);
    EXPECT_EQ(colorFrom("path[d='}']{fill:blue} path{ .a{fill:blue} & > .b{fill:blue} fill:red } .c{fill:blue}"), Red);
    EXPECT_EQ(colorFrom("@font-face{a:b} @keyframes k{from{fill:blue} to{fill:blue}} .a{fill:red}"), Red);
}

TEST(StyleSheets, PassOverWhatTheyDoNotKnow)
{
    EXPECT_EQ(
        colorFrom("@import url(x.css); @media screen{.a{fill:blue}} /* .a{fill:blue} */ .a{ fill : red ; zap: 1 }"),
        Red);
    EXPECT_EQ(colorFrom("<![CDATA[ .a > .b {fill:blue} .a{fill:red} ]]>"), Red);
    EXPECT_EQ(colorFrom(".a{fill:red"), Red);
    EXPECT_EQ(colorFrom(".a{FILL:red}"), Red);
    EXPECT_EQ(colorFrom("", "style='/* fill:blue; */ fill:red /*;fill:blue*/'"), Red);
}

TEST(StyleSheets, AreForPaper)
{
    for (const char* query :
         {"print", "all", "only print", "PRINT", "screen, print", "not screen", "not screen and (x)",
          "(prefers-color-scheme: light)", "print and (prefers-color-scheme:light)", "not (prefers-color-scheme: dark)",
          "((prefers-color-scheme: dark) or (not (prefers-color-scheme: dark)))", "(min-width: 1px), print", ""}) {
        EXPECT_EQ(colorFrom("@media " + std::string(query) + "{.a{fill:red}} .c{fill:blue}"), Red) << query;
        EXPECT_EQ(draw("<style media='" + std::string(query) + "'>path{fill:red}</style><path d='M0 0H5'/>")
                      .canvas.lines[0]
                      .substr(5, 7),
                  Red)
            << query;
    }
    for (const char* query :
         {"screen", "not print", "not all", "only screen", "speech, screen", "nonsense", "(prefers-color-scheme: dark)",
          "print and (min-width: 1px)", "not (min-width: 1px)", "print and", "(", "print (min-width: 1px)"}) {
        EXPECT_EQ(colorFrom("@media " + std::string(query) + "{.a{fill:blue}}"), Black) << query;
        EXPECT_EQ(draw("<style media='" + std::string(query) + "'>path{fill:red}</style><path d='M0 0H5'/>")
                      .canvas.lines[0]
                      .substr(5, 7),
                  Black)
            << query;
    }
    EXPECT_EQ(colorFrom(".a{fill:blue} @media print{@media all{.a{fill:red}} @media screen{.a{fill:blue}}}"), Red);
    EXPECT_EQ(toldOf("@media screen and (min-width: 5px){path{fill:red}}"), "");
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
    EXPECT_EQ(colorFrom(".a{fill:red}", "fill='nonsense'"), Red);
    EXPECT_EQ(linesOf("<g fill='blue'><path d='M0 0H5' fill='nonsense'/></g>")[0].substr(5, 7), Blue);
}

TEST(Styles, FallBackToWhatIsValid)
{
    EXPECT_EQ(colorFrom("", "style='fill:red;fill:color(display-p3 0 0 1)'"), Red);
    EXPECT_EQ(colorFrom(".a{fill:nonsense}", "fill='red'"), Red);
    EXPECT_EQ(colorFrom(".a{marker-start:nonsense;stop-color:x;font:bad;overflow:bad}", "fill='red'"), Red);
    EXPECT_EQ(linesOf("<rect width='5' height='2' style='width:nonsense'/>"),
              (Lines{"fill #000000 M0,0 L5,0 L5,2 L0,2 Z"}));
    EXPECT_EQ(colorFrom(".a{fill:red} .a{fill:unset}"), Black);
    EXPECT_NE(draw("<rect width='5 5' height='2'/>").messages.find("bad value '5 5' of width ignored"),
              std::string::npos);
}

TEST(Styles, TakeTheLastOfShorthandsAndTheirParts)
{
    const auto sizeOf = [](const std::string& style) {
        return draw("<text style='" + style + "'>x</text>").canvas.chunks.at(0).spans.at(0).font.size;
    };
    EXPECT_EQ(sizeOf("font-size:10px;font:20px serif"), 20);
    EXPECT_EQ(sizeOf("font:20px serif;font-size:10px"), 10);
    EXPECT_EQ(sizeOf("font-size:10px!important;font:20px serif"), 10);
}

TEST(Styles, DecorateOnceAndThroughWhatIsInside)
{
    const auto underlined = [](const std::string& content) {
        return draw("<style>.u{text-decoration:underline}</style>" + content).canvas.chunks.at(0).spans.at(0).underline;
    };
    EXPECT_FALSE(underlined("<text class='u' style='text-decoration:none'>x</text>"));
    EXPECT_TRUE(underlined("<text class='u'><tspan style='text-decoration:none'>x</tspan></text>"));
}

} // namespace
} // namespace qsdps
