// Drawing with numbers that nobody means.
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

/// Numbers around zero, and the ends of their ranges.
class Numbers {
public:
    std::int32_t coordinate()
    {
        switch (_random() % 4) {
        case 0:
            return static_cast<std::int32_t>(_random());
        case 1:
            return _random() % 2 == 0 ? std::numeric_limits<std::int32_t>::min()
                                      : std::numeric_limits<std::int32_t>::max();
        default:
            return static_cast<std::int32_t>(_random() % 60) - 20;
        }
    }
    std::uint32_t length() { return _random() % 3 == 0 ? upTo(0xFFFFFFFF) : upTo(40); }
    QsdPoint point() { return {coordinate(), coordinate()}; }
    QsdRect rect() { return {coordinate(), coordinate(), length(), length()}; }
    double factor()
    {
        constexpr double Factors[] = {0, 1, -1, 0.5, 3, 1e-300, 1e300, -1e18, 1e9};
        return _random() % 40 == 0 ? std::nan("") : Factors[_random() % std::size(Factors)];
    }
    QsdTransformer transformer()
    {
        if (_random() % 2 == 0) {
            return {};
        }
        return {factor(), factor(), factor(), factor(), factor(), factor()};
    }
    float angle() { return static_cast<float>(factor()) * 100; }
    std::uint32_t upTo(std::uint32_t count) { return static_cast<std::uint32_t>(_random() % count); }

private:
    std::mt19937 _random{29};
};

/// A palette with a line, a font, a pattern and a clip by chance.
QsdHandle<QsdPalette> palette(Numbers& numbers, const QsdDisplay& display)
{
    auto result = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    const std::uint8_t dashes[] = {static_cast<std::uint8_t>(numbers.upTo(4)),
                                   static_cast<std::uint8_t>(numbers.upTo(256)), 1};
    const auto style =
        QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(static_cast<std::uint16_t>(numbers.upTo(4)), dashes));
    result->setLineStyle(style.get(), static_cast<std::uint16_t>(numbers.upTo(3) * numbers.upTo(65536) / 2));
    const auto font = QsdHandle<QsdFont>::Adopt(new QsdFont("times", static_cast<std::uint16_t>(numbers.upTo(8)),
                                                            static_cast<std::uint16_t>(numbers.length())));
    result->setFont(font.get());
    const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(3, 1, dashes));
    result->setPattern(numbers.upTo(2) == 0 ? pattern.get() : nullptr);
    result->setFillStyle(static_cast<std::uint16_t>(numbers.upTo(4)));
    result->setFillRule(static_cast<std::uint16_t>(numbers.upTo(2)));
    if (numbers.upTo(2) == 0) {
        QsdRegion clip(numbers.rect());
        clip.unite(numbers.rect());
        result->setClipRegion(clip);
    }
    return result;
}

void drawSomething(Numbers& numbers, const QsdBitmap& bitmap, const QsdPalette* p, const QsdBitmap& source)
{
    std::vector<QsdPoint> points(1 + numbers.upTo(9));
    for (QsdPoint& point : points) {
        point = numbers.point();
    }
    const QsdRect rect = numbers.rect();
    const QsdRegion clip(numbers.rect());
    const auto position = static_cast<QsdPosition>(numbers.upTo(32));
    switch (numbers.upTo(20)) {
    case 0:
        return bitmap.drawPoints(p, points.size(), points.data());
    case 1:
        return bitmap.drawSegments(p, points.size() / 2, points.data(), points.data() + points.size() / 2);
    case 2:
        return bitmap.drawPolyLine(p, points.size(), points.data());
    case 3:
        return bitmap.fillPolyLine(p, points.size(), points.data(), false);
    case 4:
        return bitmap.drawRectangle(p, rect);
    case 5:
        return bitmap.fillRectangle(p, rect);
    case 6:
        return bitmap.drawArc(p, rect, numbers.angle(), numbers.angle());
    case 7:
        return bitmap.fillArc(p, rect, numbers.angle(), numbers.angle());
    case 8:
        return bitmap.drawBezier(p, points.size(), points.data());
    case 9:
        return bitmap.fillBezier(p, points.size(), points.data());
    case 10:
        return bitmap.drawBitmap(p, &source, rect, points[0]);
    case 11:
        return bitmap.drawTransparentBitmap(p, &source, rect, points[0]);
    case 12:
        return bitmap.stretchBitmap(p, points[0], &source, numbers.transformer(), &rect);
    case 13:
        return bitmap.stretchTransparentBitmap(p, rect, &source, nullptr);
    case 14:
        return bitmap.drawBitmap(p, &source, rect, numbers.rect(), &clip, position, numbers.upTo(2) == 0);
    case 15:
        return bitmap.drawIString(p, points[0], "A \xE9\x80z", -1, position);
    case 16:
        return bitmap.drawTransformedString(p, "Ag", 2, numbers.transformer(), &clip);
    case 17:
        bitmap.drawRoundRectangle(p, rect, 40000);
        return bitmap.fillRoundRectangle(p, rect, 3);
    case 18:
        bitmap.drawReliefDiamond(p, p, p, rect, 65535);
        bitmap.drawReliefLine(p, p, points[0], points.back(), 65535);
        return bitmap.drawArrow(p, points[0], points.back(), numbers.angle());
    default:
        bitmap.drawShadowRectangle(p, p, rect, 65535, position);
        return bitmap.drawLabel(p, rect, "a\nb\n", -1, &clip, position);
    }
}

// What this can find shows under the sanitizers, or as a test that does not end.
TEST(Extremes, DoNoHarm)
{
    Numbers numbers;
    for (const unsigned short depth : {std::uint16_t{1}, std::uint16_t{8}, std::uint16_t{24}}) {
        QsdMemoryDisplay display(depth);
        QsdBitmap source(&display, 5, 4, 24);
        source.setMask(std::make_unique<QsdBitmap>(&display, 3U, 9U, std::uint16_t{1}));
        QsdBitmap bitmap(&display, 40, 30, 24);
        for (int i = 0; i < 4000; ++i) {
            const auto p = palette(numbers, display);
            bitmap.setTransformer(numbers.transformer());
            drawSomething(numbers, bitmap, p.get(), source);
        }
        bitmap.setTransformer({});
        const auto plain = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        plain->setBackground(display.black());
        bitmap.clear(plain.get());
        const QsdPixels::Value black = depth == 1 ? 1 : 0;
        EXPECT_EQ(bitmap.pixels().get(0, 0), black);
        EXPECT_EQ(bitmap.pixels().get(39, 29), black);
    }
}

} // namespace
