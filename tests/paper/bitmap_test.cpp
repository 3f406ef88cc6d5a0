// Edges of shapes on bitmaps that pages of the interpreter are too coarse a measure for.
#include "call.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/raster/QsdPolygonFill.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class BitmapTest : public testing::Test {
protected:
    BitmapTest()
    {
        bitmap.clear(palette.get());
        palette->setForeground(display.black());
    }
    [[nodiscard]] bool isBlack(int x, int y) const { return Picture(bitmap).at(x, y) == QsdRGB{}; }

    QsdMemoryDisplay display;
    QsdHandle<QsdPalette> palette = paletteOf(display);
    QsdBitmap bitmap{&display, PageWidth, PageHeight, 0};
};

// The middle of the circle lies in the middle of a row of pixels.
TEST_F(BitmapTest, WholeTurnsHaveNoGap)
{
    bitmap.fillArc(palette.get(), {10, 10, 31, 31}, 0, 360);
    for (int x = 10; x < 41; ++x) {
        EXPECT_TRUE(isBlack(x, 25)) << x;
    }
}

TEST_F(BitmapTest, EnlargedArcsAreRound)
{
    constexpr int Radius = 50;
    bitmap.setTransformer(QsdTransformer().scale(25, 25));
    bitmap.fillArc(palette.get(), {0, 0, 4, 4}, 0, 360);
    const Picture picture(bitmap);
    for (int y = 0; y < 2 * Radius; ++y) {
        for (int x = 0; x < 2 * Radius; ++x) {
            const double distance = std::hypot(x + 0.5 - Radius, y + 0.5 - Radius);
            if (std::fabs(distance - Radius) > 0.2) {
                EXPECT_EQ(picture.at(x, y) == QsdRGB{}, distance < Radius) << x << " " << y;
            }
        }
    }
}

TEST_F(BitmapTest, LettersStayInTheirLine)
{
    const QsdPoint at{10, 60};
    const auto font = QsdHandle<QsdFont>::Adopt(new QsdFont("Courier", QsdFontBold, 36));
    palette->setFont(font.get());
    bitmap.drawString(palette.get(), at, "AMNVW", -1, QsdPositionLeft);
    const QsdRect extent = Picture(bitmap).extent(Paper);
    EXPECT_GE(extent.y, at.y - font->size());
    EXPECT_LE(extent.bottom(), at.y + font->descent());
}

// Edges through the middles of pixels, and points beside them by less than anybody sees.
TEST_F(BitmapTest, CrumbsDoNotMoveEdges)
{
    for (const double crumb : {-1e-9, 1e-9}) {
        const QsdChain square{{2.5 + crumb, 2.5 - crumb}, {8.5 - crumb, 2.5}, {8.5, 8.5 + crumb}, {2.5, 8.5}};
        int rows = 0;
        QsdFillPolygons({square}, true, {0, 0, 20, 20}, [&](std::int32_t, std::int32_t left, std::int32_t right) {
            EXPECT_EQ(left, 2);
            EXPECT_EQ(right, 8);
            ++rows;
        });
        EXPECT_EQ(rows, 6);
    }
}

} // namespace
