// The parts of the viewer that need no window.
#include "qsdview/command.h"
#include "qsdview/print.h"
#include "qsdview/view.h"
#include "qsdview/window_geometry.h"

#include <gtest/gtest.h>

using namespace qsdview;

namespace {

constexpr QsdRect Screen{0, 0, 1000, 800};

std::optional<QsdPoint> cornerOf(const char* text)
{
    const std::optional<WindowGeometry> geometry = WindowGeometry::parse(text);
    return geometry ? geometry->corner({200, 100}, Screen) : std::nullopt;
}

} // namespace

TEST(View, FitsThePageIntoTheWindow)
{
    View view(200, 100);
    view.setPage(400, 100);
    EXPECT_EQ(view.zoom(), 0.5);
    EXPECT_EQ(view.page(), (QsdRect{0, 0, 200, 50}));
    EXPECT_EQ(view.window(), (QsdRect{0, -25, 200, 100})) << "in the middle";
    view.resize(400, 300);
    EXPECT_EQ(view.zoom(), 1);
    view.setPage(40, 30);
    EXPECT_EQ(view.zoom(), 10) << "the next page too";
}

TEST(View, KeepsWhatLiesAtTheAnchorWhenItZooms)
{
    View view(200, 100);
    view.setPage(400, 200);
    view.setZoom(1, {200, 100});
    EXPECT_EQ(view.window(), (QsdRect{200, 100, 200, 100})) << "the lower right corner stays";
    view.setZoom(2, {0, 0});
    EXPECT_EQ(view.window(), (QsdRect{400, 200, 200, 100}));
    view.setZoom(1);
    EXPECT_EQ(view.window(), (QsdRect{150, 75, 200, 100})) << "the middle stays";
    EXPECT_FALSE(view.isFitting());
    view.fit();
    EXPECT_EQ(view.zoom(), 0.5);
    EXPECT_TRUE(view.isFitting());
}

TEST(View, ScrollsAsFarAsThePageReaches)
{
    View view(200, 100);
    view.setPage(400, 200);
    view.setZoom(1, {0, 0});
    view.scroll(30, 20);
    EXPECT_EQ(view.window(), (QsdRect{30, 20, 200, 100}));
    view.scroll(1e9, 1e9);
    EXPECT_EQ(view.window(), (QsdRect{200, 100, 200, 100}));
    view.scroll(-1e9, -1e9);
    EXPECT_EQ(view.window(), (QsdRect{0, 0, 200, 100}));
    view.scroll(50, 50);
    view.setPage(400, 200);
    EXPECT_EQ(view.window(), (QsdRect{0, 0, 200, 100})) << "pages begin at the top left";
    view.resize(500, 100);
    view.scroll(50, 0);
    EXPECT_EQ(view.window().x, -50) << "a page that is not as wide does not scroll";
}

TEST(View, HoldsZoomsAndSizes)
{
    View view(200, 100);
    view.setPage(1e300, 0);
    view.setZoom(1e300);
    EXPECT_EQ(view.zoom(), View::MostZoom);
    EXPECT_EQ(view.page().height, 1U);
    EXPECT_LE(view.page().width, 640'000'000U);
    view.setZoom(0);
    EXPECT_EQ(view.zoom(), View::LeastZoom);
}

TEST(WindowGeometry, ReadsSizesAndPlaces)
{
    const std::optional<WindowGeometry> size = WindowGeometry::parse("640x480");
    ASSERT_TRUE(size && size->size);
    EXPECT_EQ(size->size->width, 640U);
    EXPECT_EQ(size->size->height, 480U);
    EXPECT_FALSE(size->place);
    EXPECT_EQ(cornerOf("+10+20"), (QsdPoint{10, 20}));
    EXPECT_EQ(cornerOf("5x5-10-20"), (QsdPoint{790, 680}));
    EXPECT_EQ(cornerOf("+0-0"), (QsdPoint{0, 700}));
    for (const char* wrong : {"", "x", "640", "640x", "0x5", "5x0", "640X480", "640x480+1", "640x480+1+2 ", "+1",
                              "40000x1", "+1+40000", "-1x5", "+-1+2", "5x5+ 1+1"}) {
        EXPECT_FALSE(WindowGeometry::parse(wrong)) << wrong;
    }
}

TEST(Command, KeysHaveTheirNamesInX)
{
    EXPECT_EQ(commandOf("Next"), Command::NextPage);
    EXPECT_EQ(commandOf("p"), Command::PreviousPage);
    EXPECT_EQ(commandOf("P"), Command::Print);
    EXPECT_EQ(commandOf("q"), Command::Quit);
    EXPECT_EQ(commandOf("Q"), Command::None);
    EXPECT_EQ(commandOf(""), Command::None);
}

TEST(Print, DocumentsAreNamedForTheFirstFile)
{
    EXPECT_EQ(documentNameFor("/a/b.c/chart.v2.svg"), "chart.v2.ps");
    EXPECT_EQ(documentNameFor("plain"), "plain.ps");
    const qsdps::Options options = documentOptions({"-x.svg", "b.png"}, "-y.eps.ps");
    EXPECT_EQ(options.output, "-y.eps.ps");
    ASSERT_EQ(options.inputs.size(), 2U);
    EXPECT_EQ(options.inputs[0].name, "-x.svg");
    EXPECT_THROW(static_cast<void>(documentOptions({"a", "b"}, "two.eps")), std::invalid_argument);
}
