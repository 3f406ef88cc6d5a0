// Files made to break a reader: all must end soon, with bounded memory and a message where something is left out.
#include "recording_canvas.h"

#include <functional>
#include <gtest/gtest.h>

namespace qsdps {
namespace {

std::string repeat(const std::string& text, int times)
{
    std::string out;
    for (int i = 0; i < times; ++i)
        out += text;
    return out;
}

/// Counts only, so that a large drawing does not become large lines.
class CountingCanvas : public Canvas {
public:
    long objects = 0;
    long depth = 0;

    void fill(const Path&, FillRule, const Paint& paint, const Matrix& toPage) override
    {
        ++objects;
        drawTile(paint, toPage);
    }
    void stroke(const Path&, const StrokeStyle&, const Paint&, const Matrix&) override { ++objects; }
    void text(const TextChunk&, const Matrix&) override { ++objects; }
    void image(const ImageObject&, double, const Matrix&) override { ++objects; }
    void pushClip(const ClipPath&) override { ++depth; }
    void popClip() override { --depth; }
    void beginGroup(double) override { ++depth; }
    void endGroup() override { --depth; }

private:
    void drawTile(const Paint& paint, const Matrix& toPage)
    {
        if (const auto* tile = std::get_if<std::shared_ptr<const Tile>>(&paint.source))
            (*tile)->draw(*this, toPage * (*tile)->toUser);
    }
};

struct Outcome {
    long objects = -1;
    bool complete = true; ///< nothing was reported as left out
    std::string error;
};

Outcome survive(const std::string& file)
{
    Outcome outcome;
    const auto drawing = SvgDrawing::load(file, {});
    if (!drawing) {
        outcome.error = drawing.error().message();
        return outcome;
    }
    CountingCanvas canvas;
    Report report;
    (*drawing)->draw(canvas, report);
    EXPECT_EQ(canvas.depth, 0);
    outcome.objects = canvas.objects;
    outcome.complete = !report.anythingNotDrawn();
    return outcome;
}

std::string svg(const std::string& content)
{
    return "<svg width='9' height='9'>" + content + "</svg>";
}

TEST(Hostile, DeepNesting)
{
    const Outcome outcome =
        survive(svg(repeat("<g opacity='.5' clip-path='url(#c)'><path d='M0 0H1'/>", 100000) + repeat("</g>", 100000)));
    EXPECT_GT(outcome.objects, 100);
    EXPECT_LT(outcome.objects, 1000);
    const Recording deep = draw(repeat("<g>", 300) + "<path d='M0 0H1'/>" + repeat("</g>", 300));
    EXPECT_EQ(deep.canvas.lines, Lines{});
    EXPECT_NE(deep.messages.find("nested too deep"), std::string::npos);
    EXPECT_EQ(survive(svg("<text>" + repeat("<tspan>a", 100000) + repeat("</tspan>", 100000) + "</text>")).objects, 1);
}

TEST(Hostile, UsesThatMultiply)
{
    std::string file = "<g id='a0'><path d='M0 0H1'/></g>";
    for (int i = 1; i < 20; ++i)
        file += "<g id='a" + std::to_string(i) + "'>" + repeat("<use href='#a" + std::to_string(i - 1) + "'/>", 10) +
                "</g>";
    const Outcome outcome = survive(svg(file));
    EXPECT_LE(outcome.objects, 500000);
    EXPECT_FALSE(outcome.complete);
}

TEST(Hostile, UsesOfLongAttributes)
{
    const std::string file = "<defs><polygon id='p' points='" + repeat("1 2 ", 100000) + "'/></defs>";
    const Outcome outcome = survive(svg(file + repeat("<use href='#p'/>", 5000)));
    EXPECT_LT(outcome.objects, 5000);
}

TEST(Hostile, EntitiesThatMultiply)
{
    std::string doctype = "<!DOCTYPE svg [<!ENTITY l0 'lol'>";
    for (int i = 1; i < 12; ++i)
        doctype += "<!ENTITY l" + std::to_string(i) + " '" + repeat("&l" + std::to_string(i - 1) + ";", 10) + "'>";
    const std::string reason = "entities refer to themselves or expand to too much text";
    EXPECT_EQ(survive(doctype + "]>" + svg("<text>&l11;</text>")).error, reason);
    EXPECT_EQ(survive("<!DOCTYPE svg [<!ENTITY a '&b;'><!ENTITY b '&a;'>]>" + svg("&a;")).error, reason);
}

TEST(Hostile, ReferencesInCircles)
{
    const Outcome outcome = survive(
        svg("<linearGradient id='g' href='#h'/><linearGradient id='h' href='#g'/>"
            "<pattern id='p' width='1' height='1'><rect width='9' height='9' fill='url(#p)'/></pattern>"
            "<clipPath id='c' clip-path='url(#c)'><rect width='5' height='5' clip-path='url(#c)'/></clipPath>"
            "<marker id='m'><path d='M0 0H1' marker-start='url(#m)'/></marker>"
            "<g id='u'><use href='#u'/><rect width='9' height='9' fill='url(#g)' stroke='url(#p)'/></g>"
            "<rect width='9' height='9' fill='url(#p)' clip-path='url(#c)'/><path d='M0 0H1' marker-start='url(#m)'/>"
            "<mask id='k' mask='url(#k)'><rect mask='url(#k)'/></mask><rect width='5' height='5' mask='url(#k)'/>"));
    EXPECT_GT(outcome.objects, 3);
    EXPECT_LT(outcome.objects, 20);
}

TEST(Hostile, CirclesAreTold)
{
    const Recording r =
        draw("<linearGradient id='g' href='#h'/><linearGradient id='h' href='#g'/>"
             "<pattern id='p' href='#p'/><marker id='m'><path d='M0 0H1' marker-start='url(#m)'/></marker>"
             "<rect width='9' height='9' fill='url(#g)' stroke='url(#p)'/>"
             "<path d='M0 0H1' marker-start='url(#m)'/>");
    for (const char* told : {"gradient refers to itself", "pattern refers to itself", "marker refers to itself"})
        EXPECT_NE(r.messages.find(told), std::string::npos) << told << " in: " << r.messages;
    EXPECT_EQ(draw("<linearGradient id='g' href='#h'/><linearGradient id='h'><stop/></linearGradient>"
                   "<rect width='9' height='9' fill='url(#g)'/>")
                  .messages,
              "");
}

TEST(Hostile, TextsOnLongPaths)
{
    const std::string file = "<path id='p' fill='none' d='M0 0" + repeat("l1 1", 100000) + "'/>";
    const Outcome outcome = survive(svg(file + repeat("<text><textPath href='#p'>a</textPath></text>", 2000)));
    EXPECT_LT(outcome.objects, 2000);
    EXPECT_FALSE(outcome.complete);
}

TEST(Hostile, TilesThatMultiply)
{
    std::string file;
    for (int i = 0; i < 12; ++i)
        file += "<pattern id='p" + std::to_string(i) + "' width='1' height='1' patternUnits='userSpaceOnUse'>" +
                repeat("<rect width='3' height='3' fill='url(#p" + std::to_string(i + 1) + ")'/>", 10) + "</pattern>";
    EXPECT_LT(survive(svg(file + "<rect width='9' height='9' fill='url(#p0)'/>")).objects, 600000);
}

TEST(Hostile, ClipsThatMultiply)
{
    std::string file;
    for (int i = 0; i < 60; ++i)
        file += "<clipPath id='c" + std::to_string(i) + "'>" +
                repeat("<rect width='5' height='5' clip-path='url(#c" + std::to_string(i + 1) + ")'/>", 2) +
                "</clipPath>";
    EXPECT_EQ(survive(svg(file + "<rect width='9' height='9' clip-path='url(#c0)'/>")).objects, 1);
}

/// Clips each of which refers twice to the one before; `attributes` are those of the shape in the clip of a number.
std::string clipsInPairs(int levels, const std::function<std::string(int)>& attributes)
{
    std::string file = "<clipPath id='c0'><rect width='5' height='5'/></clipPath>";
    for (int i = 1; i < levels; ++i) {
        const std::string before = " clip-path='url(#c" + std::to_string(i - 1) + ")'";
        file += "<clipPath id='c" + std::to_string(i) + "'" + before + "><rect width='5' height='5'" + before +
                attributes(i) + "/></clipPath>";
    }
    return svg(file + "<rect width='9' height='9' clip-path='url(#c" + std::to_string(levels - 1) + ")'/>");
}

TEST(Hostile, ClipsThatReferTwice)
{
    const Outcome shared = survive(clipsInPairs(60, [](int) { return std::string(); }));
    EXPECT_EQ(shared.objects, 1);
    EXPECT_TRUE(shared.complete);
    EXPECT_TRUE(survive(clipsInPairs(40, [](int) { return std::string(" transform='translate(1)'"); })).complete);
    // No two ways through these come to the same place.
    const Outcome apart = survive(
        clipsInPairs(60, [](int i) { return " transform='translate(" + std::to_string(1LL << (i % 40)) + ")'"; }));
    EXPECT_EQ(apart.objects, 1);
    EXPECT_FALSE(apart.complete);
}

TEST(Hostile, ClipsInALongChain)
{
    std::string file;
    for (int i = 0; i < 100000; ++i)
        file += "<clipPath id='c" + std::to_string(i) + "' clip-path='url(#c" + std::to_string(i + 1) +
                ")'><rect width='5' height='5'/></clipPath>";
    const Recording r = drawFile(svg(file + "<rect width='9' height='9' clip-path='url(#c0)'/>"));
    EXPECT_NE(r.messages.find("nested too deep"), std::string::npos);
}

TEST(Hostile, BoundingBoxesOfWhatMultiplies)
{
    std::string file = "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='1' height='1'/></clipPath>"
                       "<defs><path id='a0' d='M0 0H1'/>";
    for (int i = 1; i < 9; ++i)
        file += "<g id='a" + std::to_string(i) + "'>" + repeat("<use href='#a" + std::to_string(i - 1) + "'/>", 10) +
                "</g>";
    const auto drawing = SvgDrawing::load(svg(file + "</defs><use href='#a8' clip-path='url(#c)'/>"), {});
    ASSERT_TRUE(drawing) << drawing.error().message();
    CountingCanvas canvas;
    Report report;
    (*drawing)->draw(canvas, report);
    EXPECT_TRUE(report.anythingApproximated());
}

TEST(Hostile, NumbersOutOfRange)
{
    for (const std::string v :
         {"NaN", "inf", "1e308", "-1e308", "1e-308", "1e999", "0", "-1", "1e200", "", "%", "1e"}) {
        const std::string file =
            "<rect x='" + v + "' width='" + v + "' height='" + v + "' rx='" + v + "' stroke='red' stroke-width='" + v +
            "' stroke-dasharray='" + v + " 1' transform='scale(" + v + ")'/><path d='M0 " + v + "A" + v + " 5 " + v +
            " 1 1 5 5C" + repeat(v + " ", 6) + "'/><text x='" + v + "' font-size='" + v + "'>a</text><svg width='" + v +
            "' viewBox='" + v + " 0 " + v + " 5'><rect width='5%' height='5'/></svg>";
        EXPECT_GE(survive(svg(file)).objects, 0) << v;
        EXPECT_GE(
            survive("<svg width='" + v + "' height='" + v + "' viewBox='0 0 " + v + " 1'><path d='M0 0H1'/></svg>")
                .objects,
            0)
            << v;
    }
}

TEST(Hostile, LongPaths)
{
    EXPECT_EQ(survive(svg("<path d='M0 0" + repeat("l1 1c1 2 3 4 5 6a5 5 0 1 0 3 3", 100000) + "'/>")).objects, 1);
}

TEST(Hostile, StyleSheetsOfManyRules)
{
    EXPECT_EQ(survive(svg("<style>" + repeat("*{fill:red}", 50000) + "}}{{@media{a{b" + "</style>" +
                          repeat("<path d='M0 0H1'/>", 2000)))
                  .objects,
              2000);
}

TEST(Hostile, VariablesThatMultiply)
{
    std::string laughs = "--v0:lol;";
    for (int i = 1; i < 40; ++i)
        laughs += "--v" + std::to_string(i) + ":" + repeat("var(--v" + std::to_string(i - 1) + ")", 10) + ";";
    const Recording r =
        draw("<style>*{" + laughs + "}</style>" + repeat("<path d='M0 0H1' style='font-family:var(--v39)'/>", 2000));
    EXPECT_EQ(r.canvas.lines.size(), 2000U);
    EXPECT_NE(r.messages.find("variable '--v39' has no value"), std::string::npos);
    const std::string circle = "<style>*{--a:var(--b) var(--b);--b:var(--a) var(--a);fill:var(--a)}</style>";
    EXPECT_EQ(survive(svg(circle + "<path d='M0 0H1'/>")).objects, 1);
    EXPECT_NE(draw("<path d='M0 0H1' style='--a:" + repeat("x", 60000) + ";font-family:var(--a) var(--a)'/>")
                  .messages.find("variables make a value too long"),
              std::string::npos);
    EXPECT_NE(draw("<path d='M0 0H1' style='fill:" + repeat("var(--x,", 100000) + "'/>")
                  .messages.find("variables make a value too long"),
              std::string::npos);
}

TEST(Hostile, VariablesThatNest)
{
    const std::string nested = repeat("var(--x,", 5000) + "red" + repeat(")", 5000);
    EXPECT_NE(draw("<path d='M0 0H1' style='fill:" + nested + "'/>").messages.find("variables nest too deep"),
              std::string::npos);
    std::string chain = "--v0:red;";
    for (int i = 1; i < 20000; ++i)
        chain += "--v" + std::to_string(i) + ":var(--v" + std::to_string(i - 1) + ");";
    EXPECT_EQ(survive(svg("<path d='M0 0H1' style='" + chain + "fill:var(--v19999)'/>")).objects, 1);
    EXPECT_EQ(
        survive(svg(repeat("<g style='--a:var(--a)x'>", 240) +
                    repeat("<path d='M0 0H1' style='font-family:var(--a)var(--b,y)'/>", 20000) + repeat("</g>", 240)))
            .objects,
        20000);
}

TEST(Hostile, CalcThatNests)
{
    for (const std::string& value :
         {repeat("calc(", 100000) + "1px" + repeat(")", 100000), "calc" + repeat("(", 100000),
          "calc(" + repeat("1px + ", 100000) + "1px)", "calc(" + repeat("1e300*", 100000) + "1px)",
          std::string("calc(1px / 0)"), std::string("calc(1e999px)"), std::string("calc(-infinity * 1px)")})
        EXPECT_GE(survive(svg("<rect width='" + value + "' height='5' style='stroke-width:" + value +
                              ";opacity:" + value + ";transform:scale(" + value + ")'/>"))
                      .objects,
                  0);
}

TEST(Hostile, SelectorsThatCost)
{
    const std::string elements = repeat("<g><path d='M0 0H1'/><path d='M0 0H1'/></g>", 2000);
    for (const std::string& selector :
         {std::string("path:nth-last-child(2n+1):nth-of-type(n)"), std::string("g:nth-last-of-type(3n) path"),
          std::string("rect ~ g path"), "g " + repeat("g ", 30) + "path", repeat("* ~ ", 30) + "g path",
          repeat(":not(", 100000) + "g" + repeat(")", 100000), repeat(":is(g ", 7) + "path" + repeat(")", 7),
          repeat("path,", 100000) + "path", "path" + repeat(".a", 100000), repeat("a>", 100000) + "b",
          std::string("path:nth-child(-99999999999999999999n-99999999999999999999)")})
        EXPECT_EQ(survive(svg("<style>" + selector + "{fill:red}</style>" + elements)).objects, 4000)
            << selector.substr(0, 40);
    const std::string many =
        "<style>" + repeat("rect ~ g ~ path{fill:red}", 1000) + "</style>" + repeat("<path d='M0 0H1'/>", 20000);
    EXPECT_NE(draw(many).messages.find("style sheets ask for too much work"), std::string::npos);
}

TEST(Hostile, SheetsThatNest)
{
    for (const std::string& sheet :
         {repeat("@media print{", 100000) + "path{fill:red}" + repeat("}", 100000), repeat("{", 100000),
          repeat("a{", 100000), "@media " + repeat("(", 100000), "@media " + repeat("(not ", 100000),
          repeat("@import", 100000), repeat("x:hover{}", 100000), repeat("@a;@b;", 100000)})
        EXPECT_EQ(survive(svg("<style>" + sheet + "</style><path d='M0 0H1'/>")).objects, 1) << sheet.substr(0, 40);
    std::string kinds;
    for (int i = 0; i < 1000; ++i)
        kinds += "x:y" + std::to_string(i) + "{}";
    EXPECT_NE(draw("<style>" + kinds + "</style>").messages.find("further parts of style sheets skipped"),
              std::string::npos);
}

TEST(Hostile, Garbage)
{
    for (const std::string& file :
         {std::string(100000, '\0'), std::string(100000, '<'), std::string("\x1f\x8b\x08") + std::string(99, 'x'),
          std::string("<!DOCTYPE [<!ENTITY"), std::string("<svg><!-- "), std::string("\xFF\xFE\x00", 3)})
        EXPECT_FALSE(survive(file).error.empty());
}

} // namespace
} // namespace qsdps
