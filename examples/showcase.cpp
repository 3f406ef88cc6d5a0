// A document that shows each operation of the port, with its name below it: showcase FILE [LEVEL [classic]]
#include "ps/QsdPSPrintDevice.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int Columns = 4;
constexpr int CellWidth = 130;
constexpr int CellHeight = 105;
constexpr int Left = 42;
constexpr int Top = 90;

QsdHandle<QsdColor> color(unsigned red, unsigned green, unsigned blue)
{
    const auto component = [](unsigned c) { return static_cast<std::uint16_t>(c * 257); };
    return QsdHandle<QsdColor>::Adopt(new QsdColor(component(red), component(green), component(blue)));
}

/// The pages: cells in rows, each with a drawing and the name of what draws it.
class Showcase {
public:
    Showcase(QsdDisplay& display, const QsdPort& port)
        : _display(display), _port(port), _plain(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display)))
    {
        _small = QsdHandle<QsdFont>::Adopt(display.createFont("helvetica", QsdFontPlain, 8));
        _large = QsdHandle<QsdFont>::Adopt(display.createFont("helvetica", QsdFontBold, 24));
        _plain->setFont(_small.get());
    }

    void title(const char* text)
    {
        _cell = 0;
        const auto palette = copy();
        palette->setFont(_large.get());
        palette->setForeground(_blue.get());
        _port.drawString(palette.get(), {Left, 60}, text, -1, QsdPositionNone);
    }

    /// Draws the next cell; `draw` gets a palette of its own and the upper left corner of its 100 by 70 units.
    void show(const char* name, const std::function<void(QsdPalette&, QsdPoint)>& draw)
    {
        const QsdPoint corner{Left + _cell % Columns * CellWidth, Top + _cell / Columns * CellHeight};
        ++_cell;
        const auto palette = copy();
        palette->setForeground(_blue.get());
        palette->setBackground(_sand.get());
        draw(*palette, corner);
        _port.drawString(_plain.get(), {corner.x + 50, corner.y + 84}, name, -1, QsdPositionCenter);
    }

    void lines();
    void areas();
    void texts();
    void bitmaps();

private:
    [[nodiscard]] QsdHandle<QsdPalette> copy() const
    {
        return QsdHandle<QsdPalette>::Adopt(new QsdPalette(_plain.get()));
    }

    QsdDisplay& _display;
    const QsdPort& _port;
    QsdHandle<QsdPalette> _plain;
    QsdHandle<QsdFont> _small;
    QsdHandle<QsdFont> _large;
    QsdHandle<QsdColor> _blue = color(30, 90, 150);
    QsdHandle<QsdColor> _red = color(190, 50, 40);
    QsdHandle<QsdColor> _sand = color(245, 225, 170);
    int _cell = 0;
};

void Showcase::lines()
{
    title("Lines");
    show("drawLine", [&](QsdPalette& p, QsdPoint c) {
        p.setLineStyle(nullptr, 4);
        _port.drawLine(&p, {c.x, c.y + 60}, {c.x + 100, c.y + 10});
    });
    show("drawSegments", [&](QsdPalette& p, QsdPoint c) {
        QsdPoint starts[10];
        QsdPoint ends[10];
        for (int i = 0; i < 10; ++i) {
            starts[i] = {c.x + i * 10, c.y + 70};
            ends[i] = {c.x + 100 - i * 10, c.y};
        }
        _port.drawSegments(&p, 10, starts, ends);
    });
    show("drawPolyLine", [&](QsdPalette& p, QsdPoint c) {
        p.setLineStyle(nullptr, 3);
        const QsdPoint points[] = {{c.x, c.y + 60}, {c.x + 30, c.y}, {c.x + 60, c.y + 60}, {c.x + 100, c.y + 20}};
        _port.drawPolyLine(&p, 4, points);
    });
    show("dashes 12 4 3 4", [&](QsdPalette& p, QsdPoint c) {
        const std::uint8_t dashes[] = {12, 4, 3, 4};
        const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(4, dashes));
        p.setLineStyle(style.get(), 2);
        for (int y = 10; y < 70; y += 20) {
            _port.drawLine(&p, {c.x, c.y + y}, {c.x + 100, c.y + y});
        }
    });
    show("drawRectangle", [&](QsdPalette& p, QsdPoint c) { _port.drawRectangle(&p, {c.x + 5, c.y + 5, 90, 60}); });
    show("drawRoundRectangle", [&](QsdPalette& p, QsdPoint c) {
        _port.drawRoundRectangle(&p, {c.x + 5, c.y + 5, 90, 60}, 15);
    });
    show("drawArc 20 + 250", [&](QsdPalette& p, QsdPoint c) {
        p.setLineStyle(nullptr, 3);
        _port.drawArc(&p, {c.x, c.y, 100, 70}, 20, 250);
    });
    show("drawBezier", [&](QsdPalette& p, QsdPoint c) {
        p.setLineStyle(nullptr, 2);
        const QsdPoint points[] = {{c.x, c.y + 60},      {c.x + 10, c.y - 30}, {c.x + 40, c.y + 100},
                                   {c.x + 50, c.y + 35}, {c.x + 60, c.y - 30}, {c.x + 90, c.y + 60},
                                   {c.x + 100, c.y + 10}};
        _port.drawBezier(&p, 7, points);
    });
    show("drawClosedBezier", [&](QsdPalette& p, QsdPoint c) {
        const QsdPoint points[] = {{c.x + 50, c.y + 70}, {c.x - 30, c.y},      {c.x + 40, c.y - 10},
                                   {c.x + 50, c.y + 25}, {c.x + 60, c.y - 10}, {c.x + 130, c.y}};
        _port.drawClosedBezier(&p, 6, points);
    });
    show("drawArrow", [&](QsdPalette& p, QsdPoint c) {
        _port.drawArrow(&p, {c.x, c.y + 60}, {c.x + 100, c.y + 10}, 1);
    });
    show("drawMarker", [&](QsdPalette& p, QsdPoint c) {
        for (int type = QsdMarkerPlus; type <= QsdMarkerFilledTriangle; ++type) {
            _port.drawMarker(&p, {c.x + 10 + type % 5 * 20, c.y + 20 + type / 5 * 30}, static_cast<QsdMarkerType>(type),
                             14);
        }
    });
    show("drawPaths", [&](QsdPalette& p, QsdPoint c) {
        const QsdPoint outer[] = {{c.x, c.y}, {c.x + 100, c.y}, {c.x + 50, c.y + 70}};
        const QsdPoint inner[] = {{c.x + 30, c.y + 10}, {c.x + 70, c.y + 10}, {c.x + 50, c.y + 40}};
        const QsdPointArray arrays[] = {QsdPointArray(3, outer), QsdPointArray(3, inner)};
        _port.drawPaths(&p, 2, arrays);
    });
}

void Showcase::areas()
{
    title("Areas");
    const auto star = [](QsdPoint c) {
        return std::vector<QsdPoint>{
            {c.x + 50, c.y}, {c.x + 79, c.y + 70}, {c.x + 5, c.y + 26}, {c.x + 95, c.y + 26}, {c.x + 21, c.y + 70}};
    };
    show("fillPolyLine, even-odd",
         [&](QsdPalette& p, QsdPoint c) { _port.fillPolyLine(&p, 5, star(c).data(), false); });
    show("fillPolyLine, winding", [&](QsdPalette& p, QsdPoint c) {
        p.setFillRule(QsdWindingRule);
        _port.fillPolyLine(&p, 5, star(c).data(), false);
    });
    show("fillArc, pie", [&](QsdPalette& p, QsdPoint c) { _port.fillArc(&p, {c.x, c.y, 100, 70}, 30, 280); });
    show("fillArc, chord", [&](QsdPalette& p, QsdPoint c) {
        p.setArcMode(QsdArcChord);
        _port.fillArc(&p, {c.x, c.y, 100, 70}, 30, 280);
    });
    show("fillBezier", [&](QsdPalette& p, QsdPoint c) {
        const QsdPoint points[] = {{c.x + 50, c.y + 70}, {c.x - 30, c.y},      {c.x + 40, c.y - 10},
                                   {c.x + 50, c.y + 25}, {c.x + 60, c.y - 10}, {c.x + 130, c.y}};
        _port.fillBezier(&p, 6, points);
    });
    show("fillRoundRectangle", [&](QsdPalette& p, QsdPoint c) {
        _port.fillRoundRectangle(&p, {c.x, c.y, 100, 70}, 20);
    });
    show("opaque pattern", [&](QsdPalette& p, QsdPoint c) {
        const unsigned char bits[] = {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};
        p.setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 8, bits)).get());
        _port.fillArc(&p, {c.x, c.y, 100, 70}, 0, 360);
    });
    show("colour pattern", [&](QsdPalette& p, QsdPoint c) {
        QsdRGBBitmapData tile(12, 12);
        for (std::uint32_t i = 0; i < 144; ++i) {
            tile.setPixel(i % 12, i / 12,
                          {static_cast<std::uint8_t>(i % 12 * 20), 120, static_cast<std::uint8_t>(i / 12 * 20)});
        }
        p.setColorPattern(QsdHandle<QsdColorPattern>::Adopt(_display.createColorPattern(tile)).get());
        p.setFillStyle(QsdFillColorPattern);
        _port.fillRectangle(&p, {c.x, c.y, 100, 70});
    });
    show("clip of two rectangles", [&](QsdPalette& p, QsdPoint c) {
        QsdRegion region;
        region.add({c.x, c.y, 45, 70});
        region.add({c.x + 55, c.y + 20, 45, 30});
        p.setClipRegion(region);
        _port.fillArc(&p, {c.x, c.y, 100, 70}, 0, 360);
    });
    show("fillPaths", [&](QsdPalette& p, QsdPoint c) {
        const QsdPoint outer[] = {{c.x, c.y}, {c.x + 100, c.y}, {c.x + 100, c.y + 70}, {c.x, c.y + 70}};
        const QsdPoint inner[] = {{c.x + 20, c.y + 15}, {c.x + 80, c.y + 15}, {c.x + 50, c.y + 60}};
        const QsdPointArray arrays[] = {QsdPointArray(4, outer), QsdPointArray(3, inner)};
        _port.fillPaths(&p, 2, arrays);
    });
    const auto face = copy();
    face->setForeground(_sand.get());
    const auto dark = copy();
    dark->setForeground(_red.get());
    const auto light = copy();
    light->setForeground(_display.white());
    show("drawReliefRectangle", [&](QsdPalette&, QsdPoint c) {
        _port.drawReliefRectangle(face.get(), light.get(), dark.get(), {c.x + 5, c.y + 5, 90, 60}, 6);
    });
    show("drawReliefDiamond", [&](QsdPalette&, QsdPoint c) {
        _port.drawReliefDiamond(face.get(), light.get(), dark.get(), {c.x + 5, c.y + 5, 90, 60}, 8);
    });
    show("drawShadowRectangle", [&](QsdPalette& p, QsdPoint c) {
        _port.drawShadowRectangle(face.get(), &p, {c.x + 5, c.y + 5, 80, 50}, 8, QsdPositionBottomRight);
    });
}

void Showcase::texts()
{
    title("Text");
    const auto font = [&](const char* family, unsigned style, std::uint16_t size) {
        return QsdHandle<QsdFont>::Adopt(_display.createFont(family, static_cast<std::uint16_t>(style), size));
    };
    const auto sample = [&](const char* name, const char* family, unsigned style) {
        show(name, [&, family, style](QsdPalette& p, QsdPoint c) {
            p.setFont(font(family, style, 22).get());
            _port.drawString(&p, {c.x + 50, c.y + 45}, "Sample", -1, QsdPositionCenter);
        });
    };
    sample("helvetica", "helvetica", QsdFontPlain);
    sample("times, bold", "times", QsdFontBold);
    sample("times, italic", "times", QsdFontItalic);
    sample("courier, bold italic", "courier", QsdFontBold | QsdFontItalic);
    sample("symbol", "symbol", QsdFontPlain);
    sample("underlined", "helvetica", QsdFontUnderlined);
    show("start, centre, end", [&](QsdPalette& p, QsdPoint c) {
        p.setFont(font("helvetica", 0, 12).get());
        _port.drawLine(_plain.get(), {c.x + 50, c.y}, {c.x + 50, c.y + 70});
        _port.drawString(&p, {c.x + 50, c.y + 18}, "start", -1, QsdPositionNone);
        _port.drawString(&p, {c.x + 50, c.y + 40}, "centre", -1, QsdPositionCenter);
        _port.drawString(&p, {c.x + 50, c.y + 62}, "end", -1, QsdPositionRight);
    });
    show("drawIString", [&](QsdPalette& p, QsdPoint c) {
        p.setFont(font("times", QsdFontBold, 22).get());
        _port.drawIString(&p, {c.x + 50, c.y + 45}, "Opaque", -1, QsdPositionCenter);
    });
    show("drawTransformedString", [&](QsdPalette& p, QsdPoint c) {
        p.setFont(font("helvetica", 0, 20).get());
        QsdTransformer t;
        t.rotate(30).translate(c.x + 5, c.y + 45);
        _port.drawTransformedString(&p, "Turned", -1, t, nullptr);
    });
    show("Latin-1", [&](QsdPalette& p, QsdPoint c) {
        p.setFont(font("helvetica", 0, 16).get());
        _port.drawString(&p, {c.x + 50, c.y + 45}, "\xC4\xD6\xDC \xE5\xE9\xEE\xF8 \xDF\xE7\xF1 \xA9", -1,
                         QsdPositionCenter);
    });
    show("drawLabel", [&](QsdPalette& p, QsdPoint c) {
        p.setFont(font("times", 0, 14).get());
        _port.drawRectangle(_plain.get(), {c.x, c.y, 100, 70});
        _port.drawLabel(&p, {c.x, c.y, 100, 70}, "a label\nof three\nlines", -1, nullptr, QsdPositionCenter);
    });
}

void Showcase::bitmaps()
{
    title("Bitmaps");
    QsdRGBBitmapData data(64, 64);
    for (std::uint32_t i = 0; i < 4096; ++i) {
        data.setPixel(i % 64, i / 64,
                      {static_cast<std::uint8_t>(i % 64 * 4), static_cast<std::uint8_t>(i / 64 * 4), 140});
    }
    QsdBitmap picture(&_display, data);
    auto mask = std::make_unique<QsdBitmap>(&_display, 64U, 64U, std::uint16_t{1});
    mask->fillArc(_plain.get(), {0, 0, 64, 64}, 0, 360);
    picture.setMask(std::move(mask));
    const unsigned char arrow[] = {0x18, 0x3C, 0x7E, 0xFF, 0x18, 0x18, 0x18, 0x18};
    const std::unique_ptr<QsdBitmap> bits = QsdBitmap::FromBits(&_display, 8, 8, arrow);
    const QsdRect whole{0, 0, 64, 64};

    show("drawBitmap", [&](QsdPalette& p, QsdPoint c) { _port.drawBitmap(&p, &picture, whole, {c.x + 18, c.y + 3}); });
    show("drawTransparentBitmap", [&](QsdPalette& p, QsdPoint c) {
        _port.drawTransparentBitmap(&p, &picture, whole, {c.x + 18, c.y + 3});
    });
    show("stretchBitmap, one bit", [&](QsdPalette& p, QsdPoint c) {
        _port.stretchBitmap(&p, QsdRect{c.x + 15, c.y, 70, 70}, bits.get(), nullptr);
    });
    show("stretchTransparentBitmap, one bit", [&](QsdPalette& p, QsdPoint c) {
        _port.stretchTransparentBitmap(&p, QsdRect{c.x + 15, c.y, 70, 70}, bits.get(), nullptr);
    });
    show("stretchBitmap, turned", [&](QsdPalette& p, QsdPoint c) {
        QsdTransformer t;
        t.rotate(20);
        _port.stretchBitmap(&p, QsdPoint{c.x + 10, c.y + 20}, &picture, t, nullptr);
    });
    show("stretchBitmap, clipped", [&](QsdPalette& p, QsdPoint c) {
        const QsdRect clip{c.x + 20, c.y + 10, 60, 40};
        _port.stretchBitmap(&p, QsdRect{c.x, c.y, 100, 70}, &picture, &clip);
    });
    show("stretchBitmapData", [&](QsdPalette& p, QsdPoint c) {
        _port.stretchBitmapData(&p, &data, {24, 24, 8, 8}, {c.x, c.y, 100, 70}, false);
    });
    show("drawBitmap, bottom right", [&](QsdPalette& p, QsdPoint c) {
        _port.drawRectangle(_plain.get(), {c.x, c.y, 100, 70});
        _port.drawBitmap(&p, &picture, QsdRect{0, 0, 30, 30}, QsdRect{c.x, c.y, 100, 70}, nullptr,
                         QsdPositionBottomRight, false);
    });
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "usage: showcase FILE [LEVEL [classic]]\n";
        return 2;
    }
    QsdMemoryDisplay display;
    QsdPSDevice classic(&display, QsdPSRGB);
    QsdPSPrintDevice print(&display, QsdPSRGB);
    QsdPSDevice& device = argc > 3 && std::string_view(argv[3]) == "classic" ? classic : print;
    if (argc > 2) {
        device.setPostScriptLevel(std::strtoul(argv[2], nullptr, 10));
    }
    if (!device.initDevice(argv[1], nullptr)) {
        return 1;
    }
    Showcase showcase(display, device);
    showcase.lines();
    device.newPage();
    showcase.areas();
    device.newPage();
    showcase.texts();
    device.newPage();
    showcase.bitmaps();
    device.end();
    return device.writeFailed() ? 1 : 0;
}
