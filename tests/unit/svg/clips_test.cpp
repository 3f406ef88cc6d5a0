// Clip paths, and masks that are clip paths in disguise.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

const std::string Target = "<rect x='10' y='10' width='20' height='20' clip-path='url(#c)'/>";
const std::string Fill = "fill #000000 M10,10 L30,10 L30,30 L10,30 Z";

TEST(Clips, AreTheUnionOfTheirShapes)
{
    EXPECT_EQ(linesOf("<clipPath id='c'><path d='M0 0H5' clip-rule='evenodd'/><path id='q' d='M0 0H6' display='none'/>"
                      "<use href='#r' x='3'/></clipPath><path id='r' d='M0 0H7' fill='none'/>" +
                      Target),
              (Lines{"clip evenodd M0,0 L5,0 M3,0 L10,0", Fill, "popClip"}));
}

TEST(Clips, FitTheBoundingBox)
{
    EXPECT_EQ(linesOf("<clipPath id='c' clipPathUnits='objectBoundingBox'><path d='M0 0H.5'/></clipPath>"
                      "<g clip-path='url(#c)'><path d='M10 10H20V20z'/></g>"),
              (Lines{"clip M10,10 L15,10", "fill #000000 M10,10 L20,10 L20,20 Z", "popClip"}));
}

TEST(Clips, CutEachOther)
{
    EXPECT_EQ(linesOf("<clipPath id='d'><path d='M0 0H9'/></clipPath>"
                      "<clipPath id='c' clip-path='url(#d)'><path d='M0 0H5' clip-path='url(#d)'/></clipPath>" +
                      Target),
              (Lines{"clip M0,0 L5,0 inner( M0,0 L9,0 ) within( M0,0 L9,0 )", Fill, "popClip"}));
}

TEST(Clips, HideEverythingWhenEmptyAndNothingWhenMissing)
{
    EXPECT_EQ(linesOf("<clipPath id='c'/>" + Target), Lines{});
    EXPECT_EQ(linesOf(Target), Lines{Fill});
    EXPECT_EQ(linesOf("<clipPath id='c' clip-path='url(#c)'><path d='M0 0H5'/></clipPath>" + Target),
              (Lines{"clip M0,0 L5,0", Fill, "popClip"}));
}

TEST(Clips, CutWhatIsBroughtInByReferenceTwice)
{
    EXPECT_EQ(linesOf("<clipPath id='e'><path d='M0 0H7'/></clipPath>"
                      "<clipPath id='d' clip-path='url(#e)'><path d='M0 0H9'/></clipPath>"
                      "<clipPath id='b' clipPathUnits='objectBoundingBox'><path d='M0 0H1'/></clipPath>"
                      "<clipPath id='c'><use href='#r' x='3' clip-path='url(#b)'/></clipPath>"
                      "<defs><path id='r' d='M0 0H8V4' clip-path='url(#d)'/></defs>" +
                      Target),
              (Lines{"clip M3,0 L11,0 L11,4 inner( M3,0 L12,0 within( M3,0 L10,0 ) ) around( M3,0 L11,0 )", Fill,
                     "popClip"}));
}

TEST(Clips, OfTextsAreTheirVisibleLetters)
{
    const Recording r = draw("<clipPath id='c'><text x='3' y='9' fill='none'>a<tspan visibility='hidden'>b</tspan>"
                             "</text><text visibility='hidden'>c<tspan visibility='visible'>d</tspan></text>"
                             "<use href='#t' x='5'/></clipPath><defs><text id='t' x='1' y='1'>e</text></defs>" +
                             Target);
    EXPECT_EQ(r.canvas.lines,
              (Lines{"clip text 3,9 [a] [b]hidden text 0,0 [c]hidden [d] text 6,1 [e]", Fill, "popClip"}));
    EXPECT_EQ(r.messages, "");
}

TEST(Masks, OfPlainWhiteAreClips)
{
    EXPECT_EQ(linesOf("<mask id='m' maskUnits='userSpaceOnUse' x='0' y='0' width='9' height='9'>"
                      "<path fill='white' fill-rule='evenodd' d='M0 0H5'/></mask>"
                      "<path d='M0 0H1' mask='url(#m)'/>"),
              (Lines{"clip evenodd M0,0 L5,0 within( M0,0 L9,0 L9,9 L0,9 Z )", "fill #000000 M0,0 L1,0", "popClip"}));
}

TEST(Masks, OfGreyAreReported)
{
    const Recording r = draw("<mask id='m'><path fill='gray' d='M0 0H5'/></mask><path d='M0 0H1' mask='url(#m)'/>");
    EXPECT_EQ(r.canvas.lines, (Lines{"fill #000000 M0,0 L1,0"}));
    EXPECT_EQ(r.messages, "in: 1 mask left out\n");
}

} // namespace
} // namespace qsdps
