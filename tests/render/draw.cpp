// Draws the operations of the port at known places, for a test that looks at the pixels: draw FILE LEVEL rgb|grey
// classic|print [eps]. An encapsulated document has one page, others have two.
#include "render_device.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

namespace {

QsdHandle<QsdColor> color(std::uint16_t red, std::uint16_t green, std::uint16_t blue)
{
    return QsdHandle<QsdColor>::Adopt(new QsdColor(red, green, blue));
}

const auto Red = color(65535, 0, 0);
const auto Blue = color(0, 0, 65535);

/// Each operation fills or crosses a cell of 40 by 40 units; the cells stand side by side, ten to a row.
QsdPoint cell(int number)
{
    return {number % 10 * 40, number / 10 * 40};
}

void drawLines(const QsdPort& port, QsdPalette& palette)
{
    palette.setForeground(Red.get());
    palette.setLineStyle(nullptr, 10);
    const QsdPoint a = cell(0);
    port.drawLine(&palette, {a.x, a.y + 20}, {a.x + 40, a.y + 20});
    const QsdPoint b = cell(1);
    const QsdPoint corner[] = {{b.x + 5, b.y}, {b.x + 5, b.y + 35}, {b.x + 40, b.y + 35}};
    port.drawPolyLine(&palette, 3, corner);
    const QsdPoint c = cell(2);
    const QsdDeltaPoint steps[] = {{0, 35}, {35, 0}};
    port.drawPolyLine(&palette, {c.x + 5, c.y}, 3, steps);
    const QsdPoint d = cell(3);
    const QsdPoint starts[] = {{d.x, d.y + 5}, {d.x, d.y + 35}};
    const QsdPoint ends[] = {{d.x + 40, d.y + 5}, {d.x + 40, d.y + 35}};
    port.drawSegments(&palette, 2, starts, ends);
    const QsdPoint e = cell(4);
    port.drawRectangle(&palette, {e.x + 5, e.y + 5, 30, 30});
    const QsdPoint f = cell(5);
    port.drawArc(&palette, {f.x - 15, f.y + 5, 50, 50}, 0, 90);
    const QsdPoint g = cell(6);
    const QsdPoint curve[] = {{g.x, g.y + 20}, {g.x + 10, g.y + 20}, {g.x + 30, g.y + 20}, {g.x + 40, g.y + 20}};
    port.drawBezier(&palette, 4, curve);
}

void fillAreas(const QsdPort& port, QsdPalette& palette)
{
    palette.setForeground(Blue.get());
    const QsdPoint a = cell(10);
    port.fillRectangle(&palette, {a.x, a.y, 20, 40});
    const QsdPoint b = cell(11);
    const QsdPoint triangle[] = {{b.x, b.y}, {b.x + 40, b.y}, {b.x, b.y + 40}};
    port.fillPolyLine(&palette, 3, triangle, true);
    const QsdPoint c = cell(12);
    const QsdDeltaPoint steps[] = {{40, 0}, {-40, 40}};
    port.fillPolyLine(&palette, c, 3, steps, true);
    const QsdPoint d = cell(13);
    port.fillArc(&palette, {d.x - 40, d.y, 80, 80}, 0, 90);
    const QsdPoint e = cell(14);
    palette.setArcMode(QsdArcChord);
    port.fillArc(&palette, {e.x - 40, e.y, 80, 80}, 0, 90);
    palette.setArcMode(QsdArcPie);
    const QsdPoint outer[] = {cell(15), {cell(15).x + 40, 40}, {cell(15).x + 40, 80}, {cell(15).x, 80}};
    const QsdPoint inner[] = {
        {cell(15).x + 10, 50}, {cell(15).x + 30, 50}, {cell(15).x + 30, 70}, {cell(15).x + 10, 70}};
    const QsdPointArray rings[] = {QsdPointArray(4, outer), QsdPointArray(4, inner)};
    port.fillPaths(&palette, 2, rings);
    const QsdPoint g = cell(16);
    palette.setClipRegion(QsdRegion(QsdRect{g.x, g.y, 20, 20}));
    port.fillRectangle(&palette, {g.x, g.y, 40, 40});
    palette.setClipRegion(QsdRegion::Full());
    const unsigned char stripes[] = {0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0};
    const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 8, stripes));
    palette.setPattern(pattern.get());
    palette.setBackground(Red.get());
    port.fillRectangle(&palette, {cell(17).x, cell(17).y, 40, 40});
    palette.setPattern(nullptr);
}

void drawBitmaps(const QsdPort& port, QsdPalette& palette, QsdDisplay& display)
{
    QsdRGBBitmapData data(2, 2);
    data.setPixel(0, 0, {255, 0, 0});
    data.setPixel(1, 1, {0, 0, 255});
    const QsdBitmap bitmap(&display, data);
    port.stretchBitmap(&palette, QsdRect{cell(20).x, cell(20).y, 40, 40}, &bitmap, nullptr);
    const unsigned char diagonal[] = {0x80, 0x40};
    QsdRGBBitmapData large(40, 40);
    for (std::uint32_t y = 0; y < 40; ++y) {
        for (std::uint32_t x = 0; x < 40; ++x) {
            large.setPixel(x, y, data.pixel(x / 20, y / 20));
        }
    }
    QsdBitmap masked(&display, large);
    auto mask = std::make_unique<QsdBitmap>(&display, 40U, 40U, std::uint16_t{1});
    const QsdHandle<QsdPalette> ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    mask->fillRectangle(ink.get(), {0, 0, 20, 20});
    mask->fillRectangle(ink.get(), {20, 20, 20, 20});
    masked.setMask(std::move(mask));
    port.drawTransparentBitmap(&palette, &masked, {0, 0, 40, 40}, cell(21));
    const std::unique_ptr<QsdBitmap> bits = QsdBitmap::FromBits(&display, 2, 2, diagonal);
    palette.setForeground(Blue.get());
    port.stretchBitmap(&palette, QsdRect{cell(22).x, cell(22).y, 40, 40}, bits.get(), nullptr);
    QsdTransformer quarter;
    quarter.scale(20, 20).rotate(90);
    port.stretchBitmap(&palette, QsdPoint{cell(23).x, cell(23).y + 40}, &bitmap, quarter, nullptr);
}

} // namespace

int main(int count, char** argv)
{
    const bool encapsulated = count > 5;
    QsdRect box{0, 0, 400, 120};
    QsdMemoryDisplay display;
    const std::unique_ptr<QsdPSDevice> device =
        makeDevice(argv[4], display, std::string(argv[3]) == "grey" ? QsdPSGrey : QsdPSRGB);
    device->setPaperWidth(400);
    device->setPaperHeight(120);
    device->setPostScriptLevel(std::strtoul(argv[2], nullptr, 10));
    if (!device->initDevice(argv[1], encapsulated ? &box : nullptr)) {
        return 1;
    }
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    for (int page = 0; page < (encapsulated ? 1 : 2); ++page) {
        if (page != 0) {
            device->newPage();
        }
        drawLines(*device, *palette);
        fillAreas(*device, *palette);
        drawBitmaps(*device, *palette, display);
        palette->setBackground(nullptr);
    }
    device->end();
    return device->writeFailed() ? 1 : 0;
}
