// What documents get to see of the server's pixels.
#include "tests/x11/support.h"

#include "tests/unit/ps/TestDevice.h"
#include "toolkit/x11/QsdXWindow.h"

namespace {

using DocumentTest = XTest;

/// Something that has all colours, corners and edges.
void drawScene(const QsdPort& port, QsdPalette& palette)
{
    constexpr QsdRGB White{255, 255, 255};
    setColors(palette, {}, White);
    port.clear(&palette);
    for (int i = 0; i < 20; ++i) {
        setColors(palette, {static_cast<std::uint8_t>(i % 6 * 51), static_cast<std::uint8_t>(i % 5 * 51), 102}, White);
        port.fillRectangle(&palette, {i * 3 - 8, i * 2 - 5, 17, 9});
    }
}

std::string documentOf(const QsdSystemPort& port)
{
    const QsdHandle<QsdPalette> palette = paletteOf(*port.display());
    TestDevice device(port.display());
    device.initDevice("unused", nullptr);
    device.taken();
    device.drawBitmap(palette.get(), &port, areaOf(port), {10, 20});
    std::string document = device.taken();
    device.end();
    return document;
}

TEST_F(DocumentTest, WindowsPixmapsAndBitmapsPrintAlike)
{
    if (display->screenDepth() == 16) {
        GTEST_SKIP() << "bitmaps have more colours than this screen";
    }
    const QsdHandle<QsdPalette> palette = paletteOf(*display);
    for (const std::uint16_t depth : {std::uint16_t{1}, display->screenDepth()}) {
        const QsdXPixmap pixmap(display.get(), 45, 37, depth);
        const QsdBitmap bitmap(display.get(), 45, 37, depth);
        drawScene(pixmap, *palette);
        drawScene(bitmap, *palette);
        const std::string expected = documentOf(bitmap);
        EXPECT_GT(expected.size(), 300U);
        EXPECT_EQ(documentOf(pixmap), expected);
    }
    QsdXWindow window(display.get(), 45, 37, "shown nowhere");
    const QsdXPixmap pixmap(display.get(), 45, 37, 0);
    drawScene(window, *palette);
    drawScene(pixmap, *palette);
    EXPECT_EQ(documentOf(window), documentOf(pixmap));
}

} // namespace
