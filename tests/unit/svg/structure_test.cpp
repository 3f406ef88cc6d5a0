// Groups, uses, nested viewports and choices.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

TEST(Groups, AreComposedOnlyWhereTheyMust)
{
    EXPECT_EQ(linesOf("<g opacity='.5'><path d='M0 0H1'/><path d='M0 0H2'/></g>"),
              (Lines{"group 0.5", "fill #000000 M0,0 L1,0", "fill #000000 M0,0 L2,0", "endGroup"}));
    EXPECT_EQ(linesOf("<g opacity='.5'><title>t</title><g><path d='M0 0H1'/></g></g>"),
              (Lines{"fill #000000*0.5 M0,0 L1,0"}));
}

TEST(Groups, TransformTheirContent)
{
    EXPECT_EQ(linesOf("<g transform='translate(10 0)'><path d='M0 0H1' transform='scale(2)'/></g>"),
              (Lines{"fill #000000 M10,0 L12,0"}));
    EXPECT_EQ(linesOf("<g transform='scale(0)'><path d='M0 0H1'/></g>"), Lines{});
}

TEST(Uses, DrawWhatTheyReferTo)
{
    EXPECT_EQ(linesOf("<defs><path id='p' d='M0 0H1'/></defs><use href='#p' x='5' fill='red' "
                      "transform='scale(2)'/><use xlink:href='#p' y='1'/>"),
              (Lines{"fill #ff0000 M10,0 L12,0", "fill #000000 M0,1 L1,1"}));
    EXPECT_EQ(draw("<use href='#none'/>").messages, "in:1: use element left out: it refers to nothing in this file\n");
}

TEST(Uses, MoveWhatCutsThem)
{
    EXPECT_EQ(linesOf("<clipPath id='c'><path d='M0 0H5'/></clipPath><defs><path id='p' d='M0 0H9'/></defs>"
                      "<use href='#p' x='40' y='2' clip-path='url(#c)'/>"),
              (Lines{"clip M40,2 L45,2", "fill #000000 M40,2 L49,2", "popClip"}));
}

TEST(Uses, GiveSymbolsAViewport)
{
    EXPECT_EQ(linesOf("<symbol id='s' viewBox='0 0 10 10'><path d='M0 0H10'/></symbol>"
                      "<use href='#s' x='20' width='20' height='20'/>"),
              (Lines{"clip M20,0 L40,0 L40,20 L20,20 Z", "fill #000000 M20,0 L40,0", "popClip"}));
    EXPECT_EQ(linesOf("<symbol id='s' overflow='visible'><path d='M0 0H10'/></symbol><use href='#s'/>"),
              (Lines{"fill #000000 M0,0 L10,0"}));
}

TEST(Viewports, NestWithTheirOwnPercentages)
{
    EXPECT_EQ(linesOf("<svg x='10' y='10' width='50%' height='40'><rect width='50%' height='50%'/></svg>"),
              (Lines{"clip M10,10 L60,10 L60,50 L10,50 Z", "fill #000000 M10,10 L35,10 L35,30 L10,30 Z", "popClip"}));
    EXPECT_EQ(linesOf("<svg width='0'><rect width='5' height='5'/></svg>"), Lines{});
}

TEST(Switches, TakeTheFirstThatFits)
{
    EXPECT_EQ(linesOf("<switch><path systemLanguage='fr' d='M0 0H1'/><path systemLanguage='de, en-GB' d='M0 0H2'/>"
                      "<path d='M0 0H3'/></switch>"),
              (Lines{"fill #000000 M0,0 L2,0"}));
    EXPECT_EQ(linesOf("<switch><foreignObject requiredExtensions='urn:x'/><g><path d='M0 0H3'/></g></switch>"),
              (Lines{"fill #000000 M0,0 L3,0"}));
    EXPECT_EQ(linesOf("<path systemLanguage='fr' d='M0 0H1'/>"), Lines{});
}

TEST(Switches, TakeTheFirstThatCanBeDrawn)
{
    const std::string label = "<text x='5' y='9'>label</text>";
    for (const std::string& other : {std::string("<foreignObject width='9' height='9'><p>x</p></foreignObject>"),
                                     std::string("<flowRoot/>"), std::string("<title>x</title>"), std::string("<y/>"),
                                     std::string("<g requiredExtensions=''><path d='M0 0H1'/></g>"),
                                     std::string("<g systemLanguage=''><path d='M0 0H1'/></g>")}) {
        const Recording r = draw("<switch>" + other + label + "</switch>");
        EXPECT_EQ(r.canvas.lines, Lines{"text 5,9 [label]"}) << other;
        EXPECT_EQ(r.messages, "") << other;
    }
    const Recording empty = draw("<switch><g requiredFeatures='urn:any'/>" + label + "</switch>");
    EXPECT_EQ(empty.canvas.lines, Lines{});
    const Recording none = draw("<switch><y/><foreignObject width='9' height='9'/></switch>");
    EXPECT_EQ(none.messages, "in: 1 foreignObject element left out\n");
}

TEST(Reports, NameWhatIsNotDrawn)
{
    EXPECT_EQ(draw("<foreignObject/><flowRoot/>").messages,
              "in: 1 flowed text left out\nin: 1 foreignObject element left out\n");
    EXPECT_EQ(draw("<filter id='b'><feGaussianBlur/></filter><filter id='n'><feTurbulence/></filter>"
                   "<path d='M0 0H1' filter='url(#b)'/><path d='M0 0H1' filter='url(#n)'/>"
                   "<path d='M0 0H1' style='mix-blend-mode:multiply'/>")
                  .messages,
              "in: 1 filter left out: it brings in something of its own\nin: 1 blend mode ignored\n"
              "in: 1 object drawn without its filter\n");
}

} // namespace
} // namespace qsdps
