// Two encoders: each image and pattern is written with the one that makes less of it.
#include "tests/unit/print/PrintDevice.h"

#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"
#include "toolkit/graphics/QsdColorPattern.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

namespace {

using Encoder = std::unique_ptr<QsdPostScriptEncoder>;
using Draw = std::function<void(PrintPage&)>;

std::unique_ptr<QsdBitmap> bitmapOf(PrintPage& page, std::uint32_t side, bool isNoise)
{
    std::mt19937 random(side);
    QsdRGBBitmapData data(side, side);
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const auto color = isNoise ? static_cast<std::uint32_t>(random()) : 0x123456U + y / 100;
            data.setPixel(x, y,
                          {static_cast<std::uint8_t>(color >> 16), static_cast<std::uint8_t>(color >> 8),
                           static_cast<std::uint8_t>(color)});
        }
    }
    return std::make_unique<QsdBitmap>(&page.display, data);
}

void drawImage(PrintPage& page, std::uint32_t side, bool isNoise)
{
    const auto bitmap = bitmapOf(page, side, isNoise);
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, side, side}, {0, 0});
}

void drawMasked(PrintPage& page, std::uint32_t side, bool isNoise)
{
    const auto bitmap = bitmapOf(page, side, isNoise);
    std::vector<unsigned char> bits(std::size_t{(side + 7) / 8} * side, 0xFF);
    bits.front() = 0x5A;
    bitmap->setMask(QsdBitmap::FromBits(&page.display, side, side, bits.data()));
    page.device.drawTransparentBitmap(page.palette.get(), bitmap.get(), {0, 0, side, side}, {0, 0});
}

void drawBits(PrintPage& page, std::uint32_t side, bool isNoise)
{
    std::mt19937 random(side);
    std::vector<unsigned char> bits(std::size_t{(side + 7) / 8} * side);
    std::generate(bits.begin(), bits.end(), [&] { return static_cast<unsigned char>(isNoise ? random() : 0xF0); });
    const auto bitmap = QsdBitmap::FromBits(&page.display, side, side, bits.data());
    page.device.drawBitmap(page.palette.get(), bitmap.get(), {0, 0, side, side}, {0, 0});
}

void fillPattern(PrintPage& page, std::uint32_t side, bool isNoise)
{
    std::mt19937 random(side);
    std::vector<unsigned char> pixels(std::size_t{4} * side * side);
    std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<unsigned char>(isNoise ? random() : 7); });
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(
        static_cast<std::uint16_t>(side), static_cast<std::uint16_t>(side), 24, pixels.data(), pixels.size()));
    page.palette->setColorPattern(pattern.get());
    page.palette->setFillStyle(QsdFillColorPattern);
    page.device.fillRectangle(page.palette.get(), {0, 0, 300, 300});
}

std::string documentOf(unsigned long level, QsdPostScriptEncoder* encoder, Encoder second, const Draw& draw)
{
    PrintPage page(level);
    page.device.setEncoder(encoder);
    page.device.setSecondEncoder(std::move(second));
    draw(page);
    return page.whole();
}

template <class Compressing>
class SecondEncoder : public testing::Test {
};
using Compressings = testing::Types<QsdLZWEncoder, QsdRunLengthEncoder>;
TYPED_TEST_SUITE(SecondEncoder, Compressings);

TYPED_TEST(SecondEncoder, TheShorterTextIsTaken)
{
    for (const unsigned long level : {2UL, 3UL}) {
        for (const auto drawKind : {drawImage, drawMasked, drawBits, fillPattern}) {
            for (const std::uint32_t side : {1U, 3U, 16U, 200U}) {
                for (const bool isNoise : {false, true}) {
                    const Draw draw = [&](PrintPage& page) { drawKind(page, side, isNoise); };
                    const std::string packed = documentOf(level, new TypeParam(nullptr), nullptr, draw);
                    const std::string plain = documentOf(level, new QsdASCII85Encoder(nullptr), nullptr, draw);
                    const std::string both =
                        documentOf(level, new TypeParam(nullptr), std::make_unique<QsdASCII85Encoder>(nullptr), draw);
                    EXPECT_LE(both.size(), std::min(packed.size(), plain.size())) << level << " " << side << isNoise;
                    // Several images are several choices.
                    if (drawKind != drawMasked) {
                        EXPECT_EQ(both, plain.size() < packed.size() ? plain : packed);
                    }
                }
            }
        }
    }
}

TYPED_TEST(SecondEncoder, EachImageIsAChoice)
{
    const std::string text =
        documentOf(2, new TypeParam(nullptr), std::make_unique<QsdASCII85Encoder>(nullptr), [](PrintPage& page) {
            drawImage(page, 100, true);
            drawImage(page, 100, false);
            drawImage(page, 90, true);
            drawBits(page, 1, true);
        });
    std::size_t packed = 0;
    for (std::size_t at = 0; (at = text.find("/exec load]cvx", at)) != std::string::npos; ++at) {
        ++packed;
    }
    EXPECT_EQ(packed, 1U);
}

/// Throws when its data begin for the second time, which is when they are written rather than measured.
class Throwing : public QsdASCII85Encoder {
public:
    explicit Throwing(int calls) : QsdASCII85Encoder(nullptr), _calls(calls) {}

    void startData() override
    {
        if (--_calls == 0) {
            throw std::runtime_error("encoder");
        }
        QsdASCII85Encoder::startData();
    }

private:
    int _calls;
};

TEST(SecondEncoderFault, LeavesNothingOfTheImage)
{
    for (const auto drawKind : {drawImage, drawMasked, drawBits, fillPattern}) {
        for (const int calls : {1, 2}) {
            PrintPage page(3);
            page.device.setEncoder(new QsdLZWEncoder(nullptr));
            page.device.setSecondEncoder(std::make_unique<Throwing>(calls));
            EXPECT_THROW(drawKind(page, 50, true), std::runtime_error);
            page.device.setSecondEncoder(nullptr);
            drawImage(page, 20, false);
            const std::string text = page.whole();
            EXPECT_EQ(text.find("50 50 8["), std::string::npos);
            EXPECT_EQ(text.find("50 50 true"), std::string::npos);
            EXPECT_EQ(text.find("/P1s["), std::string::npos);
            EXPECT_NE(text.find("LZWDecode"), std::string::npos);
        }
    }
}

/// Makes short texts, but none that a filter reads.
class Bare : public QsdASCII85Encoder {
public:
    Bare() : QsdASCII85Encoder(nullptr) {}
    [[nodiscard]] QsString getDecoderString() const override { return {}; }
};

TEST(SecondEncoderTest, HexadecimalDataStayHexadecimal)
{
    const Draw draw = [](PrintPage& page) { drawImage(page, 50, true); };
    const std::string alone = documentOf(1, nullptr, nullptr, draw);
    EXPECT_EQ(documentOf(1, nullptr, std::make_unique<QsdASCII85Encoder>(nullptr), draw), alone);
    const std::string packed = documentOf(2, new QsdLZWEncoder(nullptr), nullptr, draw);
    EXPECT_EQ(documentOf(2, new QsdLZWEncoder(nullptr), std::make_unique<Bare>(), draw), packed);
}

} // namespace
