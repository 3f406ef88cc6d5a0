#include "tests/unit/ps/TestDevice.h"

#include "tests/unit/ps/RecordingEncoder.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

class Image : public ::testing::Test {
protected:
    std::string calls(QsdPSColorModel model, unsigned long depth, unsigned long width, unsigned long height,
                      const std::vector<unsigned char>& data)
    {
        std::string recorded;
        TestDevice device(&display, model);
        device.initDevice("unused", nullptr);
        device.setEncoder(new RecordingEncoder(recorded));
        device.writeImage(&display, depth, width, height, data.data(), data.size());
        device.end();
        return recorded;
    }

    QsdMemoryDisplay display{8};
};

TEST_F(Image, WithoutAreaNothingIsStarted)
{
    EXPECT_EQ(calls(QsdPSRGB, 1, 0, 5, {1, 2, 3, 4, 5}), "");
    EXPECT_EQ(calls(QsdPSRGB, 24, 5, 0, {1, 2, 3, 4, 5}), "");
}

TEST_F(Image, OneBitRowsPassUnchanged)
{
    EXPECT_EQ(calls(QsdPSRGB, 1, 9, 2, {0xA5, 0x80, 0x5A, 0x7F}), "start [A5 80] [5A 7F] end");
    EXPECT_EQ(calls(QsdPSGrey, 1, 8, 1, {0xA5}), "start [A5] end");
}

TEST_F(Image, RowPaddingIsSkipped)
{
    EXPECT_EQ(calls(QsdPSRGB, 1, 8, 2, {0xA5, 0xEE, 0x5A, 0xEE}), "start [A5] [5A] end");
    EXPECT_EQ(calls(QsdPSRGB, 24, 1, 2, {0, 1, 2, 3, 9, 9, 0, 4, 5, 6, 9, 9}), "start [01 02 03] [04 05 06] end");
}

TEST_F(Image, IndicesGoThroughTheColourTable)
{
    display.setColors(QsdColorTable({{1, 2, 3}, {255, 0, 0}}));
    for (const unsigned long depth : {0UL, 2UL, 8UL}) {
        EXPECT_EQ(calls(QsdPSRGB, depth, 2, 1, {1, 0}), "start FF 00 00 01 02 03 end");
        EXPECT_EQ(calls(QsdPSGrey, depth, 2, 1, {1, 255}), "start 57 00 end");
    }
}

TEST_F(Image, ComponentsKeepTheirHighByte)
{
    class Odd : public QsdMemoryDisplay {
    public:
        void colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                        unsigned short* blues) const override
        {
            EXPECT_EQ(count, 256);
            std::fill_n(reds, count, static_cast<unsigned short>(0x12FF));
            std::fill_n(greens, count, static_cast<unsigned short>(0xFF00));
            std::fill_n(blues, count, static_cast<unsigned short>(0x00FF));
        }
    };
    const Odd odd;
    std::string recorded;
    TestDevice device(&display, QsdPSRGB);
    device.initDevice("unused", nullptr);
    device.setEncoder(new RecordingEncoder(recorded));
    const unsigned char index = 0;
    device.writeImage(&odd, 8, 1, 1, &index, 1);
    EXPECT_EQ(recorded, "start 12 FF 00 end");
    device.end();
}

TEST_F(Image, DirectPixels)
{
    const std::vector<unsigned char> pixels = {7, 255, 255, 255, 7, 255, 0, 0, 7, 0, 255, 0, 7, 0, 0, 255};
    EXPECT_EQ(calls(QsdPSRGB, 9, 4, 1, pixels), "start [FF FF FF] [FF 00 00] [00 FF 00] [00 00 FF] end");
    EXPECT_EQ(calls(static_cast<QsdPSColorModel>(5), 32, 1, 1, {7, 1, 2, 3}), "start [01 02 03] end");
    EXPECT_EQ(calls(QsdPSGrey, 24, 4, 1, pixels), "start FF 57 7F 27 end");
}

TEST_F(Image, BytesThatRowsAreShortOfAreZero)
{
    EXPECT_EQ(calls(QsdPSRGB, 1, 17, 2, {1, 2, 3, 4}), "start [01 02] 00 [03 04] 00 end");
    EXPECT_EQ(calls(QsdPSRGB, 24, 2, 2, {7, 1, 2, 3, 7, 4, 7, 5}),
              "start [01 02 03] [00 00 00] [04 07 05] [00 00 00] end");
    EXPECT_EQ(calls(QsdPSRGB, 24, 1, 1, {7, 1, 2}), "start [01 02 00] end");
    EXPECT_EQ(calls(QsdPSGrey, 24, 2, 1, {7, 255, 255, 255}), "start FF 00 end");
    display.setColors(QsdColorTable({{1, 2, 3}, {255, 0, 0}}));
    EXPECT_EQ(calls(QsdPSRGB, 8, 3, 1, {1}), "start FF 00 00 01 02 03 01 02 03 end");
    EXPECT_EQ(calls(QsdPSRGB, 24, 1, 3, {7, 9}), "start [00 00 00] [00 00 00] [00 00 00] end");
}

TEST_F(Image, NullDataIsZeros)
{
    std::string recorded;
    TestDevice device(&display, QsdPSRGB);
    device.initDevice("unused", nullptr);
    device.setEncoder(new RecordingEncoder(recorded));
    device.writeImage(&display, 1, 9, 1, nullptr, 2);
    device.writeImage(&display, 24, 1, 1, nullptr, 4);
    EXPECT_EQ(recorded, "start 00 00 end start [00 00 00] end");
    device.end();
}

TEST_F(Image, ColoursThatADisplayLeavesOutAreBlack)
{
    class Idle : public QsdMemoryDisplay {
    public:
        void colorTable(unsigned short, unsigned short*, unsigned short*, unsigned short*) const override {}
    };
    const Idle idle;
    std::string recorded;
    TestDevice device(&display, QsdPSRGB);
    device.initDevice("unused", nullptr);
    device.setEncoder(new RecordingEncoder(recorded));
    const unsigned char index = 200;
    device.writeImage(&idle, 8, 1, 1, &index, 1);
    EXPECT_EQ(recorded, "start 00 00 00 end");
    device.end();
}

TEST_F(Image, OurEncodersGetTheSameSamples)
{
    const unsigned char pixels[] = {7, 255, 255, 255, 7, 255, 0, 0, 7, 0, 255, 0, 7, 0, 0, 255};
    TestDevice device(&display, QsdPSGrey);
    device.setPostScriptLevel(1);
    device.initDevice("unused", nullptr);
    device.taken();
    device.writeImage(&display, 24, 4, 1, pixels, sizeof pixels);
    EXPECT_EQ(device.taken(), "ff577f27\n");
    device.setColorModel(QsdPSRGB);
    device.writeImage(&display, 24, 4, 1, pixels, sizeof pixels);
    EXPECT_EQ(device.taken(), "ffffffff000000ff000000ff\n");
    device.end();
}

TEST_F(Image, OurEncodersGetEveryPixelOfALongRow)
{
    constexpr unsigned long Width = 600;
    std::vector<unsigned char> pixels;
    std::string expected;
    for (unsigned long i = 0; i < Width; ++i) {
        const auto value = static_cast<unsigned char>(i % 251);
        pixels.insert(pixels.end(), {0, value, value, value});
        const char* const digits = "0123456789abcdef";
        expected.append({digits[value >> 4], digits[value & 15]});
    }
    TestDevice device(&display, QsdPSGrey);
    device.setPostScriptLevel(1);
    device.initDevice("unused", nullptr);
    device.taken();
    device.writeImage(&display, 24, Width, 1, pixels.data(), pixels.size());
    std::string text = device.taken();
    std::erase(text, '\n');
    EXPECT_EQ(text, expected);
    device.end();
}

} // namespace
