#include "command/layout.h"

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

namespace {

/// The header of a picture of 300 by 200 pixels.
ImageHeader wide()
{
    ImageHeader header;
    header.width = 300;
    header.height = 200;
    return header;
}

} // namespace

TEST(Layout, PicturesHaveThePixelsOfDrawings)
{
    Options options;
    options.dpi = 300;
    EXPECT_EQ(sizeOfPicture(wide(), options), (Box{0, 0, 300, 200}));
    const Box paper = sizeOnPaper(300, 200, options);
    EXPECT_DOUBLE_EQ(paper.width, 72);
    EXPECT_DOUBLE_EQ(paper.height, 48);
}

TEST(Layout, PicturesKnowTheirDensity)
{
    ImageHeader header = wide();
    header.density = {192, 48};
    const Options options;
    EXPECT_EQ(sizeOfPicture(header, options), (Box{0, 0, 150, 400}));
    EXPECT_EQ(pictureToDrawing(header, options), Matrix::scaling(0.5, 2));
}

TEST(Layout, DensitiesThatCannotBeAreNotBelieved)
{
    for (const Density density : {Density{0, 0}, Density{0.0254, 0.0254}, Density{1e8, 1e8}, Density{72, 0}}) {
        ImageHeader header = wide();
        header.density = density;
        EXPECT_EQ(sizeOfPicture(header, Options{}), (Box{0, 0, 300, 200})) << density.across;
    }
}

TEST(Layout, PicturesAreTurnedUpright)
{
    ImageHeader header = wide();
    header.density = {96, 48};
    // Where the first pixel's corner, and the corner at the end of the first row, come to lie.
    const struct {
        int orientation;
        Point first;
        Point rowEnd;
    } cases[] = {{1, {0, 0}, {300, 0}}, {2, {300, 0}, {0, 0}},     {3, {300, 400}, {0, 400}}, {4, {0, 400}, {300, 400}},
                 {5, {0, 0}, {0, 300}}, {6, {400, 0}, {400, 300}}, {7, {400, 300}, {400, 0}}, {8, {0, 300}, {0, 0}}};
    for (const auto& [orientation, first, rowEnd] : cases) {
        header.orientation = orientation;
        const Matrix map = pictureToDrawing(header, Options{});
        EXPECT_EQ(map.map({0, 0}), first) << orientation;
        EXPECT_EQ(map.map({300, 0}), rowEnd) << orientation;
        const Box upright = orientation < 5 ? Box{0, 0, 300, 400} : Box{0, 0, 400, 300};
        EXPECT_EQ(sizeOfPicture(header, Options{}), upright) << orientation;
    }
}
