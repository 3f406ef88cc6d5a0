// The small languages inside attributes.
#include "drawing/path_metrics.h"
#include "svg/shapes/path_data.h"
#include "svg/shapes/transform_list.h"
#include "svg/walker/viewport.h"
#include "values/color.h"
#include "values/length.h"
#include "values/scanner.h"

#include <gtest/gtest.h>

#include <clocale>

namespace qsdps::svg {
namespace {

TEST(Numbers, AreReadWithoutSeparators)
{
    EXPECT_EQ(parseNumberList("1-2.5.5e1,+3"), (std::vector<double>{1, -2.5, 5, 3}));
    EXPECT_EQ(parseNumberList(" 1 , 2 ,, 3"), (std::vector<double>{1, 2}));
}

TEST(Numbers, RefuseWhatIsNotFinite)
{
    for (const char* text : {"nan", "inf", "-inf", "1e999", "+-1", "", "e5", "0x10"})
        EXPECT_FALSE(parseNumber(text)) << text;
    EXPECT_EQ(parseNumber("1e-999"), 0);
}

TEST(Numbers, DoNotDependOnTheLocale)
{
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr)
        GTEST_SKIP() << "no locale with a decimal comma";
    EXPECT_EQ(parseNumber("1.5"), 1.5);
    std::setlocale(LC_ALL, "C");
}

TEST(Lengths, ConvertUnits)
{
    const LengthBase base{{200, 100}, 10, 20, 96};
    const auto at = [&](const char* text, Axis axis) { return resolve(parseLength(text).value(), axis, base); };
    EXPECT_DOUBLE_EQ(at("72pt", Axis::Horizontal), 96);
    EXPECT_DOUBLE_EQ(at("25.4MM", Axis::Horizontal), 96);
    EXPECT_DOUBLE_EQ(at("2em", Axis::Horizontal), 20);
    EXPECT_DOUBLE_EQ(at("2rem", Axis::Horizontal), 40);
    EXPECT_DOUBLE_EQ(at("50%", Axis::Horizontal), 100);
    EXPECT_DOUBLE_EQ(at("50%", Axis::Vertical), 50);
    EXPECT_NEAR(at("100%", Axis::Diagonal), 158.1139, 1e-4);
    EXPECT_FALSE(parseLength("5 px"));
    EXPECT_FALSE(parseLength("5furlong"));
}

TEST(Lengths, AddUp)
{
    const LengthBase base{{200, 100}, 10, 20, 96};
    const auto at = [&](const char* text) { return resolve(parseLength(text).value(), Axis::Horizontal, base); };
    EXPECT_DOUBLE_EQ(at("calc(50% - 10px)"), 90);
    EXPECT_DOUBLE_EQ(at("CALC( (1in + 2em) * 2 / 4 )"), 58);
    EXPECT_DOUBLE_EQ(at("calc(2 * calc(1px - -3px))"), 8);
    EXPECT_DOUBLE_EQ(at("calc(10px - 2 * 3px)"), 4);
    EXPECT_DOUBLE_EQ(at("calc(1.5e1)"), 15);
    EXPECT_DOUBLE_EQ(at("calc(1px*2 + 3px*(1 + 1))"), 8);
    EXPECT_DOUBLE_EQ(at("calc(0px + 5%)"), 10);
    for (const char* text : {"calc()", "calc(1px+2px)", "calc(1px +2px)", "calc(1px + 2)", "calc(1px * 2px)",
                             "calc(2 / 1px)", "calc(1px / 0)", "calc(1px", "calc(1px))", "calc 1px", "calc(1px) 2",
                             "calc(1e308px * 10)", "calc(1deg)", "calc(NaN * 1px)", "calc(1 px)", "calc(2px +)"})
        EXPECT_FALSE(parseLength(text)) << text;
    EXPECT_EQ(parseLengthList("calc(1px + 1%), 2px calc(3px)").value().size(), 3U);
}

TEST(Colors, OfEverySyntax)
{
    const auto is = [](const char* text, Rgb rgb, double alpha) {
        const auto color = parseColor(text);
        ASSERT_TRUE(color) << text;
        EXPECT_EQ(color->rgb, rgb) << text;
        EXPECT_NEAR(color->alpha, alpha, 0.003) << text;
    };
    is("#f00", {255, 0, 0}, 1);
    is("#F008", {255, 0, 0}, 0.533);
    is("#123456", {0x12, 0x34, 0x56}, 1);
    is("#12345680", {0x12, 0x34, 0x56}, 0.5);
    is("RebeccaPurple", {102, 51, 153}, 1);
    is("rgb(1, 2,3)", {1, 2, 3}, 1);
    is("rgb(100%, 0%, 50%)", {255, 0, 128}, 1);
    is("rgb(1 2 3 / 50%)", {1, 2, 3}, 0.5);
    is("rgba(300,-5,3,.25)", {255, 0, 3}, 0.25);
    is("hsl(120, 100%, 25%)", {0, 128, 0}, 1);
    is("hsla(0.5turn 100% 50% / 0.5)", {0, 255, 255}, 0.5);
    is("transparent", {0, 0, 0}, 0);
    for (const char* text : {"", "#12", "#ggg", "rgb(1,2)", "rgb(1,2,3", "nocolor", "#12345"})
        EXPECT_FALSE(parseColor(text)) << text;
}

TEST(Transforms, MultiplyFromLeftToRight)
{
    const Matrix m = parseTransform("translate(10,20) scale(2)").value();
    EXPECT_EQ(m.map({1, 1}), (Point{12, 22}));
    const Point turned = parseTransform("rotate(90 10 10)").value().map({20, 10});
    EXPECT_NEAR(turned.x, 10, 1e-9);
    EXPECT_NEAR(turned.y, 20, 1e-9);
    EXPECT_EQ(parseTransform("matrix(1 2 3 4 5 6)")->map({0, 0}), (Point{5, 6}));
    EXPECT_NEAR(parseTransform("rotate(0.25turn)")->map({1, 0}).y, 1, 1e-9);
    EXPECT_EQ(parseTransform("none"), Matrix{});
    EXPECT_EQ(parseTransform("matrix(1 0 0-1 0 64)")->map({0, 1}), (Point{0, 63}));
    EXPECT_FALSE(parseTransform("scale(2"));
    EXPECT_FALSE(parseTransform("matrix(1 2 3)"));
    EXPECT_FALSE(parseTransform("spin(2)"));
}

TEST(PathData, DrawsUpToTheFirstFault)
{
    const PathData data = parsePathData("M0 0 10 0 L 10 10 l 5 x L 9 9");
    EXPECT_FALSE(data.complete);
    EXPECT_EQ(data.path.points(), (std::vector<Point>{{0, 0}, {10, 0}, {10, 10}}));
    EXPECT_TRUE(parsePathData("L 1 1").path.empty());
}

TEST(PathData, ReflectsControlPoints)
{
    const PathData data = parsePathData("M0 0C1 2 3 4 5 6s1 1 2 2");
    EXPECT_EQ(data.path.points()[4], (Point{7, 8}));
    EXPECT_EQ(data.path.points()[6], (Point{7, 8}));
}

TEST(PathData, StartsAgainWhereItClosed)
{
    const PathData data = parsePathData("m5 5h1v1zh2");
    using Verb = Path::Verb;
    EXPECT_EQ(data.path.verbs(),
              (std::vector<Verb>{Verb::Move, Verb::Line, Verb::Line, Verb::Close, Verb::Move, Verb::Line}));
    EXPECT_EQ(data.path.points().back(), (Point{7, 5}));
}

TEST(PathData, ArcFlagsNeedNoSeparators)
{
    const PathData data = parsePathData("M0 0a5 5 0 0110 0");
    EXPECT_TRUE(data.complete);
    const Box box = pathBounds(data.path).value();
    EXPECT_NEAR(box.width, 10, 1e-3);
    EXPECT_NEAR(box.y, -5, 2e-3);
    EXPECT_NEAR(box.height, 5, 2e-3);
}

TEST(PathBounds, AreThoseOfTheCurve)
{
    const Box box = pathBounds(parsePathData("M0 0C0 10 10 10 10 0").path).value();
    EXPECT_DOUBLE_EQ(box.height, 7.5);
    EXPECT_DOUBLE_EQ(box.width, 10);
}

TEST(PathLength, CountsClosingLines)
{
    EXPECT_DOUBLE_EQ(pathLength(parsePathData("M0 0H3V4z").path), 12);
}

TEST(AspectRatio, AlignsAndCovers)
{
    const Box view{0, 0, 10, 20};
    const Box port{0, 0, 100, 100};
    EXPECT_EQ(fitBox(view, parseAspectRatio("xMaxYMin"), port), (Matrix{5, 0, 0, 5, 50, 0}));
    EXPECT_EQ(fitBox(view, parseAspectRatio("xMidYMid slice"), port), (Matrix{10, 0, 0, 10, 0, -50}));
    EXPECT_EQ(fitBox(view, parseAspectRatio("none"), port), (Matrix{10, 0, 0, 5, 0, 0}));
    EXPECT_FALSE(parseViewBox("0 0 0 5"));
    EXPECT_FALSE(parseViewBox("0 0 5"));
}

} // namespace
} // namespace qsdps::svg
