// Draws every operation of the port where it has no area, no inverse or no bounds: degenerate list|FILE LEVEL rgb|grey
// DEVICE [CASE]. Each case has a page of its own, on which a mark is drawn last: a page without it was lost. "list"
// writes the names of the cases, a line each.
#include "render_device.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <climits>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t Side = 100;

/// What the cases draw with.
struct Drawing {
    explicit Drawing(QsdPSDevice& target) : device(target), display(*target.display())
    {
        QsdRGBBitmapData data(3, 2);
        for (std::uint32_t i = 0; i < 6; ++i) {
            data.setPixel(i % 3, i / 3, {static_cast<std::uint8_t>(40 * i), 200, 7});
        }
        colors = std::make_unique<QsdBitmap>(&display, data);
        masked = std::make_unique<QsdBitmap>(&display, data);
        auto mask = std::make_unique<QsdBitmap>(&display, 3U, 2U, std::uint16_t{1});
        const auto ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        mask->fillRectangle(ink.get(), {0, 0, 2, 2});
        masked->setMask(std::move(mask));
        const unsigned char rows[] = {0xA0, 0x40};
        bits = QsdBitmap::FromBits(&display, 3, 2, rows);
        stripes = QsdHandle<QsdPattern>::Adopt(new QsdPattern(3, 2, rows));
        reset();
    }

    void reset()
    {
        palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        setFont(QsdFontPlain, 12);
    }
    void setFont(std::uint16_t style, std::uint16_t size) const
    {
        palette->setFont(QsdHandle<QsdFont>::Adopt(new QsdFont("times", style, size)).get());
    }

    QsdPSDevice& device;
    QsdDisplay& display;
    QsdHandle<QsdPalette> palette;
    std::unique_ptr<QsdBitmap> bits;
    std::unique_ptr<QsdBitmap> colors;
    std::unique_ptr<QsdBitmap> masked;
    QsdHandle<QsdPattern> stripes;
};

struct Operation {
    const char* name;
    std::function<void(Drawing&, const QsdRect&)> draw; ///< into a box
};

/// The corner opposite to that at the box's origin.
QsdPoint farCorner(const QsdRect& box)
{
    return {static_cast<std::int32_t>(box.right()), static_cast<std::int32_t>(box.bottom())};
}

std::vector<QsdPoint> outlineOf(const QsdRect& box)
{
    const QsdPoint end = farCorner(box);
    return {{box.x, box.y}, {end.x, box.y}, end, {box.x, end.y}};
}

const std::vector<Operation>& operations()
{
    using D = Drawing;
    using R = QsdRect;
    static const std::vector<Operation> All = {
        {"point",
         [](D& d, const R& r) {
             d.device.drawPoint(d.palette.get(), {r.x, r.y});
         }},
        {"line",
         [](D& d, const R& r) {
             d.device.drawLine(d.palette.get(), {r.x, r.y}, farCorner(r));
         }},
        {"polyline", [](D& d, const R& r) { d.device.drawPolyLine(d.palette.get(), 4, outlineOf(r).data()); }},
        {"outline", [](D& d, const R& r) { d.device.drawRectangle(d.palette.get(), r); }},
        {"fixed outline",
         [](D& d, const R& r) {
             d.device.setZoomableLineWidths(false);
             d.device.drawRectangle(d.palette.get(), r);
             d.device.setZoomableLineWidths(true);
         }},
        {"rectangle", [](D& d, const R& r) { d.device.fillRectangle(d.palette.get(), r); }},
        {"polygon", [](D& d, const R& r) { d.device.fillPolyLine(d.palette.get(), 4, outlineOf(r).data(), true); }},
        {"arc", [](D& d, const R& r) { d.device.drawArc(d.palette.get(), r, 10, 200); }},
        {"pie", [](D& d, const R& r) { d.device.fillArc(d.palette.get(), r, 10, 200); }},
        {"chord",
         [](D& d, const R& r) {
             d.palette->setArcMode(QsdArcChord);
             d.device.fillArc(d.palette.get(), r, 10, -200);
         }},
        {"endless arc",
         [](D& d, const R& r) {
             const float endless = std::numeric_limits<float>::infinity();
             d.device.drawArc(d.palette.get(), r, -endless, endless);
             d.device.fillArc(d.palette.get(), r, 0, std::numeric_limits<float>::quiet_NaN());
             d.device.fillArc(d.palette.get(), r, 1e30F, 1e30F);
         }},
        {"curve", [](D& d, const R& r) { d.device.drawBezier(d.palette.get(), 4, outlineOf(r).data()); }},
        {"closed curve", [](D& d, const R& r) { d.device.drawClosedBezier(d.palette.get(), 4, outlineOf(r).data()); }},
        {"filled curve", [](D& d, const R& r) { d.device.fillBezier(d.palette.get(), 4, outlineOf(r).data()); }},
        {"paths",
         [](D& d, const R& r) {
             const QsdPointArray arrays[] = {QsdPointArray(4, outlineOf(r).data())};
             d.device.fillPaths(d.palette.get(), 1, arrays);
         }},
        {"mask pattern",
         [](D& d, const R& r) {
             d.palette->setPattern(d.stripes.get());
             d.palette->setFillStyle(QsdFillMaskPattern);
             d.device.fillRectangle(d.palette.get(), r);
             d.device.fillArc(d.palette.get(), r, 10, 200);
         }},
        {"opaque pattern",
         [](D& d, const R& r) {
             d.palette->setPattern(d.stripes.get());
             d.device.fillPolyLine(d.palette.get(), 4, outlineOf(r).data(), true);
         }},
        {"dashes of nothing",
         [](D& d, const R& r) {
             const unsigned char zeros[] = {0, 0, 0};
             for (std::uint16_t count = 1; count <= 3; ++count) {
                 const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(count, zeros));
                 d.palette->setLineStyle(style.get(), 3);
                 d.device.drawRectangle(d.palette.get(), r);
             }
         }},
        {"text",
         [](D& d, const R& r) {
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionCenter);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "", 0, QsdPositionCenter);
         }},
        {"underlined text",
         [](D& d, const R& r) {
             d.setFont(QsdFontUnderlined, 12);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionRight);
         }},
        {"opaque text",
         [](D& d, const R& r) {
             d.device.drawIString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
             d.device.drawIString(d.palette.get(), {r.x, r.y}, " ", 1, QsdPositionNone);
             d.device.drawIString(d.palette.get(), {r.x, r.y}, "", 0, QsdPositionNone);
         }},
        {"text of a font without a size",
         [](D& d, const R& r) {
             d.setFont(QsdFontUnderlined, 0);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
             d.device.drawIString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionCenter);
             d.device.drawTransformedString(d.palette.get(), "text", 4, QsdTransformer(), nullptr);
         }},
        {"text of a font of one unit",
         [](D& d, const R& r) {
             d.setFont(QsdFontUnderlined, 1);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
         }},
        {"text of the largest font",
         [](D& d, const R& r) {
             d.setFont(QsdFontUnderlined, 65535);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
             d.device.drawIString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionRight);
         }},
        {"bits",
         [](D& d, const R& r) {
             d.device.drawBitmap(d.palette.get(), d.bits.get(), {0, 0, 3, 2}, {r.x, r.y});
         }},
        {"transparent bits",
         [](D& d, const R& r) {
             d.device.drawTransparentBitmap(d.palette.get(), d.bits.get(), {0, 0, 3, 2}, {r.x, r.y});
         }},
        {"colours",
         [](D& d, const R& r) {
             d.device.drawBitmap(d.palette.get(), d.colors.get(), {0, 0, 3, 2}, {r.x, r.y});
         }},
        {"masked colours",
         [](D& d, const R& r) {
             d.device.drawTransparentBitmap(d.palette.get(), d.masked.get(), {0, 0, 3, 2}, {r.x, r.y});
         }},
        {"stretched bitmaps",
         [](D& d, const R& r) {
             for (const QsdBitmap* const bitmap : {d.bits.get(), d.colors.get(), d.masked.get()}) {
                 d.device.stretchBitmap(d.palette.get(), r, bitmap, nullptr);
                 d.device.stretchTransparentBitmap(d.palette.get(), r, bitmap, nullptr);
             }
         }},
        {"clip",
         [](D& d, const R& r) {
             d.device.clip(&r);
             d.device.fillRectangle(d.palette.get(), r);
             d.device.clip(static_cast<const QsdRect*>(nullptr));
             const QsdRegion region(r);
             d.device.clip(&region);
             d.device.drawString(d.palette.get(), {r.x, r.y}, "text", 4, QsdPositionNone);
             d.device.clip(static_cast<const QsdRegion*>(nullptr));
         }},
        {"clip of a palette",
         [](D& d, const R& r) {
             d.palette->setClipRegion(QsdRegion(r));
             d.device.drawLine(d.palette.get(), {r.x, r.y}, farCorner(r));
             d.device.drawTransformedString(d.palette.get(), "text", 4, QsdTransformer(), nullptr);
         }},
        {"initial clip", [](D& d, const R& r) { d.device.initClip(r); }},
    };
    return All;
}

struct Situation {
    std::string name;
    QsdTransformer transformer;
};

const std::vector<Situation>& situations()
{
    constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double Endless = std::numeric_limits<double>::infinity();
    static const std::vector<Situation> All = {
        {"no turn", {}},
        {"no matrix", {0, 0, 0, 0, 0, 0}},
        {"no width", {0, 0, 0, 1, 10, 10}},
        {"no height", {1, 0, 0, 0, 10, 10}},
        {"a line aslant", {1, 2, 2, 4, 0, 0}},
        {"a line aslant of fractions", {0.1, 0.2, 0.3, 0.6, 0, 0}},
        {"almost a line", {1, 1.0000001, 1, 1, 0, 0}},
        {"no numbers", {NaN, NaN, NaN, NaN, NaN, NaN}},
        {"one that is no number", {1, 0, 0, NaN, 0, 0}},
        {"endless", {Endless, 0, 0, Endless, 0, 0}},
        {"endlessly far", {1, 0, 0, 1, Endless, -Endless}},
        {"tiny", {1e-30, 0, 0, 1e-30, 10, 10}},
        {"tinier than floats", {1e-300, 0, 0, 1e-300, 10, 10}},
        {"thin", {1, 0, 0, 1e-9, 10, 10}},
        {"huge", {1e15, 0, 0, 1e15, 10, 10}},
        {"beyond floats", {1e300, 0, 0, 1e300, 10, 10}},
        {"far", {1, 0, 0, 1, 1e12, 1e12}},
    };
    return All;
}

/// The device as it was, and the mark.
void drawMark(Drawing& drawing)
{
    drawing.reset();
    drawing.device.setTransformer(QsdTransformer());
    drawing.device.initClip({0, 0, Side, Side});
    drawing.device.drawString(drawing.palette.get(), {10, 10}, "I", 1, QsdPositionNone);
    drawing.device.fillRectangle(drawing.palette.get(), {90, 90, 10, 10});
}

struct Case {
    std::string name;
    std::function<void(Drawing&)> draw;
};

std::vector<Case> cases()
{
    std::vector<Case> all;
    const QsdRect usual{10, 10, 50, 30};
    for (const Situation& situation : situations()) {
        for (const Operation& operation : operations()) {
            all.push_back({operation.name + std::string(", transformer: ") + situation.name, [=](Drawing& d) {
                               d.device.setTransformer(situation.transformer);
                               operation.draw(d, usual);
                           }});
        }
        all.push_back({"text under " + situation.name, [=](Drawing& d) {
                           d.device.drawTransformedString(d.palette.get(), "text", 4, situation.transformer, nullptr);
                           d.setFont(QsdFontUnderlined, 12);
                           d.device.drawTransformedString(d.palette.get(), "text", 4, situation.transformer, nullptr);
                       }});
        all.push_back(
            {"bitmaps under " + situation.name, [=](Drawing& d) {
                 for (const QsdBitmap* const bitmap : {d.bits.get(), d.colors.get(), d.masked.get()}) {
                     d.device.stretchBitmap(d.palette.get(), QsdPoint{5, 5}, bitmap, situation.transformer, nullptr);
                     d.device.stretchTransparentBitmap(d.palette.get(), QsdPoint{5, 5}, bitmap, situation.transformer,
                                                       nullptr);
                 }
             }});
    }
    const struct {
        const char* name;
        QsdRect box;
    } boxes[] = {{"empty", {10, 10, 0, 0}},
                 {"a point", {10, 10, 1, 1}},
                 {"no width", {10, 10, 0, 30}},
                 {"no height", {10, 10, 30, 0}},
                 {"far out", {INT_MIN, INT_MIN, 10, 10}},
                 {"farther", {INT_MAX - 10, INT_MAX - 10, 10, 10}},
                 {"everything", {INT_MIN, INT_MIN, UINT_MAX, UINT_MAX}}};
    for (const auto& box : boxes) {
        for (const Operation& operation : operations()) {
            // The number of tiles grows with the box, so they would take for ever.
            const bool isEndless = box.box.width == UINT_MAX && std::string(operation.name).ends_with("pattern");
            if (isEndless) {
                continue;
            }
            all.push_back({operation.name + std::string(", box: ") + box.name,
                           [&operation, rect = box.box](Drawing& d) { operation.draw(d, rect); }});
        }
    }
    return all;
}

} // namespace

int main(int count, char** argv)
{
    const std::vector<Case> all = cases();
    if (count == 2 && argv[1] == std::string("list")) {
        for (const Case& one : all) {
            std::cout << one.name << "\n";
        }
        return 0;
    }
    if (count < 5) {
        return 2;
    }
    QsdMemoryDisplay display;
    const auto device = makeDevice(argv[4], display, argv[3] == std::string("rgb") ? QsdPSRGB : QsdPSGrey);
    if (device == nullptr) {
        return 2;
    }
    device->setPostScriptLevel(std::strtoul(argv[2], nullptr, 10));
    device->setPaperWidth(Side);
    device->setPaperHeight(Side);
    if (!device->initDevice(argv[1], nullptr)) {
        return 1;
    }
    Drawing drawing(*device);
    const std::size_t only = count > 5 ? std::strtoul(argv[5], nullptr, 10) : all.size();
    bool first = true;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (count > 5 && i != only) {
            continue;
        }
        if (!first) {
            device->newPage();
        }
        first = false;
        all[i].draw(drawing);
        drawMark(drawing);
    }
    device->end();
    return device->writeFailed() ? 1 : 0;
}
