#include "tests/unit/toolkit/Ascii85Decoder.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

template <class Encoder>
std::string encoded(Encoder& encoder, std::ostringstream& out, const Bytes& data)
{
    out.str("");
    encoder.startData();
    encoder.putBytes(data.size(), data.data());
    encoder.endData();
    return out.str();
}

std::string ascii85(const Bytes& data)
{
    std::ostringstream out;
    QsdASCII85Encoder encoder(&out);
    return encoded(encoder, out, data);
}

std::string hex(const Bytes& data, bool endMark = false)
{
    std::ostringstream out;
    QsdASCIIHexEncoder encoder(&out, endMark);
    return encoded(encoder, out, data);
}

/// Groups that read "%%..." and "%!..." when they are encoded.
Bytes commentGroups(std::size_t count, unsigned second)
{
    const std::uint32_t value = ((4U * 85 + second) * 85 * 85 + 17) * 85;
    Bytes data;
    for (std::size_t i = 0; i < count; ++i) {
        for (int shift = 24; shift >= 0; shift -= 8) {
            data.push_back(static_cast<unsigned char>(value >> shift));
        }
    }
    return data;
}

TEST(Ascii85, KnownTexts)
{
    EXPECT_EQ(ascii85({}), "~>\n");
    EXPECT_EQ(ascii85({'M', 'a', 'n', ' '}), "9jqo^~>\n");
    EXPECT_EQ(ascii85({'M'}), "9`~>\n");
    EXPECT_EQ(ascii85({0, 0, 0, 0}), "z~>\n");
    EXPECT_EQ(ascii85({0, 0, 0}), "!!!!~>\n");
    EXPECT_EQ(ascii85({255, 255, 255, 255}), "s8W-!~>\n");
}

TEST(Ascii85, EveryLengthIsDecodedAgain)
{
    std::mt19937 random(85);
    for (std::size_t length = 0; length < 600; ++length) {
        Bytes data(length);
        for (unsigned char& byte : data) {
            byte = static_cast<unsigned char>(random() % 3 == 0 ? 0 : random());
        }
        const std::string text = ascii85(data);
        ASSERT_EQ(decoded85(text), data) << length;
        expectGoodLines(text);
    }
}

TEST(Ascii85, LinesNeverLookLikeComments)
{
    for (const unsigned second : {4U, 0U}) {
        const Bytes data = commentGroups(3000, second);
        const std::string text = ascii85(data);
        expectGoodLines(text);
        EXPECT_EQ(decoded85(text), data);
        Bytes shorter(data.begin(), data.begin() + 2);
        expectGoodLines(ascii85(shorter));
        EXPECT_EQ(decoded85(ascii85(shorter)), shorter);
    }
}

TEST(Ascii85, BytesAndBlocksAgree)
{
    std::ostringstream out;
    QsdASCII85Encoder encoder(&out);
    Bytes data(5000);
    for (std::size_t i = 0; i < data.size(); ++i) {
        data[i] = static_cast<unsigned char>(i * 37);
    }
    encoder.startData();
    for (std::size_t i = 0; i < data.size();) {
        const std::size_t block = std::min<std::size_t>(i % 7, data.size() - i);
        encoder.putBytes(block, data.data() + i);
        i += block;
        if (i < data.size()) {
            encoder.putByte(data[i++]);
        }
    }
    encoder.endData();
    EXPECT_EQ(out.str(), ascii85(data));
}

TEST(Ascii85, DecoderText)
{
    const QsdASCII85Encoder encoder(nullptr);
    EXPECT_EQ(QsdPostScriptEncoder::GetFullDecoderString(&encoder), QsString("/ASCII85Decode filter"));
    EXPECT_TRUE(QsdPostScriptEncoder::GetFullDecoderString(nullptr).isEmpty());
}

TEST(Hexadecimal, ExactlyTheDigits)
{
    EXPECT_EQ(hex({}), "");
    EXPECT_EQ(hex({0x00, 0x9A, 0xFF}), "009aff\n");
    EXPECT_EQ(hex({0x00, 0x9A, 0xFF}, true), "009aff>\n");
    EXPECT_EQ(hex({}, true), ">\n");
}

TEST(Hexadecimal, LinesAreBroken)
{
    const std::string text = hex(Bytes(10000, 0xAB));
    expectGoodLines(text);
    std::string digits;
    for (const char c : text) {
        if (c != '\n') {
            digits.push_back(c);
        }
    }
    EXPECT_EQ(digits.size(), 20000U);
    EXPECT_EQ(digits.find_first_not_of("ab"), std::string::npos);
    EXPECT_EQ(hex(Bytes(39, 0)).size(), 79U);
    EXPECT_EQ(hex(Bytes(39, 0), true), hex(Bytes(39, 0)) + ">\n");
}

TEST(Encoders, NullAndFailedStreamsTakeNothing)
{
    QsdASCII85Encoder encoder(nullptr);
    encoder.startData();
    encoder.putBytes(10000, Bytes(10000, 7).data());
    encoder.endData();
    std::ostringstream out;
    encoder.setStream(&out);
    out.setstate(std::ios_base::badbit);
    encoder.startData();
    encoder.putByte(1);
    encoder.endData();
    EXPECT_EQ(out.str(), "");
    QsdASCIIHexEncoder hexEncoder(nullptr, false);
    hexEncoder.startData();
    hexEncoder.putBytes(10000, Bytes(10000, 7).data());
    hexEncoder.endData();
}

} // namespace
