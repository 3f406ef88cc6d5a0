#include "bench/throughput/port_scene.h"

#include "toolkit/port/QsdDisplay.h"

#include <algorithm>

namespace {

QsdHandle<QsdColor> toolkitColor(bench::Color color)
{
    const auto component = [](unsigned value) { return static_cast<std::uint16_t>(value * 257); };
    return QsdHandle<QsdColor>::Adopt(
        new QsdColor(component(color.red), component(color.green), component(color.blue)));
}

QsdRect rectAt(const QsdPoint& corner, int width, int height)
{
    return {corner.x, corner.y, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)};
}

} // namespace

namespace bench {

PortScene::PortScene(QsdDisplay& display)
    : _display(display), _tiled(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display)))
{
    std::transform(Points.begin(), Points.end(), _points.begin(), [](Point point) {
        return QsdPoint{point.x, point.y};
    });
    static constexpr struct {
        const char* family;
        std::uint16_t style;
    } Fonts[] = {
        {"times", QsdFontPlain}, {"helvetica", QsdFontPlain}, {"courier", QsdFontPlain}, {"helvetica", QsdFontBold}};
    for (std::size_t i = 0; i < 4; ++i) {
        _pens[i] = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        _pens[i]->setForeground(toolkitColor(Pens[i].color).get());
        _pens[i]->setLineStyle(nullptr, Pens[i].width);
        _fonts[i] = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        _fonts[i]->setFont(
            QsdHandle<QsdFont>::Adopt(display.createFont(Fonts[i].family, Fonts[i].style, FontSize)).get());
    }
    _tiled->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 8, Tile.data())).get());
}

void PortScene::prepare(Workload workload)
{
    if (isImage(workload)) {
        prepareImage(workload);
    }
}

void PortScene::prepareImage(Workload workload)
{
    const std::uint32_t side = imageSide(workload);
    _image = std::make_unique<QsdBitmap>(&_display, side, side, _display.screenDepth());
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const Color color = pixelAt(x, y);
            const QsdPixels::Value value =
                std::uint32_t{color.red} << 16 | std::uint32_t{color.green} << 8 | color.blue;
            _image->pixels().set(x, y, value);
        }
    }
    if (workload == Workload::MaskedImage) {
        auto mask = std::make_unique<QsdBitmap>(&_display, side, side, std::uint16_t{1});
        for (std::uint32_t y = 0; y < side; ++y) {
            for (std::uint32_t x = 0; x < side; ++x) {
                mask->pixels().set(x, y, isOpaque(x, y) ? 1 : 0);
            }
        }
        _image->setMask(std::move(mask));
    }
}

void PortScene::drawLines(const QsdPort& port, std::uint64_t calls, std::size_t pens) const
{
    repeat(_points, calls,
           [&](std::size_t i, const QsdPoint* at) { port.drawLine(_pens[i % pens].get(), at[0], at[1]); });
}

void PortScene::drawStrings(const QsdPort& port, std::uint64_t calls, std::size_t fonts) const
{
    repeat(_points, calls, [&](std::size_t i, const QsdPoint* at) {
        port.drawString(_fonts[i % fonts].get(), *at, Text.data(), static_cast<int>(Text.size()), QsdPositionNone);
    });
}

void PortScene::draw(const QsdPort& port, Workload workload, std::uint64_t calls) const
{
    const QsdPalette* const plain = _pens[0].get();
    switch (workload) {
    case Workload::OnePen:
        drawLines(port, calls, 1);
        break;
    case Workload::FourPens:
        drawLines(port, calls, 4);
        break;
    case Workload::Polylines:
        repeat(_points, calls, [&](std::size_t, const QsdPoint* at) { port.drawPolyLine(plain, PolylinePoints, at); });
        break;
    case Workload::Polygons:
        repeat(_points, calls,
               [&](std::size_t, const QsdPoint* at) { port.fillPolyLine(plain, PolygonPoints, at, false); });
        break;
    case Workload::Rectangles:
        repeat(_points, calls, [&](std::size_t i, const QsdPoint* at) {
            port.fillRectangle(_pens[i % 2].get(), rectAt(*at, RectangleWidth, RectangleHeight));
        });
        break;
    case Workload::Arcs:
        repeat(_points, calls,
               [&](std::size_t, const QsdPoint* at) { port.drawArc(plain, rectAt(*at, ArcSize, ArcSize), 0, 90); });
        break;
    case Workload::OneFont:
        drawStrings(port, calls, 1);
        break;
    case Workload::FourFonts:
        drawStrings(port, calls, 4);
        break;
    case Workload::Patterns:
        repeat(_points, calls, [&](std::size_t, const QsdPoint* at) {
            port.fillRectangle(_tiled.get(), rectAt(*at, RectangleWidth, RectangleHeight));
        });
        break;
    case Workload::Image:
    case Workload::HugeImage:
        for (std::uint64_t i = 0; i < calls; ++i) {
            port.stretchBitmap(plain, rectAt({0, 0}, ImageExtent, ImageExtent), _image.get(), nullptr);
        }
        break;
    case Workload::MaskedImage:
        for (std::uint64_t i = 0; i < calls; ++i) {
            const auto side = static_cast<int>(imageSide(workload));
            port.drawTransparentBitmap(plain, _image.get(), rectAt({0, 0}, side, side), {0, 0});
        }
        break;
    }
}

} // namespace bench
