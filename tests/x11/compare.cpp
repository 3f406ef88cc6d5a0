// The same calls into a pixmap of the server and a bitmap in memory.
#include "tests/x11/support.h"

#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <functional>
#include <random>

namespace {

constexpr std::uint32_t Width = 160;
constexpr std::uint32_t Height = 120;

/// Random numbers that are the same everywhere.
class Dice {
public:
    explicit Dice(unsigned seed) : _generator(seed) {}

    [[nodiscard]] std::int32_t between(std::int32_t low, std::int32_t high)
    {
        return low + static_cast<std::int32_t>(_generator() % static_cast<std::uint32_t>(high - low + 1));
    }
    [[nodiscard]] bool one(std::int32_t in) { return between(1, in) == 1; }
    [[nodiscard]] QsdPoint point() { return {between(-40, 200), between(-40, 160)}; }
    [[nodiscard]] QsdRect rect()
    {
        const QsdPoint at = point();
        return {at.x, at.y, static_cast<std::uint32_t>(between(0, 90)), static_cast<std::uint32_t>(between(0, 90))};
    }
    [[nodiscard]] std::vector<QsdPoint> points(std::int32_t least, std::int32_t most)
    {
        std::vector<QsdPoint> result(static_cast<std::size_t>(between(least, most)));
        for (QsdPoint& p : result) {
            p = point();
        }
        return result;
    }
    /// A colour that displays with few colours have.
    [[nodiscard]] QsdRGB color()
    {
        const auto level = [this] { return static_cast<std::uint8_t>(between(0, 5) * 51); };
        return {level(), level(), level()};
    }
    [[nodiscard]] QsdRGBBitmapData pixels()
    {
        QsdRGBBitmapData data(static_cast<std::uint32_t>(between(1, 40)), static_cast<std::uint32_t>(between(1, 40)));
        for (std::uint32_t y = 0; y < data.height(); ++y) {
            for (std::uint32_t x = 0; x < data.width(); ++x) {
                data.setPixel(x, y, color());
            }
        }
        return data;
    }
    [[nodiscard]] std::vector<unsigned char> bytes(std::size_t count)
    {
        std::vector<unsigned char> result(count);
        for (unsigned char& byte : result) {
            byte = static_cast<unsigned char>(between(0, 255));
        }
        return result;
    }

private:
    std::mt19937 _generator;
};

/// A drawing call made by dice; the same dice make the same call on every port.
struct Call {
    const char* name;
    void (*make)(const QsdPort& port, QsdPalette& palette, Dice& dice);
    /// One of so many painted pixels may be another: of lines, where two pixels are equally near, and of stretched
    /// pictures, where the middle of a pixel falls between two of the picture. 0: none may.
    unsigned tolerance = 0;
};

std::unique_ptr<QsdBitmap> randomBitmap(const QsdPort& port, Dice& dice)
{
    if (dice.one(2)) {
        const auto width = static_cast<std::uint32_t>(dice.between(1, 40));
        const auto height = static_cast<std::uint32_t>(dice.between(1, 40));
        return QsdBitmap::FromBits(port.display(), width, height,
                                   dice.bytes(std::size_t{(width + 7) / 8} * height).data());
    }
    const QsdRGBBitmapData data = dice.pixels();
    auto bitmap = std::make_unique<QsdBitmap>(port.display(), data);
    bitmap->setMask(QsdBitmap::FromBits(port.display(), data.width(), data.height(),
                                        dice.bytes(std::size_t{(data.width() + 7) / 8} * data.height()).data()));
    return bitmap;
}

QsdTransformer randomTransformer(Dice& dice)
{
    return QsdTransformer()
        .scale(dice.between(-20, 40) / 10.0, dice.between(-20, 40) / 10.0)
        .rotate(dice.one(2) ? 0 : dice.between(0, 359));
}

constexpr unsigned OfLines = 15;
constexpr unsigned OfPictures = 3;

constexpr Call Calls[] = {
    {"points",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(1, 30);
         port.drawPoints(&palette, points.size(), points.data());
     }},
    {"segments",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(2, 20);
         port.drawSegments(&palette, points.size() / 2, points.data(), points.data() + points.size() / 2);
     },
     OfLines},
    {"polyline",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(1, 8);
         port.drawPolyLine(&palette, points.size(), points.data());
     },
     OfLines},
    {"polyline of steps",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         std::vector<QsdDeltaPoint> steps(static_cast<std::size_t>(dice.between(1, 8)));
         for (QsdDeltaPoint& step : steps) {
             step = {static_cast<std::int16_t>(dice.between(-60, 60)),
                     static_cast<std::int16_t>(dice.between(-60, 60))};
         }
         port.drawPolyLine(&palette, dice.point(), steps.size() + 1, steps.data());
     },
     OfLines},
    {"polygon",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(1, 8);
         port.fillPolyLine(&palette, points.size(), points.data(), false);
     }},
    {"polygon of steps",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdDeltaPoint steps[] = {{50, 3}, {-20, 40}, {-30, -70}};
         port.fillPolyLine(&palette, dice.point(), 4, steps, false);
     }},
    {"rectangle",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) { port.drawRectangle(&palette, dice.rect()); }, OfLines},
    {"filled rectangle",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) { port.fillRectangle(&palette, dice.rect()); }},
    {"round rectangle",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdRect rect = dice.rect();
         port.fillRoundRectangle(&palette, rect, 10);
         port.drawRoundRectangle(&palette, rect, 10);
     },
     OfLines},
    {"arc",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdRect rect = dice.rect();
         port.drawArc(&palette, rect, static_cast<float>(dice.between(0, 360)),
                      static_cast<float>(dice.between(-360, 360)));
     },
     OfLines},
    {"filled arc",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdRect rect = dice.rect();
         palette.setArcMode(dice.one(2) ? QsdArcPie : QsdArcChord);
         port.fillArc(&palette, rect, static_cast<float>(dice.between(0, 360)),
                      static_cast<float>(dice.between(-360, 360)));
     }},
    {"curve",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(1, 9);
         dice.one(2) ? port.drawBezier(&palette, points.size(), points.data())
                     : port.drawClosedBezier(&palette, points.size(), points.data());
     },
     OfLines},
    {"filled curve",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::vector<QsdPoint> points = dice.points(1, 9);
         port.fillBezier(&palette, points.size(), points.data());
     }},
    {"paths",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdPointArray paths[] = {QsdPointArray(dice.points(3, 6)), QsdPointArray(dice.points(3, 6))};
         port.fillPaths(&palette, 2, paths);
     }},
    {"bitmap",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::unique_ptr<QsdBitmap> bitmap = randomBitmap(port, dice);
         const QsdRect from{dice.between(-3, 3), dice.between(-3, 3), static_cast<std::uint32_t>(dice.between(0, 30)),
                            static_cast<std::uint32_t>(dice.between(0, 30))};
         const QsdPoint at = dice.point();
         dice.one(2) ? port.drawBitmap(&palette, bitmap.get(), from, at)
                     : port.drawTransparentBitmap(&palette, bitmap.get(), from, at);
     },
     OfPictures},
    {"stretched bitmap",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::unique_ptr<QsdBitmap> bitmap = randomBitmap(port, dice);
         const QsdRect clip = dice.rect();
         const QsdRect* const limit = dice.one(3) ? &clip : nullptr;
         const QsdRect dest = dice.rect();
         dice.one(2) ? port.stretchBitmap(&palette, dest, bitmap.get(), limit)
                     : port.stretchTransparentBitmap(&palette, dest, bitmap.get(), limit);
     },
     OfPictures},
    {"turned bitmap",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::unique_ptr<QsdBitmap> bitmap = randomBitmap(port, dice);
         const QsdTransformer t = randomTransformer(dice);
         const QsdPoint at = dice.point();
         dice.one(2) ? port.stretchBitmap(&palette, at, bitmap.get(), t, nullptr)
                     : port.stretchTransparentBitmap(&palette, at, bitmap.get(), t, nullptr);
     },
     OfPictures},
    {"stretched pixels",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const QsdRGBBitmapData data = dice.pixels();
         port.stretchBitmapData(&palette, &data, {0, 0, data.width(), data.height()}, dice.rect(), false);
     },
     OfPictures},
    {"placed bitmap",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) {
         const std::unique_ptr<QsdBitmap> bitmap = randomBitmap(port, dice);
         port.drawBitmap(&palette, bitmap.get(), dice.rect(), nullptr, QsdPositionCenter, dice.one(2));
     },
     OfPictures},
    {"cleared area",
     [](const QsdPort& port, QsdPalette& palette, Dice& dice) { port.clearArea(&palette, dice.rect()); }},
};

void setPattern(const QsdDisplay& display, QsdPalette& palette, Dice& dice)
{
    const QsdRGBBitmapData data = dice.pixels();
    const auto width = static_cast<std::uint16_t>(dice.between(1, 20));
    const auto height = static_cast<std::uint16_t>(dice.between(1, 20));
    const std::vector<unsigned char> bits = dice.bytes(std::size_t{(width + 7U) / 8} * height);
    palette.setFillStyle(static_cast<std::uint16_t>(dice.between(QsdFillPattern, QsdFillColorPattern)));
    if (palette.fillStyle() == QsdFillColorPattern) {
        palette.setColorPattern(QsdHandle<QsdColorPattern>::Adopt(display.createColorPattern(data)).get());
    } else {
        palette.setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(width, height, bits.data())).get());
    }
}

QsdRegion randomRegion(Dice& dice)
{
    QsdRegion region;
    for (std::int32_t i = dice.between(1, 4); i != 0; --i) {
        region.unite(dice.rect());
    }
    return region;
}

/// Makes one call with a palette, a clip and a transformer of the dice's choice; returns what it was.
std::string draw(const Call& call, QsdPort& port, const QsdDisplay& display, unsigned seed)
{
    Dice dice(seed);
    std::string told = std::string(call.name) + ", seed " + std::to_string(seed);
    const QsdHandle<QsdPalette> palette = paletteOf(display);
    const QsdRGB foreground = dice.color();
    setColors(*palette, foreground, dice.color());
    const auto width = static_cast<std::uint16_t>(dice.one(2) ? dice.between(0, 1) : dice.between(2, 12));
    const std::uint8_t dashes[] = {static_cast<std::uint8_t>(dice.between(0, 9)),
                                   static_cast<std::uint8_t>(dice.between(1, 9)), 3};
    const auto dashCount = static_cast<std::uint16_t>(dice.one(3) ? dice.between(2, 3) : 0);
    palette->setLineStyle(QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(dashCount, dashes)).get(), width);
    told += ", width " + std::to_string(width) + (dashCount != 0 ? ", dashed" : "");
    if (dice.one(3)) {
        setPattern(display, *palette, dice);
        told += ", patterned";
    }
    palette->setFillRule(dice.one(2) ? QsdEvenOddRule : QsdWindingRule);
    if (dice.one(3)) {
        palette->setClipRegion(randomRegion(dice));
        told += ", palette clipped";
    }
    const QsdRegion clip = randomRegion(dice);
    if (dice.one(4)) {
        port.clip(&clip);
        told += ", clipped";
    }
    QsdTransformer t;
    if (dice.one(3)) {
        t = dice.one(2) ? QsdTransformer(1, 0, 0, 1, dice.between(-9, 9), dice.between(-9, 9))
                        : randomTransformer(dice).translate(dice.between(0, 90), 30.5);
        told += ", transformed";
    }
    port.setTransformer(t);
    call.make(port, *palette, dice);
    port.setTransformer({});
    port.clip(static_cast<const QsdRegion*>(nullptr));
    return told;
}

/// Whether colours are the same but for what a screen of 16 bits cannot tell apart.
bool alike(QsdRGB a, QsdRGB b)
{
    constexpr int Step = 4;
    return std::abs(a.red - b.red) <= Step && std::abs(a.green - b.green) <= Step && std::abs(a.blue - b.blue) <= Step;
}

struct Difference {
    std::size_t pixels = 0;
    std::size_t painted = 0;
};

Difference compare(const std::vector<QsdRGB>& a, const std::vector<QsdRGB>& b, QsdRGB ground)
{
    Difference difference;
    for (std::size_t i = 0; i < a.size(); ++i) {
        difference.pixels += alike(a[i], b[i]) ? 0 : 1;
        difference.painted += a[i] == ground && b[i] == ground ? 0 : 1;
    }
    return difference;
}

using CompareTest = XTest;

void compareCalls(QsdXDisplay& xDisplay, std::uint16_t depth, unsigned firstSeed)
{
    // Where the server's map of colours is not a cube, both must choose among the same.
    QsdMemoryDisplay memory(xDisplay.screenDepth());
    QsdColorTable table = xDisplay.colors();
    memory.setColors(table);
    QsdXPixmap pixmap(&xDisplay, Width, Height, depth);
    QsdBitmap bitmap(&memory, Width, Height, depth);
    ASSERT_EQ(pixmap.depth(), bitmap.depth());
    const QsdRGB ground{255, 255, 255};
    constexpr unsigned Rounds = 40;
    for (const Call& call : Calls) {
        for (unsigned seed = firstSeed; seed < firstSeed + Rounds; ++seed) {
            for (QsdSystemPort* const port :
                 {static_cast<QsdSystemPort*>(&pixmap), static_cast<QsdSystemPort*>(&bitmap)}) {
                const QsdHandle<QsdPalette> white = paletteOf(*port->display());
                port->clear(white.get());
            }
            const std::string told = draw(call, pixmap, xDisplay, seed);
            draw(call, bitmap, memory, seed);
            const std::vector<QsdRGB> shown = colorsOf(pixmap, areaOf(pixmap));
            const std::vector<QsdRGB> expected = colorsOf(bitmap, areaOf(bitmap));
            ASSERT_EQ(shown.size(), expected.size());
            const Difference difference = compare(shown, expected, ground);
            constexpr std::size_t Always = 2; // where a clip leaves little
            const std::size_t allowed = call.tolerance == 0 ? 0 : difference.painted / call.tolerance;
            EXPECT_LE(difference.pixels, Always + allowed) << told << " of " << difference.painted;
        }
    }
}

TEST_F(CompareTest, ColouredPixmapsShowWhatBitmapsDo)
{
    compareCalls(*display, 0, 1);
}

TEST_F(CompareTest, OneBitPixmapsShowWhatBitmapsDo)
{
    compareCalls(*display, 1, 1000);
}

} // namespace
