#include "tests/unit/ps/TestDevice.h"

#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

#include <gtest/gtest.h>

namespace {

/// Tells what becomes of it.
class TracedEncoder : public QsdASCII85Encoder {
public:
    explicit TracedEncoder(bool& alive) : QsdASCII85Encoder(nullptr), _alive(alive) { _alive = true; }
    ~TracedEncoder() override { _alive = false; }
    void setStream(std::ostream* stream) override
    {
        bound = stream;
        QsdASCII85Encoder::setStream(stream);
    }

    std::ostream* bound = nullptr;

private:
    bool& _alive;
};

bool isHex(const QsdPostScriptEncoder* encoder)
{
    return dynamic_cast<const QsdASCIIHexEncoder*>(encoder) != nullptr;
}

bool is85(const QsdPostScriptEncoder* encoder)
{
    return dynamic_cast<const QsdASCII85Encoder*>(encoder) != nullptr;
}

class Settings : public ::testing::Test {
protected:
    QsdMemoryDisplay display;
    TestDevice device{&display};
    bool alive = false;
};

TEST_F(Settings, LevelTwoIsTheDefault)
{
    EXPECT_EQ(device.getPostScriptLevel(), 2U);
    EXPECT_TRUE(is85(device.getEncoder()));
}

TEST_F(Settings, LevelsInstallTheirEncoders)
{
    device.setPostScriptLevel(1);
    EXPECT_TRUE(isHex(device.getEncoder()));
    device.setPostScriptLevel(2);
    EXPECT_TRUE(is85(device.getEncoder()));
    device.setPostScriptLevel(3);
    EXPECT_EQ(device.getPostScriptLevel(), 3U);
    EXPECT_TRUE(is85(device.getEncoder()));
    device.setPostScriptLevel(0);
    EXPECT_TRUE(is85(device.getEncoder()));
}

TEST_F(Settings, LevelOneEncoderIsBoundAndWritesNoEndMark)
{
    device.initDevice("unused", nullptr);
    device.taken();
    device.setPostScriptLevel(1);
    device.getEncoder()->startData();
    device.getEncoder()->putByte(0xAB);
    device.getEncoder()->endData();
    EXPECT_EQ(device.taken(), "ab\n");
    device.end();
}

TEST_F(Settings, LevelOneKeepsNoEncoderOfTheCallers)
{
    device.setPostScriptLevel(1);
    auto* const mine = new TracedEncoder(alive);
    device.setEncoder(mine);
    EXPECT_FALSE(alive);
    EXPECT_TRUE(isHex(device.getEncoder()));
    device.setEncoder(nullptr);
    EXPECT_TRUE(isHex(device.getEncoder()));
}

TEST_F(Settings, EncodersBelongToTheDevice)
{
    auto* const mine = new TracedEncoder(alive);
    device.setEncoder(mine);
    EXPECT_EQ(device.getEncoder(), mine);
    EXPECT_EQ(mine->bound, nullptr);
    device.initDevice("unused", nullptr);
    EXPECT_NE(mine->bound, nullptr);
    device.end();
    EXPECT_EQ(mine->bound, nullptr);
    device.setEncoder(nullptr);
    EXPECT_FALSE(alive);
    EXPECT_EQ(device.getEncoder(), nullptr);
}

TEST_F(Settings, EncoderIsBoundToTheOpenStream)
{
    device.initDevice("unused", nullptr);
    auto* const mine = new TracedEncoder(alive);
    device.setEncoder(mine);
    EXPECT_NE(mine->bound, nullptr);
    device.end();
}

TEST_F(Settings, DestructionDeletesTheEncoder)
{
    {
        TestDevice other(&display);
        other.setEncoder(new TracedEncoder(alive));
        EXPECT_TRUE(alive);
    }
    EXPECT_FALSE(alive);
}

TEST_F(Settings, ImageQueriesFollowTheModel)
{
    EXPECT_EQ(device.imageStringSize(10), 30U);
    EXPECT_STREQ(device.imageOperatorString(), "false 3 colorimage");
    device.setColorModel(QsdPSGrey);
    EXPECT_EQ(device.imageStringSize(10), 10U);
    EXPECT_STREQ(device.imageOperatorString(), "image");
    device.setColorModel(static_cast<QsdPSColorModel>(9));
    EXPECT_EQ(device.imageStringSize(10), 30U);
    EXPECT_STREQ(device.imageOperatorString(), "false 3 colorimage");
}

TEST_F(Settings, NoEncoderDrawsNoSamples)
{
    device.initDevice("unused", nullptr);
    device.setEncoder(nullptr);
    device.taken();
    const unsigned char data[] = {1, 2, 3, 4};
    device.writeImage(&display, 24, 1, 1, data, 4);
    EXPECT_EQ(device.taken(), "");
    device.end();
}

TEST_F(Settings, TheEncoderBeforeIsDeletedFirst)
{
    class Second : public QsdASCII85Encoder {
    public:
        Second(const bool& firstAlive, bool& sawFirst)
            : QsdASCII85Encoder(nullptr), _firstAlive(firstAlive), _sawFirst(sawFirst)
        {
        }
        void setStream(std::ostream* stream) override
        {
            _sawFirst = _firstAlive;
            QsdASCII85Encoder::setStream(stream);
        }

    private:
        const bool& _firstAlive;
        bool& _sawFirst;
    };
    device.setEncoder(new TracedEncoder(alive));
    ASSERT_TRUE(alive);
    bool sawFirst = true;
    device.setEncoder(new Second(alive, sawFirst));
    EXPECT_FALSE(sawFirst);
}

TEST_F(Settings, TheEncoderInUseMayBeSetAgain)
{
    device.initDevice("unused", nullptr);
    auto* const mine = new TracedEncoder(alive);
    device.setEncoder(mine);
    mine->bound = nullptr;
    device.setEncoder(device.getEncoder());
    EXPECT_TRUE(alive);
    EXPECT_EQ(device.getEncoder(), mine);
    EXPECT_NE(mine->bound, nullptr);

    device.setPostScriptLevel(1);
    device.setEncoder(device.getEncoder());
    device.taken();
    device.getEncoder()->startData();
    device.getEncoder()->putByte(0xAB);
    device.getEncoder()->endData();
    EXPECT_EQ(device.taken(), "ab\n");
    device.end();
}

TEST_F(Settings, TheDevicesHeaderBringsTheFontRegistry)
{
    const QsdPSFonts_& registry = *QsdPSFonts_::GetInstance();
    const QsdPSFontNames_* const times = registry.getPSFontNames(QsEncodingLatin1, "times");
    ASSERT_NE(times, nullptr);
    EXPECT_STREQ(times->normalName(), "Times-Roman");
}

TEST_F(Settings, EveryLevelsEncoderIsBoundToTheOpenStream)
{
    device.initDevice("unused", nullptr);
    for (const unsigned long level : {2UL, 3UL, 0UL}) {
        device.setPostScriptLevel(level);
        device.taken();
        device.getEncoder()->startData();
        device.getEncoder()->putByte(0);
        device.getEncoder()->endData();
        EXPECT_EQ(device.taken(), "!!~>\n") << level;
    }
    device.end();
}

TEST_F(Settings, DestructionDeletesTheEncoderBeforeTheStream)
{
    class Stream : public std::ostringstream {
    public:
        Stream(const bool& encoderAlive, bool& sawEncoder) : _encoderAlive(encoderAlive), _sawEncoder(sawEncoder) {}
        ~Stream() override { _sawEncoder = _encoderAlive; }

    private:
        const bool& _encoderAlive;
        bool& _sawEncoder;
    };
    class Device : public QsdPSDevice {
    public:
        Device(QsdDisplay* display, const bool& encoderAlive, bool& sawEncoder)
            : QsdPSDevice(display, QsdPSRGB), _encoderAlive(encoderAlive), _sawEncoder(sawEncoder)
        {
        }
        std::ostream* openStream(const char*) override { return new Stream(_encoderAlive, _sawEncoder); }

    private:
        const bool& _encoderAlive;
        bool& _sawEncoder;
    };
    bool sawEncoder = true;
    {
        Device other(&display, alive, sawEncoder);
        other.setEncoder(new TracedEncoder(alive));
        other.initDevice("unused", nullptr);
        ASSERT_TRUE(alive);
    }
    EXPECT_FALSE(alive);
    EXPECT_FALSE(sawEncoder);
}

} // namespace
