// Text: white space, positions, fonts.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

const TextSpan& firstSpan(const Recording& r)
{
    return r.canvas.chunks.at(0).spans.at(0);
}

TEST(Text, CollapsesWhiteSpaceAcrossSpans)
{
    EXPECT_EQ(linesOf("<text x='1' y='2'>\n  a\t b <tspan> c </tspan>\n</text>"), (Lines{"text 1,2 [a b ] [c]"}));
    EXPECT_EQ(linesOf("<text xml:space='preserve'> a\n b </text>"), (Lines{"text 0,0 [ a  b ]"}));
    EXPECT_EQ(linesOf("<text> </text>"), Lines{});
}

TEST(Text, BeginsAChunkAtEachAbsolutePosition)
{
    EXPECT_EQ(linesOf("<text x='1 10' y='5'>abc<tspan x='20' y='9'>d</tspan></text>"),
              (Lines{"text 1,5 [a]", "text 10,5 [bc]", "text 20,9 [d]"}));
}

TEST(Text, MovesSingleCharacters)
{
    const Recording r = draw("<text y='5' dx='0 2' dy='0 0 3'>abc<tspan y='20'>d</tspan></text>");
    const auto& spans = r.canvas.chunks.at(0).spans;
    ASSERT_EQ(spans.size(), 4U);
    EXPECT_EQ(spans[1].dx, 2);
    EXPECT_EQ(spans[2].dy, 3);
    EXPECT_EQ(spans[3].dy, 12);
}

TEST(Text, TurnsCharactersAndGoesOnWithTheLastAngle)
{
    const Recording r = draw("<text rotate='10 20'>abc</text>");
    const auto& spans = r.canvas.chunks.at(0).spans;
    ASSERT_EQ(spans.size(), 2U);
    EXPECT_EQ(spans[0].rotate, 10);
    EXPECT_EQ(spans[1].rotate, 20);
    EXPECT_EQ(spans[1].text, "bc");
}

TEST(Text, ReadsFonts)
{
    const Recording r =
        draw("<g font-size='10' font-weight='bold'><text font-family=\"'A B', Arial,serif\" "
             "font-size='150%' font-style='oblique' font-weight='bolder' letter-spacing='.1em'>x</text></g>");
    const TextSpan& span = firstSpan(r);
    EXPECT_EQ(span.font.families, (std::vector<std::string>{"A B", "Arial", "serif"}));
    EXPECT_EQ(span.font.size, 15);
    EXPECT_EQ(span.font.weight, 900);
    EXPECT_TRUE(span.font.italic);
    EXPECT_EQ(span.letterSpacing, 1.5);
}

TEST(Text, ReadsTheFontShorthand)
{
    const Recording r = draw("<text style='font: italic bold 12px/30px Georgia, serif'>x</text>");
    const TextSpan& span = firstSpan(r);
    EXPECT_EQ(span.font.families, (std::vector<std::string>{"Georgia", "serif"}));
    EXPECT_EQ(span.font.size, 12);
    EXPECT_EQ(span.font.weight, 700);
    EXPECT_TRUE(span.font.italic);
}

TEST(Text, HasTheSerifOfBrowsersWithoutAFamily)
{
    const std::vector<std::string> serif{"Times New Roman", "serif"};
    EXPECT_EQ(firstSpan(draw("<text>x</text>")).font.families, serif);
    EXPECT_EQ(firstSpan(draw("<g font-family='Arial'><text font-family='initial'>x</text></g>")).font.families, serif);
    EXPECT_EQ(firstSpan(draw("<text style='font-family:var(--none)'>x</text>")).font.families, serif);
}

TEST(Text, CarriesDecorationShiftAndLength)
{
    const Recording r = draw("<text text-decoration='underline' text-anchor='middle' textLength='50' opacity='.5'>"
                             "<tspan baseline-shift='super' font-size='10' opacity='.5'>x</tspan></text>");
    const TextSpan& span = firstSpan(r);
    EXPECT_TRUE(span.underline);
    EXPECT_EQ(r.canvas.chunks[0].anchor, TextAnchor::Middle);
    EXPECT_DOUBLE_EQ(span.baselineShift, 6.4);
    EXPECT_EQ(span.textLength, 50);
    EXPECT_DOUBLE_EQ(span.opacity, 0.25);
}

TEST(Text, RunsAlongAPath)
{
    const Recording r = draw("<path id='p' d='M0 0H40' transform='translate(0 5)' fill='none'/>"
                             "<text><textPath href='#p' startOffset='25%'>abc</textPath></text>");
    ASSERT_EQ(r.canvas.chunks.size(), 1U);
    const TextChunk& chunk = r.canvas.chunks[0];
    ASSERT_TRUE(chunk.along);
    EXPECT_EQ(chunk.along->points().at(1), (Point{40, 5}));
    EXPECT_EQ(chunk.startOffset, 10);
    EXPECT_EQ(linesOf("<text><textPath href='#none'>abc</textPath></text>"), Lines{});
}

TEST(Text, KeepsTheAdvanceOfWhatIsHidden)
{
    const Recording r = draw("<text>a<tspan visibility='hidden'>b</tspan><tspan display='none'>c</tspan>d</text>");
    const auto& spans = r.canvas.chunks.at(0).spans;
    ASSERT_EQ(spans.size(), 3U);
    EXPECT_EQ(spans[1].text, "b");
    EXPECT_TRUE(spans[1].fill.none());
    EXPECT_FALSE(spans[2].fill.none());
}

TEST(Text, PaintsStrokeAndFillInTheOrderAskedFor)
{
    const Recording r =
        draw("<g stroke='red'><text>a</text><text paint-order='stroke'>b</text>"
             "<text paint-order='markers'>c</text><text style='paint-order:markers stroke'>d</text></g>");
    ASSERT_EQ(r.canvas.chunks.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(r.canvas.chunks[i].spans.at(0).strokeFirst, i % 2 == 1) << i;
}

TEST(Text, TellsOfTref)
{
    const std::string told = "in: 1 tref element left out\n";
    const Recording r = draw("<text>a<tref href='#x'/>b</text>");
    EXPECT_EQ(r.canvas.lines, Lines{"text 0,0 [ab]"});
    EXPECT_EQ(r.messages, told);
    EXPECT_EQ(draw("<text><switch><tref href='#x'/></switch></text>").messages, told);
    const Recording instead = draw("<text><switch><tref href='#x'/><y/><tspan>b</tspan></switch></text>");
    EXPECT_EQ(instead.canvas.lines, Lines{"text 0,0 [b]"});
    EXPECT_EQ(instead.messages, "");
}

TEST(Text, ReplacesBytesThatAreNoCharacters)
{
    EXPECT_EQ(linesOf("<text>a\xFF\x62</text>"), (Lines{"text 0,0 [a\xEF\xBF\xBD"
                                                        "b]"}));
}

} // namespace
} // namespace qsdps
