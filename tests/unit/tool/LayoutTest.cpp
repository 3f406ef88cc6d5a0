#include "layout.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(Layout, PaperIsTheDrawingsOwnSize)
{
    const Options options;
    const PaperSize paper = paperFor({sizeOnPaper(96, 48, options)}, options);
    EXPECT_DOUBLE_EQ(paper.width, 72);
    EXPECT_DOUBLE_EQ(paper.height, 36);
    EXPECT_EQ(placement(96, 48, paper, options), Matrix::scaling(0.75, 0.75));
}

TEST(Layout, PaperHoldsTheLargestOfAll)
{
    const Options options;
    const PaperSize paper = paperFor({{0, 0, 10, 50}, {0, 0, 30, 20}}, options);
    EXPECT_EQ(paper.width, 30);
    EXPECT_EQ(paper.height, 50);
}

TEST(Layout, OneSideGivesTheOther)
{
    Options options;
    options.width = 200;
    const Box size = sizeOnPaper(100, 50, options);
    EXPECT_DOUBLE_EQ(size.width, 200);
    EXPECT_DOUBLE_EQ(size.height, 100);
}

TEST(Layout, LargeDrawingsShrink)
{
    Options options;
    options.paper = PaperSize{72, 144};
    options.orientation = Orientation::Portrait;
    const Matrix map = placement(192, 192, *options.paper, options);
    EXPECT_DOUBLE_EQ(map.a, 72.0 / 192);
    EXPECT_DOUBLE_EQ(map.d, map.a);
    EXPECT_DOUBLE_EQ(map.f, 36) << "in the middle";
}

TEST(Layout, SmallDrawingsGrowOnlyWhenAsked)
{
    Options options;
    options.paper = PaperSize{720, 720};
    EXPECT_DOUBLE_EQ(placement(96, 96, *options.paper, options).a, 0.75);
    options.fit = Fit::Page;
    EXPECT_DOUBLE_EQ(placement(96, 96, *options.paper, options).a, 7.5);
}

TEST(Layout, PaperTurnsWithTheDrawing)
{
    Options options;
    options.paper = PaperSize{100, 200};
    EXPECT_EQ(paperFor({{0, 0, 20, 10}}, options).width, 200);
    EXPECT_EQ(paperFor({{0, 0, 10, 20}}, options).width, 100);
    options.orientation = Orientation::Portrait;
    EXPECT_EQ(paperFor({{0, 0, 20, 10}}, options).width, 100);
}
