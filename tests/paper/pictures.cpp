// Patterns, bitmaps and pixels.
#include "operation.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <memory>

namespace {

constexpr Match Equal{Look::Pixels, 0, 0, 0};
constexpr Match Edged{Look::Pixels, 1, 0.06, 0.03};
constexpr Match Stretched = Usual;

QsdRGBBitmapData pixels(Dice& dice, int least, int most)
{
    const std::uint16_t width = dice.size(least, most);
    QsdRGBBitmapData data(width, dice.size(least, most));
    for (std::uint32_t y = 0; y < data.height(); ++y) {
        for (std::uint32_t x = 0; x < data.width(); ++x) {
            data.setPixel(x, y, dice.color());
        }
    }
    return data;
}

std::unique_ptr<QsdBitmap> bits(const Stage& s, std::uint32_t width, std::uint32_t height)
{
    return QsdBitmap::FromBits(&s.display, width, height, s.dice.bytes(std::size_t{(width + 7) / 8} * height).data());
}

std::unique_ptr<QsdBitmap> bitmap(const Stage& s, bool colored, int least, int most)
{
    if (!colored) {
        const std::uint16_t width = s.dice.size(least, most);
        return bits(s, width, s.dice.size(least, most));
    }
    const QsdRGBBitmapData data = pixels(s.dice, least, most);
    auto result = std::make_unique<QsdBitmap>(&s.display, data);
    result->setMask(bits(s, data.width(), data.height()));
    return result;
}

void drawPart(const Stage& s, bool colored, bool transparent)
{
    const std::unique_ptr<QsdBitmap> source = bitmap(s, colored, 10, 60);
    const auto width = static_cast<std::uint32_t>(source->width());
    const auto height = static_cast<std::uint32_t>(source->height());
    const QsdRect from{3, 2, width - 5, height - 4};
    const QsdPoint at = s.dice.point();
    transparent ? s.port.drawTransparentBitmap(&s.palette, source.get(), from, at)
                : s.port.drawBitmap(&s.palette, source.get(), from, at);
}

/// Pixels of at least four units.
void stretch(const Stage& s, bool colored, bool transparent)
{
    const std::unique_ptr<QsdBitmap> source = bitmap(s, colored, 1, 6);
    const QsdPoint at = s.dice.point();
    const QsdRect dest{at.x, at.y, s.dice.size(24, 100), s.dice.size(24, 80)};
    const QsdRect clip = s.dice.rect();
    const QsdRect* const limit = s.dice.oneIn(3) ? &clip : nullptr;
    transparent ? s.port.stretchTransparentBitmap(&s.palette, dest, source.get(), limit)
                : s.port.stretchBitmap(&s.palette, dest, source.get(), limit);
}

void turn(const Stage& s, bool colored, bool transparent)
{
    const std::unique_ptr<QsdBitmap> source = bitmap(s, colored, 1, 6);
    QsdTransformer t;
    const double along = s.dice.between(4, 20);
    t.scale(along, s.dice.oneIn(2) ? s.dice.between(-20, -4) : s.dice.between(4, 20));
    t.rotate(s.dice.between(0, 359));
    const QsdPoint at = s.dice.pointInside();
    transparent ? s.port.stretchTransparentBitmap(&s.palette, at, source.get(), t, nullptr)
                : s.port.stretchBitmap(&s.palette, at, source.get(), t, nullptr);
}

void place(const Stage& s, bool transparent)
{
    constexpr QsdPosition Positions[] = {QsdPositionNone,    QsdPositionLeft,       QsdPositionRight,
                                         QsdPositionTop,     QsdPositionBottom,     QsdPositionCenter,
                                         QsdPositionTopLeft, QsdPositionBottomRight};
    const std::unique_ptr<QsdBitmap> source = bitmap(s, s.dice.oneIn(2), 10, 60);
    const QsdRect dest = s.dice.rect();
    const QsdRegion clip = s.dice.region();
    const QsdPosition position = Positions[s.dice.between(0, 7)];
    s.port.drawBitmap(&s.palette, source.get(), dest, s.dice.oneIn(3) ? &clip : nullptr, position, transparent);
}

void fillPatterned(const Stage& s, QsdFillStyle style)
{
    s.palette.setFillStyle(style);
    if (style == QsdFillColorPattern) {
        const QsdRGBBitmapData data = pixels(s.dice, 1, 20);
        s.palette.setColorPattern(QsdHandle<QsdColorPattern>::Adopt(s.display.createColorPattern(data)).get());
    } else {
        const std::uint16_t width = s.dice.size(1, 20);
        const std::uint16_t height = s.dice.size(1, 20);
        const std::vector<unsigned char> tile = s.dice.bytes(std::size_t{(width + 7U) / 8} * height);
        s.palette.setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(width, height, tile.data())).get());
    }
    switch (s.dice.between(0, 2)) {
    case 0:
        return s.port.fillRectangle(&s.palette, s.dice.rect());
    case 1:
        return s.port.fillArc(&s.palette, s.dice.evenRect(), 30, 270);
    default: {
        const std::vector<QsdPoint> points = s.dice.points(3, 6);
        return s.port.fillPolyLine(&s.palette, points.size(), points.data(), false);
    }
    }
}

} // namespace

std::vector<Operation> pictureOperations()
{
    constexpr Match Tiles{Look::Extent, 20, 0, 0, "tiles begin at the shape, mirrored"};
    constexpr Match RowLow{Look::Apart, 0, 0, 0, "each row lies one row of the bitmap too low"};
    return {
        {"pattern", Kind::Pattern, [](const Stage& s) { fillPatterned(s, QsdFillPattern); }, Edged, Tiles},
        {"colour pattern", Kind::Pattern, [](const Stage& s) { fillPatterned(s, QsdFillColorPattern); }, Edged, Tiles},
        {"mask pattern", Kind::Pattern, [](const Stage& s) { fillPatterned(s, QsdFillMaskPattern); }, Edged, Tiles,
         true, 1},
        {"bits", Kind::Picture, [](const Stage& s) { drawPart(s, false, false); }, Equal, Equal},
        {"transparent bits", Kind::Picture, [](const Stage& s) { drawPart(s, false, true); }, Equal, Equal},
        {"bitmap", Kind::Picture, [](const Stage& s) { drawPart(s, true, false); }, Equal, Equal},
        {"masked bitmap", Kind::Picture, [](const Stage& s) { drawPart(s, true, true); }, Equal, Equal},
        {"stretched bits", Kind::Picture, [](const Stage& s) { stretch(s, false, false); }, Stretched, Stretched},
        {"stretched transparent bits", Kind::Picture, [](const Stage& s) { stretch(s, false, true); }, Stretched,
         Stretched},
        {"stretched bitmap", Kind::Picture, [](const Stage& s) { stretch(s, true, false); }, Stretched, Stretched},
        {"stretched masked bitmap", Kind::Picture, [](const Stage& s) { stretch(s, true, true); }, Stretched, RowLow},
        {"turned bits", Kind::Picture, [](const Stage& s) { turn(s, false, false); }, Stretched, Stretched},
        {"turned transparent bits", Kind::Picture, [](const Stage& s) { turn(s, false, true); }, Stretched, Stretched},
        {"turned bitmap", Kind::Picture, [](const Stage& s) { turn(s, true, false); }, Stretched, Stretched},
        {"turned masked bitmap", Kind::Picture, [](const Stage& s) { turn(s, true, true); }, Stretched, RowLow},
        {"placed bitmap", Kind::Picture, [](const Stage& s) { place(s, false); }, Equal, Equal},
        {"placed transparent bitmap", Kind::Picture, [](const Stage& s) { place(s, true); }, Equal, Equal},
        {"stretched pixels", Kind::Picture,
         [](const Stage& s) {
             const QsdRGBBitmapData data = pixels(s.dice, 3, 6);
             const QsdPoint at = s.dice.point();
             const QsdRect dest{at.x, at.y, s.dice.size(24, 100), s.dice.size(24, 80)};
             s.port.stretchBitmapData(&s.palette, &data, {1, 1, data.width() - 1, data.height() - 2}, dest, false);
         },
         Stretched, Stretched},
    };
}
