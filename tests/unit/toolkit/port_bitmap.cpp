// Drawing into bitmaps.
#include "toolkit/graphics/QsdBidiString.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Rows = std::vector<std::string>;

/// A character a pixel: '.' for 0, '#' for the foreground or other ink, 'o' for the background of these tests.
Rows rowsOf(const QsdBitmap& bitmap)
{
    Rows rows;
    for (std::uint32_t y = 0; y < bitmap.pixels().height(); ++y) {
        std::string row;
        for (std::uint32_t x = 0; x < bitmap.pixels().width(); ++x) {
            const QsdPixels::Value value = bitmap.pixels().get(x, y);
            row += value == 0 ? '.' : value == 0x00FF00 ? 'o' : '#';
        }
        rows.push_back(row);
    }
    return rows;
}

/// Red on green on a bitmap of black pixels.
class BitmapDrawing : public testing::Test {
protected:
    BitmapDrawing() : palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display))), bitmap(&display, 8, 6, 24)
    {
        const auto red = QsdHandle<QsdColor>::Adopt(new QsdColor(65535, 0, 0));
        const auto green = QsdHandle<QsdColor>::Adopt(new QsdColor(0, 65535, 0));
        palette->setForeground(red.get());
        palette->setBackground(green.get());
    }
    void setPattern(std::uint16_t width, std::uint16_t height, const std::vector<unsigned char>& bits) const
    {
        const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(width, height, bits.data()));
        palette->setPattern(pattern.get());
    }

    QsdMemoryDisplay display;
    QsdHandle<QsdPalette> palette;
    QsdBitmap bitmap;
};

TEST_F(BitmapDrawing, PointsAndLines)
{
    const QsdPoint points[] = {{0, 0}, {7, 5}, {8, 0}, {-1, 2}, {2147483647, 0}};
    bitmap.drawPoints(palette.get(), 5, points);
    bitmap.drawLine(palette.get(), {1, 1}, {4, 4});
    bitmap.drawLine(palette.get(), {6, -2000000000}, {6, 2});
    bitmap.drawLine(palette.get(), {3, 5}, {3, 5});
    EXPECT_EQ(rowsOf(bitmap), (Rows{"#.....#.", ".#....#.", "..#...#.", "...#....", "....#...", "...#...#"}));
}

TEST_F(BitmapDrawing, PolyLinesInBothForms)
{
    const QsdPoint points[] = {{1, 1}, {5, 1}, {5, 4}};
    bitmap.drawPolyLine(palette.get(), 3, points);
    const Rows expected{"........", ".#####..", ".....#..", ".....#..", ".....#..", "........"};
    EXPECT_EQ(rowsOf(bitmap), expected);
    const QsdBitmap other(&display, 8, 6, 24);
    const QsdDeltaPoint deltas[] = {{4, 0}, {0, 3}};
    other.drawPolyLine(palette.get(), {1, 1}, 3, deltas);
    EXPECT_EQ(rowsOf(other), expected);
}

TEST_F(BitmapDrawing, RectanglesAndPolygons)
{
    bitmap.drawRectangle(palette.get(), {0, 0, 7, 5});
    bitmap.fillRectangle(palette.get(), {2, 2, 4, 1});
    EXPECT_EQ(rowsOf(bitmap), (Rows{"########", "#......#", "#.####.#", "#......#", "#......#", "########"}));
    const QsdBitmap other(&display, 8, 6, 24);
    const QsdPoint triangle[] = {{0, 0}, {6, 0}, {0, 6}};
    other.fillPolyLine(palette.get(), 3, triangle, true);
    EXPECT_EQ(rowsOf(other), (Rows{"#####...", "####....", "###.....", "##......", "#.......", "........"}));
}

TEST_F(BitmapDrawing, FillRulesTellPathsApart)
{
    const QsdPointArray rings[] = {QsdPointArray({{0, 0}, {8, 0}, {8, 6}, {0, 6}}),
                                   QsdPointArray({{2, 2}, {6, 2}, {6, 4}, {2, 4}}), QsdPointArray()};
    bitmap.fillPaths(palette.get(), 3, rings);
    EXPECT_EQ(rowsOf(bitmap)[2], "##....##");
    palette->setFillRule(QsdWindingRule);
    bitmap.fillPaths(palette.get(), 3, rings);
    EXPECT_EQ(rowsOf(bitmap)[2], "########");
}

TEST_F(BitmapDrawing, PatternsAreOpaqueOrMasks)
{
    setPattern(2, 2, {0x80, 0x40});
    bitmap.fillRectangle(palette.get(), {0, 0, 4, 2});
    palette->setFillStyle(QsdFillMaskPattern);
    bitmap.fillRectangle(palette.get(), {4, 0, 4, 2});
    EXPECT_EQ(rowsOf(bitmap)[0], "#o#o#.#.");
    EXPECT_EQ(rowsOf(bitmap)[1], "o#o#.#.#");
}

TEST_F(BitmapDrawing, ColourPatterns)
{
    QsdRGBBitmapData data(2, 1);
    data.setPixel(0, 0, {0, 255, 0});
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(display.createColorPattern(data));
    palette->setFillStyle(QsdFillColorPattern);
    bitmap.fillRectangle(palette.get(), {0, 0, 8, 1});
    EXPECT_EQ(rowsOf(bitmap)[0], "........") << "without a colour pattern there is nothing to paint";
    palette->setColorPattern(pattern.get());
    bitmap.fillRectangle(palette.get(), {0, 0, 8, 1});
    EXPECT_EQ(rowsOf(bitmap)[0], "o.o.o.o.");

    const QsdBitmap ink(&display, 8, 1, 1);
    ink.fillRectangle(palette.get(), {0, 0, 8, 1});
    EXPECT_EQ(rowsOf(ink)[0], "########") << "green is just below half of full light";
}

TEST_F(BitmapDrawing, ColourPatternsOfAOneBitScreen)
{
    QsdMemoryDisplay oneBit(1);
    QsdRGBBitmapData data(2, 1);
    data.setPixel(0, 0, {255, 255, 255});
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(oneBit.createColorPattern(data));
    const auto p = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&oneBit));
    p->setFillStyle(QsdFillColorPattern);
    p->setColorPattern(pattern.get());
    const QsdBitmap ink(&oneBit, 4, 1, 1);
    ink.fillRectangle(p.get(), {0, 0, 4, 1});
    EXPECT_EQ(rowsOf(ink)[0], ".#.#");
}

TEST_F(BitmapDrawing, ClipsMeet)
{
    const QsdRect own{1, 1, 5, 5};
    bitmap.clip(&own);
    palette->setClipRegion(QsdRegion(QsdRect{3, 0, 9, 3}));
    bitmap.fillRectangle(palette.get(), {-100, -100, 1000, 1000});
    EXPECT_EQ(rowsOf(bitmap), (Rows{"........", "...###..", "...###..", "........", "........", "........"}));
    const QsdRegion nothing;
    bitmap.clip(&nothing);
    palette->setClipRegion(QsdRegion::Full());
    bitmap.clear(palette.get());
    EXPECT_EQ(rowsOf(bitmap)[0], "........");
    bitmap.clip(static_cast<const QsdRegion*>(nullptr));
    bitmap.clear(palette.get());
    EXPECT_EQ(rowsOf(bitmap)[0], "oooooooo");
}

TEST_F(BitmapDrawing, TransformersMapShapesAndClips)
{
    bitmap.setTransformer(QsdTransformer(2, 0, 0, 2, 1, 1));
    palette->setClipRegion(QsdRegion(QsdRect{0, 0, 2, 9}));
    bitmap.fillRectangle(palette.get(), {0, 0, 9, 1});
    bitmap.drawPoint(palette.get(), {1, 2});
    EXPECT_EQ(rowsOf(bitmap), (Rows{"........", ".####...", ".####...", "........", "........", "...#...."}));
}

TEST_F(BitmapDrawing, WideAndDashedLines)
{
    palette->setLineStyle(nullptr, 3);
    bitmap.drawLine(palette.get(), {0, 2}, {8, 2});
    EXPECT_EQ(rowsOf(bitmap)[0], "........");
    EXPECT_EQ(rowsOf(bitmap)[1].substr(1), "#######");
    EXPECT_EQ(rowsOf(bitmap)[3].substr(1), "#######");
    EXPECT_EQ(rowsOf(bitmap)[4], "........");
    const std::uint8_t dashes[] = {1, 2};
    const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(2, dashes));
    palette->setLineStyle(style.get(), 0);
    bitmap.drawLine(palette.get(), {0, 5}, {7, 5});
    EXPECT_EQ(rowsOf(bitmap)[5], "#..#..#.");
}

TEST_F(BitmapDrawing, ArcsAndCurves)
{
    const QsdBitmap large(&display, 41, 41, 24);
    large.fillArc(palette.get(), {0, 0, 40, 40}, 0, 90);
    EXPECT_EQ(rowsOf(large)[10][30], '#') << "the quarter at the top right";
    EXPECT_EQ(rowsOf(large)[10][10], '.');
    EXPECT_EQ(rowsOf(large)[2][38], '.') << "outside the circle";
    palette->setArcMode(QsdArcChord);
    const QsdBitmap chord(&display, 41, 41, 24);
    chord.fillArc(palette.get(), {0, 0, 40, 40}, 0, 90);
    EXPECT_EQ(rowsOf(chord)[18][22], '.') << "inside the pie but not beyond the chord";
    EXPECT_EQ(rowsOf(chord)[8][32], '#');
    const QsdBitmap outline(&display, 41, 41, 24);
    outline.drawArc(palette.get(), {0, 0, 40, 40}, 0, 360);
    EXPECT_EQ(rowsOf(outline)[20][0], '#');
    EXPECT_EQ(rowsOf(outline)[0][20], '#');
    EXPECT_EQ(rowsOf(outline)[20][40], '#');
    EXPECT_EQ(rowsOf(outline)[20][20], '.');

    const QsdPoint points[] = {{1, 1}, {3, 1}, {5, 1}, {7, 1}, {7, 4}};
    bitmap.drawBezier(palette.get(), 5, points);
    EXPECT_EQ(rowsOf(bitmap), (Rows{"........", ".#######", ".......#", ".......#", ".......#", "........"}));
    bitmap.drawBezier(palette.get(), 1, points);
    bitmap.fillBezier(palette.get(), 5, points);
    EXPECT_EQ(rowsOf(bitmap)[2][6], '#') << "closed back to the start";
}

TEST_F(BitmapDrawing, CopiesOneBitBitmaps)
{
    const unsigned char bits[] = {0xC0, 0x80};
    const auto source = QsdBitmap::FromBits(&display, 2, 2, bits);
    bitmap.drawBitmap(palette.get(), source.get(), {0, 0, 2, 2}, {1, 1});
    bitmap.drawTransparentBitmap(palette.get(), source.get(), {0, 0, 2, 2}, {5, 1});
    EXPECT_EQ(rowsOf(bitmap)[1], ".##..##.");
    EXPECT_EQ(rowsOf(bitmap)[2], ".#o..#..");
    bitmap.drawBitmap(palette.get(), source.get(), {1, 0, 2, 1}, {0, 4});
    EXPECT_EQ(rowsOf(bitmap)[4], "#o......") << "outside the source bits are 0";
}

TEST_F(BitmapDrawing, CopiesHugeRectsOfSmallBitmaps)
{
    const unsigned char bits[] = {0x80};
    const auto source = QsdBitmap::FromBits(&display, 1, 1, bits);
    bitmap.drawBitmap(palette.get(), source.get(), {-1000000000, -1000000000, 4000000000U, 4000000000U},
                      {-1000000000, -1000000000});
    EXPECT_EQ(rowsOf(bitmap)[0], "#ooooooo");
    EXPECT_EQ(rowsOf(bitmap)[5], "oooooooo");
}

TEST_F(BitmapDrawing, CopiesColoursThroughTheMask)
{
    QsdRGBBitmapData data(3, 1);
    for (std::uint32_t x = 0; x < 3; ++x) {
        data.setPixel(x, 0, {0, 255, 0});
    }
    QsdBitmap source(&display, data);
    bitmap.drawTransparentBitmap(palette.get(), &source, {0, 0, 3, 1}, {0, 0});
    EXPECT_EQ(rowsOf(bitmap)[0], "........") << "no mask, nothing to see through";
    const unsigned char bits[] = {0x40};
    source.setMask(QsdBitmap::FromBits(&display, 2, 1, bits));
    bitmap.drawTransparentBitmap(palette.get(), &source, {0, 0, 3, 1}, {0, 0});
    EXPECT_EQ(rowsOf(bitmap)[0], ".o......");
    bitmap.drawBitmap(palette.get(), &source, {0, 0, 3, 1}, {4, 0});
    EXPECT_EQ(rowsOf(bitmap)[0], ".o..ooo.");
    const QsdBitmap ink(&display, 3, 1, 1);
    ink.drawBitmap(palette.get(), &source, {0, 0, 3, 1}, {0, 0});
    EXPECT_EQ(rowsOf(ink)[0], "###") << "green is just below half of full light";
}

TEST_F(BitmapDrawing, StretchesAndTurnsBitmaps)
{
    const unsigned char bits[] = {0x80, 0x00};
    const auto source = QsdBitmap::FromBits(&display, 2, 2, bits);
    bitmap.stretchBitmap(palette.get(), QsdRect{0, 0, 4, 4}, source.get(), nullptr);
    EXPECT_EQ(rowsOf(bitmap), (Rows{"##oo....", "##oo....", "oooo....", "oooo....", "........", "........"}));
    const QsdBitmap turned(&display, 8, 6, 24);
    const QsdRect clip{0, 0, 8, 4};
    // A quarter turn takes the set corner to the bottom left.
    turned.stretchBitmap(palette.get(), {4, 4}, source.get(), QsdTransformer(0, 1, -1, 0, 0, 0), &clip);
    EXPECT_EQ(rowsOf(turned), (Rows{"........", "........", "....oo..", "....#o..", "........", "........"}));
    turned.stretchTransparentBitmap(palette.get(), QsdRect{0, 4, 4, 2}, source.get(), nullptr);
    EXPECT_EQ(rowsOf(turned)[4], "##......");
    turned.stretchBitmap(palette.get(), {0, 0}, source.get(), QsdTransformer(0, 0, 0, 0, 0, 0), nullptr);
    EXPECT_EQ(rowsOf(turned)[0], "........") << "a map onto a point paints nothing";
}

TEST_F(BitmapDrawing, StretchesPixels)
{
    QsdRGBBitmapData data(2, 1);
    data.setPixel(1, 0, {255, 0, 0});
    bitmap.stretchBitmapData(palette.get(), &data, {1, 0, 1, 1}, {2, 2, 3, 2}, false);
    EXPECT_EQ(rowsOf(bitmap)[2], "..###...");
    EXPECT_EQ(rowsOf(bitmap)[4], "........");
}

/// The columns and rows that have ink.
QsdRect inkOf(const QsdBitmap& bitmap)
{
    QsdRect ink;
    for (std::uint32_t y = 0; y < bitmap.pixels().height(); ++y) {
        for (std::uint32_t x = 0; x < bitmap.pixels().width(); ++x) {
            if (bitmap.pixels().get(x, y) != 0) {
                ink = ink.united({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y), 1, 1});
            }
        }
    }
    return ink;
}

class BitmapText : public testing::Test {
protected:
    BitmapText() : palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display))) { setFont(QsdFontPlain); }
    void setFont(std::uint16_t style, std::uint16_t size = 20) const
    {
        const auto font = QsdHandle<QsdFont>::Adopt(new QsdFont("courier", style, size));
        palette->setFont(font.get());
    }

    QsdMemoryDisplay display;
    QsdHandle<QsdPalette> palette;
};

TEST_F(BitmapText, StandsOnItsBaselineInItsAdvance)
{
    // Every letter but those with descenders, and not the blank.
    for (const char* letter = "ABCDEFGHIKLMNOPRSTUVWXYZabcdefhiklmnorstuvwxz0123456789"; *letter != 0; ++letter) {
        const QsdBitmap bitmap(&display, 60, 60, 1);
        bitmap.drawString(palette.get(), {20, 30}, letter, 1, QsdPositionNone);
        const QsdRect ink = inkOf(bitmap);
        EXPECT_FALSE(ink.isEmpty()) << *letter;
        EXPECT_GE(ink.x, 19) << *letter;
        EXPECT_LE(ink.right(), 33) << *letter;
        EXPECT_GE(ink.y, 11) << *letter;
        EXPECT_GE(ink.bottom(), 29) << *letter;
        EXPECT_LE(ink.bottom(), 33) << *letter;
    }
}

TEST_F(BitmapText, HasAShapeOfItsOwnForEveryLetter)
{
    std::vector<Rows> seen;
    for (unsigned code = 33; code < 256; ++code) {
        if ((code > 126 && code < 161) || code == 0xAD) {
            continue;
        }
        const QsdBitmap bitmap(&display, 30, 40, 1);
        const char letter = static_cast<char>(code);
        bitmap.drawString(palette.get(), {5, 25}, &letter, 1, QsdPositionNone);
        EXPECT_FALSE(inkOf(bitmap).isEmpty()) << code;
        seen.push_back(rowsOf(bitmap));
    }
    std::sort(seen.begin(), seen.end());
    // Signs that differ in a hair alone may look the same at this size.
    EXPECT_GE(std::unique(seen.begin(), seen.end()) - seen.begin(), 180);
}

TEST_F(BitmapText, IsPlacedByPosition)
{
    const auto inkAt = [&](QsdPosition position) {
        const QsdBitmap bitmap(&display, 100, 40, 1);
        bitmap.drawString(palette.get(), {50, 25}, "HH", -1, position);
        return inkOf(bitmap);
    };
    // Two letters of courier are 24 units wide.
    EXPECT_EQ(inkAt(QsdPositionRight).x, inkAt(QsdPositionNone).x - 24);
    EXPECT_EQ(inkAt(QsdPositionCenter).x, inkAt(QsdPositionNone).x - 12);
    EXPECT_EQ(inkAt(QsdPositionLeft), inkAt(QsdPositionNone));
}

TEST_F(BitmapText, HasAnOpaqueBackground)
{
    palette->setForeground(display.white());
    palette->setBackground(display.black());
    const QsdBitmap bitmap(&display, 60, 60, 1);
    bitmap.drawIString(palette.get(), {10, 30}, "   ", 3, QsdPositionNone);
    const QsdFont& font = *palette->font();
    EXPECT_EQ(inkOf(bitmap),
              (QsdRect{10, 30 - font.ascent(), 36, static_cast<std::uint32_t>(font.ascent() + font.descent())}));
}

TEST_F(BitmapText, IsUnderlinedBoldAndSlanted)
{
    const auto inkOfStyle = [&](std::uint16_t style) {
        setFont(style, 40);
        const QsdBitmap bitmap(&display, 60, 60, 1);
        bitmap.drawString(palette.get(), {10, 40}, "I", 1, QsdPositionNone);
        return inkOf(bitmap);
    };
    const QsdRect plain = inkOfStyle(QsdFontPlain);
    EXPECT_GT(inkOfStyle(QsdFontBold).width, plain.width);
    EXPECT_GT(inkOfStyle(QsdFontItalic).width, plain.width);
    EXPECT_EQ(inkOfStyle(QsdFontUnderlined).width, 24U);
    EXPECT_GT(inkOfStyle(QsdFontUnderlined).bottom(), plain.bottom());
}

TEST_F(BitmapText, TransformedHangsFromItsOrigin)
{
    const QsdBitmap plain(&display, 80, 80, 1);
    plain.drawString(palette.get(), {30, 20 + palette->font()->ascent()}, "Hx", -1, QsdPositionNone);
    const QsdBitmap moved(&display, 80, 80, 1);
    moved.drawTransformedString(palette.get(), "Hx", -1, QsdTransformer(1, 0, 0, 1, 30, 20), nullptr);
    EXPECT_EQ(rowsOf(moved), rowsOf(plain));
    const QsdRegion clip(QsdRect{0, 0, 36, 80});
    const QsdBitmap clipped(&display, 80, 80, 1);
    clipped.drawTransformedString(palette.get(), "Hx", -1, QsdTransformer(1, 0, 0, 1, 30, 20), &clip);
    EXPECT_LE(inkOf(clipped).right(), 36);
    EXPECT_FALSE(inkOf(clipped).isEmpty());
}

TEST_F(BitmapText, WideTextsAreTheSameInTheirOrderOfSight)
{
    const QsdBitmap narrow(&display, 80, 40, 1);
    narrow.drawString(palette.get(), {5, 25}, "(ab", -1, QsdPositionNone);
    const QsdBitmap wide(&display, 80, 40, 1);
    wide.drawWChar(palette.get(), {5, 25}, L"(abc", 3, QsdPositionNone);
    EXPECT_EQ(rowsOf(wide), rowsOf(narrow));
    const QsdBidiString bidi(L"(abc", QsdBidiString::LeftToRight);
    const QsdBitmap ordered(&display, 80, 40, 1);
    ordered.drawString(palette.get(), {5, 25}, &bidi, 3, QsdPositionNone);
    EXPECT_EQ(rowsOf(ordered), rowsOf(narrow));
    const QsdBitmap nothing(&display, 80, 40, 1);
    nothing.drawWChar(palette.get(), {5, 25}, L"abc", 0, QsdPositionNone);
    EXPECT_TRUE(inkOf(nothing).isEmpty());
}

TEST_F(BitmapDrawing, NullBitmapsDrawNothing)
{
    const Rows before = rowsOf(bitmap);
    const QsdBitmap* const none = nullptr;
    bitmap.drawBitmap(palette.get(), none, {0, 0, 4, 4}, {0, 0});
    bitmap.drawTransparentBitmap(palette.get(), none, {0, 0, 4, 4}, {0, 0});
    bitmap.stretchBitmap(palette.get(), QsdPoint{0, 0}, none, QsdTransformer(), nullptr);
    bitmap.stretchTransparentBitmap(palette.get(), QsdPoint{0, 0}, none, QsdTransformer(), nullptr);
    bitmap.stretchBitmap(palette.get(), QsdRect{0, 0, 4, 4}, none, nullptr);
    bitmap.stretchTransparentBitmap(palette.get(), QsdRect{0, 0, 4, 4}, none, nullptr);
    bitmap.stretchBitmapData(palette.get(), nullptr, {0, 0, 1, 1}, {0, 0, 4, 4}, false);
    EXPECT_EQ(rowsOf(bitmap), before);
}

TEST_F(BitmapDrawing, NullBitsAreCleared)
{
    EXPECT_EQ(rowsOf(*QsdBitmap::FromBits(&display, 9, 1, nullptr)), Rows{"........."});
    EXPECT_EQ(rowsOf(*QsdBitmap::FromXBM(&display, 9, 1, nullptr)), Rows{"........."});
}

} // namespace
