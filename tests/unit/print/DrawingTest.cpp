#include "tests/unit/print/PrintDevice.h"

namespace {

QsdHandle<QsdColor> color(std::uint16_t red, std::uint16_t green, std::uint16_t blue)
{
    return QsdHandle<QsdColor>::Adopt(new QsdColor(red, green, blue));
}

TEST(PrintDrawing, PointsAreSquaresOfOneUnit)
{
    PrintPage page;
    page.device.drawPoint(page.palette.get(), {3, 4});
    const QsdPoint points[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4},  {5, 5},
                               {6, 6}, {7, 7}, {8, 8}, {9, 9}, {10, 10}};
    page.device.drawPoints(page.palette.get(), 11, points);
    page.device.drawPoints(page.palette.get(), 0, nullptr);
    EXPECT_EQ(PrintPage::drawing(page.whole()),
              "0 sg\n"
              "3 4 px\n"
              "0 0 px 1 1 px 2 2 px 3 3 px 4 4 px 5 5 px 6 6 px 7 7 px 8 8 px 9 9 px\n"
              "10 10 px\n");
}

TEST(PrintDrawing, RectanglesAreStrokedAsOthers)
{
    PrintPage page;
    page.device.drawRectangle(page.palette.get(), {1, 2, 3, 4});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n[] 0 setdash\n1 slw\nn 1 2 3 4 rk\n");
}

TEST(PrintDrawing, StateOfEqualValueIsWrittenOnce)
{
    PrintPage page;
    page.palette->setForeground(color(65535, 32768, 0).get());
    page.device.drawLine(page.palette.get(), {0, 0}, {1, 1});
    page.palette->setForeground(color(65535, 32768, 0).get());
    page.palette->setFont(QsdHandle<QsdFont>::Adopt(page.display.createFont("Times", 0, 10)).get());
    page.device.drawLine(page.palette.get(), {0, 0}, {2, 2});
    page.palette->setLineStyle(nullptr, 1);
    page.device.drawLine(page.palette.get(), {0, 0}, {3, 3});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "1 .5 0 sr\n"
                                                "[] 0 setdash\n"
                                                "1 slw\n"
                                                "n 0 0 M 1 1 L s\n"
                                                "n 0 0 M 2 2 L s\n"
                                                "n 0 0 M 3 3 L s\n");
}

TEST(PrintDrawing, OnlyWhatAnOperationDrawsWithIsWritten)
{
    PrintPage page;
    const std::uint8_t dashes[] = {4, 2};
    page.palette->setLineStyle(QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(2, dashes)).get(), 3);
    page.device.fillRectangle(page.palette.get(), {1, 2, 3, 4});
    page.device.drawLine(page.palette.get(), {0, 0}, {1, 1});
    page.device.drawString(page.palette.get(), {5, 6}, "x", 1, QsdPositionNone);
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n"
                                                "n 3 4 1 2 rect eofill\n"
                                                "[4 2 ] 2 setdash\n"
                                                "3 slw\n"
                                                "n 0 0 M 1 1 L s\n"
                                                "F1 12 sf\n"
                                                "G 5 6 M 1 -1 scale(x)qsdshow g\n");
}

TEST(PrintDrawing, WholePaletteIsWrittenWhenAskedFor)
{
    PrintPage page;
    page.device.fillRectangle(page.palette.get(), {1, 2, 3, 4});
    page.device.setCurrentPalette(page.palette.get());
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\n"
                                                "n 3 4 1 2 rect eofill\n"
                                                "F1 12 sf\n"
                                                "[] 0 setdash\n"
                                                "1 slw\n");
}

TEST(PrintDrawing, SharesAreShort)
{
    const std::pair<std::uint16_t, const char*> shares[] = {{0, "0"},      {65535, "1"},        {32768, ".5"},
                                                            {257, ".004"}, {128 * 257, ".502"}, {16, "0"},
                                                            {65530, "1"},  {6554, ".1"}};
    for (const auto& [component, text] : shares) {
        PrintPage one;
        one.palette->setForeground(color(component, component, component).get());
        one.device.fillRectangle(one.palette.get(), {1, 2, 3, 4});
        EXPECT_EQ(PrintPage::drawing(one.whole()), std::string(text) + " sg\nn 3 4 1 2 rect eofill\n");
    }
}

TEST(PrintDrawing, GreyModelWritesGreys)
{
    PrintPage page(2, QsdPSGrey);
    page.palette->setForeground(color(65535, 0, 0).get());
    page.device.fillRectangle(page.palette.get(), {1, 2, 3, 4});
    EXPECT_EQ(PrintPage::drawing(page.whole()), ".341 sg\nn 3 4 1 2 rect eofill\n");
}

TEST(PrintDrawing, TransformerInForceIsNotWrittenAgain)
{
    PrintPage page;
    page.device.setTransformer(QsdTransformer());
    QsdTransformer t;
    t.scale(2, 2);
    page.device.setTransformer(t);
    page.device.setTransformer(t);
    page.device.newPage();
    page.device.setTransformer(t);
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::drawing(text, 1), "realmatrix setmatrix \n[2 0 0 2 0 0] concat\n");
    EXPECT_EQ(PrintPage::drawing(text, 2), "realmatrix setmatrix \n[2 0 0 2 0 0] concat\n");
}

TEST(PrintDrawing, ClipInForceIsNotWrittenAgain)
{
    PrintPage page;
    const QsdRect rect{1, 2, 30, 40};
    const QsdRegion region(rect);
    page.device.clip(&rect);
    page.device.clip(&rect);
    page.device.clip(&region);
    page.device.clip(static_cast<const QsdRegion*>(nullptr));
    page.device.clip(static_cast<const QsdRect*>(nullptr));
    EXPECT_EQ(PrintPage::drawing(page.whole()), " rc gsave 1 2 30 40 rectclip\n rc gsave\n");
}

TEST(PrintDrawing, UnknownFillStyleFillsPlainly)
{
    PrintPage page;
    page.palette->setFillStyle(7);
    page.palette->setFillRule(QsdWindingRule);
    page.device.fillRectangle(page.palette.get(), {1, 2, 3, 4});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\nn 3 4 1 2 rect fill\n");
}

TEST(PrintDrawing, FontsAreDefinedOnceAndNamedByNumber)
{
    PrintPage page;
    const auto times = QsdHandle<QsdFont>::Adopt(page.display.createFont("times", QsdFontBold, 10));
    const auto helvetica = QsdHandle<QsdFont>::Adopt(page.display.createFont("helvetica", 0, 12));
    for (const auto& font : {times, helvetica, times, times}) {
        page.palette->setFont(font.get());
        page.device.drawString(page.palette.get(), {0, 0}, "x", 1, QsdPositionNone);
    }
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::part(text, "QsdPrintDict begin\n/F1", "%%EndSetup"), "/Times-Bold-Qsd/Times-Bold enc\n"
                                                                              "/F2/Helvetica-Qsd/Helvetica enc\n"
                                                                              "end\n");
    EXPECT_NE(text.find("%%DocumentNeededResources: font Times-Bold\n%%+ font Helvetica\n"), std::string::npos);
    EXPECT_NE(text.find("%%PageResources: font Times-Bold\n%%+ font Helvetica\n"), std::string::npos);
    const std::string show = "G 0 0 M 1 -1 scale(x)qsdshow g\n";
    EXPECT_EQ(PrintPage::drawing(text),
              "F1 10 sf\n0 sg\n[] 0 setdash\n" + show + "F2 12 sf\n" + show + "F1 10 sf\n" + show + show);
}

// Boxes: what is drawn lies inside, and they are no larger than a line's width or a font's overhang makes them.

std::string boxOf(PrintPage& page)
{
    return page.between("%%BoundingBox: ", "\n");
}

TEST(PrintBox, IsTightAroundLinesAndAreas)
{
    PrintPage line;
    line.palette->setLineStyle(nullptr, 10);
    line.device.drawLine(line.palette.get(), {100, 100}, {200, 100});
    EXPECT_EQ(boxOf(line), "95 737 205 747");

    PrintPage rectangle;
    rectangle.device.fillRectangle(rectangle.palette.get(), {100, 100, 50, 60});
    EXPECT_EQ(boxOf(rectangle), "100 682 150 742");

    PrintPage arc;
    arc.device.fillArc(arc.palette.get(), {100, 100, 50, 60}, 0, 360);
    EXPECT_EQ(boxOf(arc), "100 682 150 742");
}

TEST(PrintBox, KnowsMitresAndWhereTheyEnd)
{
    PrintPage sharp;
    sharp.palette->setLineStyle(nullptr, 10);
    const QsdPoint corner[] = {{100, 100}, {200, 112}, {100, 124}};
    sharp.device.drawPolyLine(sharp.palette.get(), 3, corner);
    const std::string box = boxOf(sharp);
    // Half the width over the sine of half the angle, 5 / 0.119, beyond the corner.
    EXPECT_EQ(box, "95 688 242 772");

    PrintPage cut;
    cut.palette->setLineStyle(nullptr, 10);
    const QsdPoint sharper[] = {{100, 100}, {200, 101}, {100, 102}};
    cut.device.drawPolyLine(cut.palette.get(), 3, sharper);
    EXPECT_EQ(boxOf(cut), "95 735 205 747");
}

TEST(PrintBox, FollowsTransformersAndLineWidthMode)
{
    PrintPage page;
    QsdTransformer t;
    t.scale(2, 2);
    page.device.setTransformer(t);
    page.palette->setLineStyle(nullptr, 10);
    page.device.drawLine(page.palette.get(), {50, 50}, {100, 50});
    EXPECT_EQ(boxOf(page), "90 732 210 752");

    PrintPage fixed;
    fixed.device.setTransformer(t);
    fixed.device.setZoomableLineWidths(false);
    fixed.palette->setLineStyle(nullptr, 10);
    fixed.device.drawLine(fixed.palette.get(), {50, 50}, {100, 50});
    EXPECT_EQ(boxOf(fixed), "95 737 205 747");
}

TEST(PrintBox, EndsAtTheClipAndThePaper)
{
    PrintPage page;
    page.palette->setClipRegion(QsdRegion(QsdRect{100, 100, 50, 60}));
    page.device.fillRectangle(page.palette.get(), {0, 0, 5000, 5000});
    EXPECT_EQ(boxOf(page), "100 682 150 742");

    PrintPage large;
    large.device.fillRectangle(large.palette.get(), {-100, -100, 5000, 5000});
    EXPECT_EQ(boxOf(large), "0 0 595 842");

    PrintPage off;
    off.device.fillRectangle(off.palette.get(), {-100, -100, 50, 50});
    EXPECT_EQ(boxOf(off), "0 0 0 0");
}

TEST(PrintBox, HoldsExtremeCoordinates)
{
    PrintPage page;
    const std::int32_t most = std::numeric_limits<std::int32_t>::max();
    const std::int32_t least = std::numeric_limits<std::int32_t>::min();
    page.device.drawLine(page.palette.get(), {least, least}, {most, most});
    const QsdDeltaPoint steps[] = {{32767, 32767}, {32767, 32767}, {-32768, -32768}};
    page.device.drawPolyLine(page.palette.get(), {most, most}, 4, steps);
    page.device.fillPolyLine(page.palette.get(), {least, least}, 4, steps, false);
    page.device.drawArc(page.palette.get(), {least, least, 0xFFFFFFFF, 0xFFFFFFFF}, 0, 360);
    EXPECT_EQ(boxOf(page), "0 0 595 842");
}

TEST(PrintBox, KnowsPathsByAllTheirPoints)
{
    PrintPage steps;
    const QsdDeltaPoint deltas[] = {{100, 0}, {0, 100}};
    steps.device.fillPolyLine(steps.palette.get(), {100, 100}, 3, deltas, true);
    EXPECT_EQ(boxOf(steps), "100 642 200 742");

    PrintPage across;
    const QsdPoint ends[] = {{-50, 150}, {700, 150}};
    across.device.drawPolyLine(across.palette.get(), 2, ends);
    EXPECT_EQ(boxOf(across), "0 691 595 693");

    PrintPage curve;
    const QsdPoint points[] = {{-50, 100}, {100, 100}, {200, 300}, {800, 300}};
    curve.device.drawBezier(curve.palette.get(), 4, points);
    EXPECT_EQ(boxOf(curve), "0 541 595 743");
}

} // namespace
