// What is promised when something fails on the way: nothing breaks, nothing leaks, the failure is told once, and the
// next document is whole.
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace {

/// Takes so many bytes and no more; then it refuses, or throws.
class LimitedBuffer : public std::streambuf {
public:
    LimitedBuffer(std::size_t limit, bool throws) : _limit(limit), _throws(throws) {}

    [[nodiscard]] const std::string& text() const { return _text; }

protected:
    int_type overflow(int_type c) override
    {
        const char character = traits_type::to_char_type(c);
        return xsputn(&character, 1) == 1 ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        const auto taken = std::min(static_cast<std::size_t>(count), _limit - _text.size());
        _text.append(text, taken);
        if (taken != static_cast<std::size_t>(count) && _throws) {
            throw std::runtime_error("full");
        }
        return static_cast<std::streamsize>(taken);
    }

private:
    std::size_t _limit;
    bool _throws;
    std::string _text;
};

/// A device whose next document goes to a buffer.
template <class Device>
class OnBuffer : public Device {
public:
    using Device::Device;

    void setBuffer(std::streambuf* buffer) { _buffer = buffer; }
    std::ostream* openStream(const char*) override { return new std::ostream(_buffer); }

private:
    std::streambuf* _buffer = nullptr;
};

/// The same for devices that write in blocks, to a stream.
template <class Device>
class OnBuffer<QsdPSBulkDevice<Device>> : public QsdPSBulkDevice<Device> {
public:
    using QsdPSBulkDevice<Device>::QsdPSBulkDevice;

    void setBuffer(std::streambuf* buffer)
    {
        _stream = std::make_unique<std::ostream>(buffer);
        this->setTarget(_stream.get());
    }

private:
    std::unique_ptr<std::ostream> _stream;
};

template <class Device>
class Faults : public ::testing::Test {
protected:
    Faults()
    {
        QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
        QsdRGBBitmapData data(5, 5);
        for (std::uint32_t i = 0; i < 25; ++i) {
            data.setPixel(i % 5, i / 5, {static_cast<std::uint8_t>(10 * i), static_cast<std::uint8_t>(7 * i), 3});
        }
        bitmap = std::make_unique<QsdBitmap>(&display, data);
    }
    ~Faults() override { QsdSetFatalErrorHandler(nullptr, nullptr); }

    /// A small document with something of every kind.
    void drawDocument()
    {
        device.initDevice("unused", nullptr);
        const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        device.drawLine(palette.get(), {0, 0}, {10, 10});
        device.drawString(palette.get(), {20, 20}, "text", 4, QsdPositionCenter);
        const unsigned char bits[] = {0x80, 0x40};
        palette->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(2, 2, bits)).get());
        device.fillRectangle(palette.get(), {5, 5, 20, 20});
        const QsdRect clip{0, 0, 50, 50};
        device.clip(&clip);
        device.stretchBitmap(palette.get(), QsdRect{0, 0, 20, 20}, bitmap.get(), &clip);
        device.newPage();
        device.drawBitmap(palette.get(), bitmap.get(), {0, 0, 5, 5}, {1, 1});
        device.end();
    }

    QsdMemoryDisplay display;
    OnBuffer<Device> device{&display, QsdPSRGB};
    std::unique_ptr<QsdBitmap> bitmap;
    int reports = 0;
};

using Devices =
    ::testing::Types<QsdPSDevice, QsdPSPrintDevice, QsdPSBulkDevice<QsdPSDevice>, QsdPSBulkDevice<QsdPSPrintDevice>>;
TYPED_TEST_SUITE(Faults, Devices);

TYPED_TEST(Faults, OutputThatIsFullAtAnyByteIsReportedOnce)
{
    constexpr std::size_t Unlimited = std::numeric_limits<std::size_t>::max();
    LimitedBuffer whole(Unlimited, false);
    this->device.setBuffer(&whole);
    this->drawDocument();
    ASSERT_FALSE(this->device.writeFailed());
    ASSERT_EQ(this->reports, 0);
    const std::string expected = whole.text();
    for (const bool throws : {false, true}) {
        for (std::size_t limit = 0; limit < expected.size(); ++limit) {
            this->reports = 0;
            LimitedBuffer full(limit, throws);
            this->device.setBuffer(&full);
            this->drawDocument();
            ASSERT_TRUE(this->device.writeFailed()) << limit;
            ASSERT_EQ(this->reports, 1) << limit;
            ASSERT_TRUE(full.text() == expected.substr(0, limit)) << limit;
            ASSERT_TRUE(this->device.isBad());
        }
    }
    LimitedBuffer again(expected.size(), false);
    this->device.setBuffer(&again);
    this->drawDocument();
    EXPECT_FALSE(this->device.writeFailed());
    EXPECT_TRUE(again.text() == expected);
}

/// Throws at its n-th call.
class ThrowingEncoder : public QsdASCII85Encoder {
public:
    explicit ThrowingEncoder(int calls) : QsdASCII85Encoder(nullptr), _calls(calls) {}

    void startData() override
    {
        count();
        QsdASCII85Encoder::startData();
    }
    void putByte(unsigned char byte) override
    {
        count();
        QsdASCII85Encoder::putByte(byte);
    }
    void putBytes(unsigned long size, const unsigned char* bytes) override
    {
        count();
        QsdASCII85Encoder::putBytes(size, bytes);
    }
    void endData() override
    {
        count();
        QsdASCII85Encoder::endData();
    }

private:
    void count()
    {
        if (_calls-- == 0) {
            throw std::runtime_error("encoder");
        }
    }

    int _calls;
};

TYPED_TEST(Faults, AnEncoderThatThrowsLeavesTheClipAsItWas)
{
    for (int calls = 0; calls < 27; ++calls) {
        LimitedBuffer buffer(1 << 20, false);
        this->device.setBuffer(&buffer);
        this->device.setEncoder(new ThrowingEncoder(calls));
        ASSERT_TRUE(this->device.initDevice("unused", nullptr));
        const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&this->display));
        const QsdRect clip{0, 0, 10, 10};
        bool thrown = false;
        try {
            this->device.stretchBitmap(palette.get(), QsdRect{0, 0, 20, 20}, this->bitmap.get(), &clip);
        } catch (const std::runtime_error&) {
            thrown = true;
        }
        // What is drawn next is not clipped.
        this->device.setEncoder(new QsdASCII85Encoder(nullptr));
        this->device.drawLine(palette.get(), {0, 0}, {10, 10});
        this->device.end();
        EXPECT_FALSE(this->device.writeFailed());
        const std::string& text = buffer.text();
        const std::size_t clipped = text.find("rectclip\n", text.find("%%EndPageSetup"));
        const std::size_t regionClip = text.find("clip n\n", text.find("%%EndPageSetup"));
        const std::size_t restored = text.find(" rc gsave\n", std::min(clipped, regionClip));
        EXPECT_NE(restored, std::string::npos) << text;
        EXPECT_TRUE(thrown || calls > 3);
    }
}

} // namespace
