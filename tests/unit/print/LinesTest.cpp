// Lines of documents are no longer than the structuring conventions take, whatever is drawn; PrintPage::whole checks
// each.
#include "tests/fuzz/scanner.h"
#include "tests/unit/print/PrintDevice.h"
#include "toolkit/base/QsdGlobalContext.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace {

constexpr unsigned long Many = 500;

/// Points whose coordinates are as long as can be.
std::vector<QsdPoint> farPoints()
{
    std::vector<QsdPoint> points;
    for (unsigned long i = 0; i < Many; ++i) {
        const auto step = static_cast<std::int32_t>(i);
        points.push_back({std::numeric_limits<std::int32_t>::min() + step, -2000000000 + step});
    }
    return points;
}

QsdRegion farRectangles()
{
    QsdRegion region;
    for (std::int32_t i = 0; i < 100; ++i) {
        region.unite(QsdRect{-2000000000 + 2000 * i, -1900000000 + 3000 * i, 1000, 1000});
    }
    return region;
}

std::string everyByte(unsigned first)
{
    std::string text;
    for (unsigned byte = first; byte < 256; ++byte) {
        text += static_cast<char>(byte);
    }
    return text;
}

/// What the strings of a page's text hold.
std::vector<std::string> stringsOf(const std::string& page)
{
    std::vector<std::string> strings;
    const Scan scanned = scan(page);
    EXPECT_TRUE(scanned.wellFormed);
    EXPECT_TRUE(scanned.comments.empty());
    for (const Token& token : scanned.tokens) {
        if (token.kind == Token::Kind::String) {
            strings.push_back(token.text);
        }
    }
    return strings;
}

TEST(PrintLines, PathsAreBroken)
{
    const std::vector<QsdPoint> points = farPoints();
    const std::vector<QsdDeltaPoint> steps(Many, QsdDeltaPoint{-32768, -32767});
    const QsdPointArray arrays[] = {QsdPointArray(points), QsdPointArray(points)};
    for (const unsigned style : {QsdFillPattern, QsdFillMaskPattern}) {
        PrintPage page;
        const unsigned char bits[] = {0x80, 0x40};
        page.palette->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(2, 2, bits)).get());
        page.palette->setFillStyle(static_cast<QsdFillStyle>(style));
        const QsdPalette* const palette = page.palette.get();
        page.device.drawPoints(palette, Many, points.data());
        page.device.drawSegments(palette, Many, points.data(), points.data());
        page.device.drawPolyLine(palette, Many, points.data());
        page.device.drawPolyLine(palette, points[0], Many, steps.data());
        page.device.fillPolyLine(palette, Many, points.data(), false);
        page.device.fillPolyLine(palette, points[0], Many, steps.data(), false);
        page.device.drawBezier(palette, Many, points.data());
        page.device.drawClosedBezier(palette, Many, points.data());
        page.device.fillPaths(palette, 2, arrays);
        for (const unsigned long count : {Many, Many + 1, Many + 2}) {
            std::vector<QsdPoint> curve = points;
            curve.resize(count, points.back());
            page.device.fillBezier(palette, count, curve.data());
        }
        page.whole();
    }
}

TEST(PrintLines, ALongPathIsTheSameAsInOneLine)
{
    std::vector<QsdPoint> points;
    std::string expected = "n 0 0 M ";
    for (std::int32_t i = 0; i < 100; ++i) {
        points.push_back({i, i * i});
        if (i != 0) {
            expected += std::to_string(i) + " " + std::to_string(i * i) + " L ";
        }
    }
    PrintPage page;
    const QsdPointArray array(points);
    page.device.fillPaths(page.palette.get(), 1, &array);
    std::string drawn = PrintPage::drawing(page.whole());
    std::size_t lines = 0;
    for (std::size_t at = drawn.find('\n'); at != std::string::npos; at = drawn.find('\n', at)) {
        drawn.erase(at, 1);
        ++lines;
    }
    EXPECT_EQ(drawn, "0 sg" + expected + "eofill");
    EXPECT_GT(lines, 8U);
}

TEST(PrintLines, ClipsAndDashesAreBroken)
{
    PrintPage page;
    const QsdRegion region = farRectangles();
    page.device.clip(&region);
    page.device.newPage();
    const std::vector<std::uint8_t> dashes(1000, 255);
    page.palette->setLineStyle(QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(1000, dashes.data())).get(), 1);
    page.palette->setClipRegion(region);
    page.device.drawLine(page.palette.get(), {0, 0}, {1, 1});
    page.whole();
}

TEST(PrintLines, TextsAreBrokenInEveryEncoding)
{
    for (const char* const locale : {"C", "ja_JP.eucJP", "ja_JP.SJIS"}) {
        QsdGlobalContext::GetInstance().setLocale(QsLocale(locale));
        for (const char first : {'x', '%', '(', '\x01', '\xB0', '\x8E'}) {
            // All that a line may begin with falls on its beginning for some length.
            PrintPage page;
            const QsdPalette* const palette = page.palette.get();
            for (int i = 0; i < 20; ++i) {
                const std::string text = std::string(static_cast<std::size_t>(i), 'x') + std::string(300, first) + "%%";
                page.device.drawString(palette, {-2147483647, -2147483647}, text.c_str(), -1, QsdPositionRight);
                page.device.drawIString(palette, {-2147483647, -2147483647}, text.c_str(), -1, QsdPositionCenter);
                page.device.drawTransformedString(palette, text.c_str(), -1,
                                                  QsdTransformer(-1.23456e-300, -1.23456e-300, -1.23456e-300,
                                                                 -1.23456e-300, -1.23456e-300, -1.23456e-300),
                                                  nullptr);
            }
            page.whole();
        }
    }
}

TEST(PrintLines, BrokenTextsHoldTheSame)
{
    std::string text;
    for (int i = 0; i < 300; ++i) {
        text += everyByte(1).substr(static_cast<std::size_t>(i) % 200, 40);
    }
    // The scanner of the interpreter makes line feeds of all line ends.
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    PrintPage page;
    page.device.drawString(page.palette.get(), {0, 0}, text.c_str(), -1, QsdPositionNone);
    const std::vector<std::string> strings = stringsOf(PrintPage::drawing(page.whole()));
    ASSERT_EQ(strings.size(), 1U);
    EXPECT_EQ(strings[0], text);
}

// A line of a text that looks like a comment would be taken for one.
TEST(PrintLines, LineEndsAndControlsWithinTextsAreEscaped)
{
    PrintPage page;
    const char text[] = "a\n%%EOF\r%%Page: 2 2\r\n\t\x04";
    page.device.drawString(page.palette.get(), {0, 0}, text, -1, QsdPositionNone);
    EXPECT_NE(PrintPage::drawing(page.whole()).find("(a\\n%%EOF\\n%%Page: 2 2\\n\\011\\004)"), std::string::npos);
}

TEST(PrintLines, NamesOfFontsAreBroken)
{
    for (const std::size_t size : {90U, 130U, 180U, 200U, 201U, 300U, 700U}) {
        for (const char letter : {'x', '(', '%', '\xE4'}) {
            const std::string name(size, letter);
            PrintPage page;
            page.device.writeFontSelection(12, name.c_str(), "-Bold", false);
            page.device.writeFontSelection(12, name.c_str(), "-QSD-H", true);
            page.device.drawLine(page.palette.get(), {0, 0}, {1, 1});
            const std::string text = page.whole();
            const Scan setup = scan(PrintPage::part(text, "QsdPrintDict begin\n/F1", "%%EndSetup\n"));
            EXPECT_TRUE(setup.comments.empty());
            // Whole names, whatever the comments tell.
            std::size_t found = 0;
            for (const Token& token : setup.tokens) {
                found +=
                    token.text == name + "-Bold" || token.text == name + "-Bold-Qsd" || token.text == name + "-QSD-H";
            }
            EXPECT_EQ(found, 4U) << size << letter;
        }
    }
}

} // namespace
