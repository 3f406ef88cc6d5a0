#include "page/picture_strips.h"

#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

/// A picture whose pixels follow from their places.
class MadeUp : public ImageReader {
public:
    MadeUp(std::uint32_t width, std::uint32_t height, PixelKind kind, bool hasAlpha)
    {
        _header.width = width;
        _header.height = height;
        _header.kind = kind;
        _header.hasAlpha = hasAlpha;
        _header.set = {0, 0, 128};
        _header.clear = {255, 255, 0};
    }

    static bool bitAt(std::uint32_t x, std::uint32_t y) { return (x * 7 + y * 3) % 5 < 2; }
    static Rgb colorAt(std::uint32_t x, std::uint32_t y)
    {
        return {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x / 256)};
    }
    static bool isClearAt(std::uint32_t x, std::uint32_t) { return x < 3; }

    void decodeRow(std::uint8_t* row) override
    {
        std::fill_n(row, rowBytesOf(_header), std::uint8_t{0});
        for (std::uint32_t x = 0; x < _header.width; ++x) {
            if (_header.kind == PixelKind::Bits) {
                row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | (bitAt(x, _row) ? 0x80U >> (x % 8) : 0U));
                continue;
            }
            const Rgb color = colorAt(x, _row);
            row[4 * x] = color.r;
            row[4 * x + 1] = color.g;
            row[4 * x + 2] = color.b;
            row[4 * x + 3] = _header.hasAlpha && isClearAt(x, _row) ? 0 : 255;
        }
        ++_row;
    }

private:
    std::uint32_t _row = 0;
};

constexpr Rgb Paper{0, 200, 0};

std::uint32_t valueOf(Rgb color)
{
    return static_cast<std::uint32_t>(color.r << 16 | color.g << 8 | color.b);
}

/// Draws the picture on paper and compares every pixel with what `expected` says.
template <class Expected>
void expectPixels(MadeUp picture, Expected expected)
{
    const ImageHeader header = picture.header();
    QsdMemoryDisplay display;
    PaintTools tools(display, QsEncodingLatin1);
    QsdBitmap port(&display, header.width, header.height, 24);
    tools.palette->setForeground(tools.colors.get(Paper));
    port.fillRectangle(tools.palette.get(), {0, 0, header.width, header.height});
    std::uint32_t last = 0;
    EXPECT_TRUE(drawPicture(port, picture, Paper, tools, [&](std::uint32_t rows) {
        EXPECT_GT(rows, last);
        last = rows;
        return true;
    }));
    EXPECT_EQ(last, header.height);
    std::size_t wrong = 0;
    for (std::uint32_t y = 0; y < header.height; ++y) {
        for (std::uint32_t x = 0; x < header.width; ++x) {
            wrong += (port.pixels().get(x, y) & 0xFFFFFFU) == valueOf(expected(x, y)) ? 0 : 1;
        }
    }
    EXPECT_EQ(wrong, 0U);
}

} // namespace

TEST(PictureStrips, ColoursMeetInEveryDirection)
{
    expectPixels({17000, 40, PixelKind::Color, false}, MadeUp::colorAt);
    expectPixels({5, 3000, PixelKind::Grey, false}, MadeUp::colorAt);
}

TEST(PictureStrips, BitsMeetInEveryDirection)
{
    const auto expected = [](std::uint32_t x, std::uint32_t y) {
        return MadeUp::bitAt(x, y) ? Rgb{0, 0, 128} : Rgb{255, 255, 0};
    };
    expectPixels({40000, 300, PixelKind::Bits, false}, expected);
    expectPixels({1, 1, PixelKind::Bits, false}, expected);
}

TEST(PictureStrips, TransparentPixelsShowThePaper)
{
    expectPixels({20000, 30, PixelKind::Color, true}, [](std::uint32_t x, std::uint32_t y) {
        return MadeUp::isClearAt(x, y) ? Paper : MadeUp::colorAt(x, y);
    });
}

TEST(PictureStrips, StopWhenTold)
{
    QsdMemoryDisplay display;
    PaintTools tools(display, QsEncodingLatin1);
    QsdBitmap port(&display, 10, 10, 24);
    MadeUp picture(1000, 100'000, PixelKind::Color, false);
    int calls = 0;
    EXPECT_TRUE(drawPicture(port, picture, Paper, tools, [&](std::uint32_t) { return ++calls < 2; }));
    EXPECT_EQ(calls, 2);
}
