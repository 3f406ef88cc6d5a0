#include "page/painter.h"

#include "page/tiling.h"
#include "tests/unit/toolkit/RecordingPort.h"

#include <gtest/gtest.h>
#include <sstream>

using namespace qsdps;

namespace {

/// A page of 842 points, so that a unit is a hundredth of one, drawn one pixel a point.
class PainterTest : public testing::Test {
protected:
    static Paint solid(Rgb color, double opacity = 1) { return {color, opacity}; }
    /// A text of one letter.
    static TextChunk redLetter(const char* family)
    {
        TextChunk chunk;
        chunk.at = {10, 50};
        chunk.spans.push_back({});
        chunk.spans[0].text = "H";
        chunk.spans[0].font.families = {family};
        chunk.spans[0].fill = solid({255, 0, 0});
        return chunk;
    }
    void fill(const Box& box, const Paint& paint) { painter.fill(outlineOf(box), FillRule::NonZero, paint, Matrix()); }
    [[nodiscard]] Rgb lastColor() const
    {
        const QsdColor* const color = port.last->foreground();
        const auto narrow = [](std::uint16_t c) { return static_cast<std::uint8_t>(c >> 8); };
        return {narrow(color->red()), narrow(color->green()), narrow(color->blue())};
    }
    [[nodiscard]] std::string told() const
    {
        std::ostringstream out;
        report.print(out, "x");
        return out.str();
    }

    QsdMemoryDisplay display;
    RecordingPort port{&display, 1000, 1000};
    PaintTools tools{display, QsEncodingLatin1};
    Report report;
    Painter painter{port, Units(842), Matrix(), {255, 255, 255}, tools, report};
};

} // namespace

TEST_F(PainterTest, FillsRectangles)
{
    fill({1, 2, 3, 4}, solid({255, 0, 0}));
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_EQ(port.calls[0].rfind("fillRectangle", 0), 0U);
    EXPECT_EQ(lastColor(), (Rgb{255, 0, 0}));
}

TEST_F(PainterTest, TranslucentShapesBlendWithWhatIsUnderThem)
{
    fill({0, 0, 10, 10}, solid({0, 0, 0}));
    fill({2, 2, 4, 4}, solid({255, 255, 255}, 0.5));
    ASSERT_EQ(port.calls.size(), 2U);
    EXPECT_EQ(lastColor(), (Rgb{128, 128, 128}));
    EXPECT_EQ(told(), "");
}

TEST_F(PainterTest, GroupsHideWhatTheyThemselvesCover)
{
    painter.beginGroup(0.5);
    fill({0, 0, 10, 10}, solid({0, 0, 0}));
    fill({0, 0, 10, 10}, solid({255, 0, 0}));
    painter.endGroup();
    EXPECT_EQ(lastColor(), (Rgb{255, 128, 128}));
}

TEST_F(PainterTest, TranslucentShapesInGroupsAreComposedWithTheGroup)
{
    fill({0, 0, 10, 10}, solid({0, 0, 0}));
    painter.beginGroup(0.5);
    fill({0, 0, 10, 10}, solid({0, 255, 0}));
    EXPECT_EQ(lastColor(), (Rgb{0, 128, 0}));
    fill({0, 0, 10, 10}, solid({255, 0, 0}, 0.5));
    EXPECT_EQ(lastColor(), (Rgb{64, 64, 0}));
    painter.beginGroup(0.5);
    fill({0, 0, 10, 10}, solid({0, 0, 255}));
    EXPECT_EQ(lastColor(), (Rgb{32, 32, 64}));
    painter.endGroup();
    painter.endGroup();
}

TEST_F(PainterTest, ClipsOnlyWhatNeedsIt)
{
    painter.pushClip({{{outlineOf({0, 0, 10, 10}), FillRule::NonZero, Matrix(), nullptr}}, nullptr});
    fill({2, 2, 4, 4}, solid({0, 0, 0}));
    EXPECT_TRUE(port.last->clipRegion().isFull());
    fill({5, 5, 10, 10}, solid({0, 0, 0}));
    EXPECT_EQ(port.last->clipRegion().boundingRect(), (QsdRect{0, 0, 1000, 1000}));
    const std::size_t before = port.calls.size();
    fill({20, 20, 4, 4}, solid({0, 0, 0}));
    EXPECT_EQ(port.calls.size(), before) << "outside of the clip";
}

TEST_F(PainterTest, GradientsAreBands)
{
    auto gradient = std::make_shared<Gradient>();
    gradient->end = {10, 0};
    gradient->stops = {{0, {0, 0, 0}, 1}, {1, {255, 255, 255}, 1}};
    fill({0, 0, 10, 10}, {std::shared_ptr<const Gradient>(gradient), 1});
    EXPECT_GT(port.calls.size(), 8U);
    EXPECT_GT(lastColor().r, 230);
    EXPECT_EQ(told(), "");
}

TEST_F(PainterTest, TilesRepeat)
{
    auto tile = std::make_shared<Tile>();
    tile->cell = {0, 0, 10, 10};
    tile->draw = [](Canvas& canvas, const Matrix& map) {
        canvas.fill(outlineOf({1, 1, 5, 5}), FillRule::NonZero, {Rgb{255, 0, 0}, 1}, map);
    };
    fill({0, 0, 20, 20}, {std::shared_ptr<const Tile>(tile), 1});
    EXPECT_EQ(port.calls.size(), 4U);
    EXPECT_EQ(told(), "");
}

TEST_F(PainterTest, TilesThatMeetAreOneArea)
{
    auto tile = std::make_shared<Tile>();
    tile->cell = {0, 0, 10, 10};
    tile->draw = [](Canvas& canvas, const Matrix& map) {
        canvas.fill(outlineOf({0, 0, 10, 10}), FillRule::NonZero, {Rgb{255, 0, 0}, 1}, map);
        canvas.fill(outlineOf({2, 2, 5, 5}), FillRule::NonZero, {Rgb{0, 0, 255}, 1}, map);
    };
    fill({0, 0, 20, 20}, {std::shared_ptr<const Tile>(tile), 1});
    ASSERT_EQ(port.calls.size(), 5U);
    EXPECT_EQ(port.calls[0], "fillRectangle 0,0 2000x2000");
    EXPECT_EQ(port.calls[4], "fillRectangle 1200,1200 500x500");
}

TEST_F(PainterTest, BandsThatHideNothingAreLeftOut)
{
    auto gradient = std::make_shared<Gradient>();
    gradient->end = {10, 0};
    gradient->stops = {{0, {0, 0, 0}, 0}, {0.5, {0, 0, 0}, 0}, {0.5, {0, 0, 0}, 1}, {1, {0, 0, 0}, 1}};
    fill({0, 0, 5, 10}, solid({255, 0, 0}));
    port.calls.clear();
    fill({0, 0, 10, 10}, {std::shared_ptr<const Gradient>(gradient), 1});
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_EQ(port.calls[0], "fillRectangle 500,0 500x1000");
}

TEST_F(PainterTest, LinesOfThePortWhereTheyFit)
{
    Path path;
    path.moveTo({0, 0});
    path.lineTo({10, 0});
    StrokeStyle style;
    style.width = 2;
    painter.stroke(path, style, solid({0, 0, 0}), Matrix());
    EXPECT_EQ(port.calls.back().rfind("drawLine", 0), 0U);
    EXPECT_EQ(port.last->lineWidth(), 200);
    style.cap = LineCap::Square;
    painter.stroke(path, style, solid({0, 0, 0}), Matrix());
    EXPECT_EQ(port.calls.back().rfind("fillRectangle", 0), 0U);
}

TEST_F(PainterTest, TellsOfImages)
{
    painter.image({}, 1, Matrix());
    EXPECT_NE(told().find("1 image left out: it cannot be read"), std::string::npos);
}

TEST_F(PainterTest, TranslucentGradientsOverBusyGroundBecomeOnePicture)
{
    for (int i = 0; i < 60; ++i) {
        fill({i * 4.0, 0, 2, 200},
             solid({static_cast<std::uint8_t>(i * 4), 0, static_cast<std::uint8_t>(255 - i * 4)}));
    }
    port.calls.clear();
    auto gradient = std::make_shared<Gradient>();
    gradient->end = {240, 0};
    gradient->stops = {{0, {255, 255, 255}, 0.1}, {1, {0, 0, 0}, 0.9}};
    const Paint paint{std::shared_ptr<const Gradient>(gradient), 1};
    fill({0, 50, 240, 100}, paint);
    fill({0, 60, 240, 80}, paint);
    EXPECT_TRUE(port.calls.empty()) << "held back";
    // What does not touch them may be drawn before; what does may not.
    fill({0, 300, 10, 10}, solid({0, 0, 0}));
    ASSERT_EQ(port.calls.size(), 1U);
    fill({20, 70, 10, 10}, solid({0, 0, 0}));
    ASSERT_EQ(port.calls.size(), 3U);
    EXPECT_EQ(port.calls[1].rfind("stretch", 0), 0U) << port.calls[1];
    painter.finish();
    EXPECT_EQ(port.calls.size(), 3U);
    fill({0, 50, 240, 100}, paint);
    painter.finish();
    EXPECT_EQ(port.calls.size(), 4U);
}

TEST_F(PainterTest, DrawsTextsThatStringsCannotShowAsOutlines)
{
    if (tools.letters.find({}) == nullptr) {
        GTEST_SKIP() << "no fonts are installed";
    }
    TextChunk chunk = redLetter("Helvetica");
    painter.text(chunk, Matrix());
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_EQ(port.calls[0].rfind("drawString", 0), 0U);

    chunk.spans[0].stroke = solid({0, 0, 255});
    painter.text(chunk, Matrix());
    ASSERT_GE(port.calls.size(), 3U);
    EXPECT_EQ(port.calls[1].rfind("fill", 0), 0U);
    EXPECT_EQ(lastColor(), (Rgb{0, 0, 255}));
    EXPECT_EQ(told(), "");
}

TEST_F(PainterTest, PaintsLettersInTheOrderAskedFor)
{
    if (tools.letters.find({}) == nullptr) {
        GTEST_SKIP() << "no fonts are installed";
    }
    TextChunk chunk = redLetter("Helvetica");
    chunk.spans[0].stroke = solid({0, 0, 255});
    chunk.spans[0].strokeFirst = true;
    painter.text(chunk, Matrix());
    ASSERT_EQ(port.calls.size(), 2U);
    EXPECT_EQ(lastColor(), (Rgb{255, 0, 0}));
}

TEST_F(PainterTest, ClipsAlongTheLettersOfATextThatIsSeen)
{
    ClipPath clip;
    clip.outlines.push_back({{}, FillRule::NonZero, Matrix(), nullptr, nullptr, {redLetter("Helvetica")}});
    painter.pushClip(clip);
    fill({0, 0, 100, 100}, solid({0, 0, 255}));
    painter.popClip();
    if (tools.letters.find({}) == nullptr) {
        EXPECT_TRUE(port.calls.empty());
        EXPECT_EQ(told(), "x: 1 text in a clipPath element left out\n");
        return;
    }
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_EQ(port.calls[0].rfind("fill", 0), 0U);
    EXPECT_EQ(port.calls[0].find("fillRectangle"), std::string::npos) << "no letter is a rectangle";
    EXPECT_EQ(told(), "");
    clip.outlines[0].texts[0].spans[0].fill = {};
    painter.pushClip(clip);
    fill({0, 0, 100, 100}, solid({0, 0, 255}));
    painter.popClip();
    EXPECT_EQ(port.calls.size(), 1U);
}

TEST_F(PainterTest, ClipsOfTooManyLettersAreTold)
{
    ClipPath clip;
    clip.outlines.push_back({{}, FillRule::NonZero, Matrix(), nullptr, nullptr, {redLetter("Helvetica")}});
    clip.outlines[0].texts[0].spans[0].text = std::string(100'001, 'H');
    painter.pushClip(clip);
    EXPECT_EQ(told(), "x: 1 text in a clipPath element left out\n");
}

TEST_F(PainterTest, StretchesLettersToTheWidthOfTheKindThatWasAskedFor)
{
    TextChunk chunk = redLetter("sans-serif");
    painter.text(chunk, Matrix());
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_EQ(port.calls[0].rfind("drawTransformedString", 0), 0U);
    EXPECT_EQ(told(), "");
}

TEST_F(PainterTest, DrawsTextsInTheFormAskedFor)
{
    if (tools.letters.find({}) == nullptr) {
        GTEST_SKIP() << "no fonts are installed";
    }
    TextChunk chunk = redLetter("Helvetica");
    tools.textForm = TextForm::Outlines;
    painter.text(chunk, Matrix());
    ASSERT_FALSE(port.calls.empty());
    EXPECT_EQ(port.calls.back().rfind("fill", 0), 0U);
    EXPECT_EQ(told(), "");

    tools.textForm = TextForm::Strings;
    chunk.spans[0].font.families = {"Nowhere"};
    painter.text(chunk, Matrix());
    EXPECT_NE(port.calls.back().find("String"), std::string::npos);
    EXPECT_EQ(told(), "x: 1 text shown in another font: no printer and no installed font has its letters\n");
}

TEST_F(PainterTest, TranslucentLettersLieOnOneGround)
{
    if (tools.letters.find({}) == nullptr) {
        GTEST_SKIP() << "no fonts are installed";
    }
    TextChunk chunk;
    chunk.at = {10, 50};
    chunk.spans.push_back({});
    chunk.spans[0].text = std::string(200, 'H');
    chunk.spans[0].textLength = 0.01; // all on one place, too many for one area
    chunk.spans[0].font.families = {"Nowhere"};
    chunk.spans[0].fill = solid({0, 0, 0}, 0.5);
    painter.text(chunk, Matrix());
    EXPECT_GE(port.calls.size(), 2U);
    EXPECT_EQ(lastColor(), (Rgb{128, 128, 128}));
}

TEST_F(PainterTest, TextsTooLongForOutlinesAreStrings)
{
    TextChunk chunk;
    chunk.spans.push_back({});
    chunk.spans[0].text = std::string(20'001, 'H');
    chunk.spans[0].font.families = {"Nowhere"};
    chunk.spans[0].fill = solid({0, 0, 0});
    painter.text(chunk, Matrix());
    ASSERT_EQ(port.calls.size(), 1U);
    EXPECT_NE(port.calls[0].find("String"), std::string::npos);
    EXPECT_EQ(told(), "x: 1 text shown in another font: no printer and no installed font has its letters\n");
    tools.textForm = TextForm::Outlines;
    chunk.spans[0].text = std::string(200'001, 'H');
    painter.text(chunk, Matrix());
    EXPECT_NE(told().find("1 text kept as a string: it cannot be outlined"), std::string::npos);
}
