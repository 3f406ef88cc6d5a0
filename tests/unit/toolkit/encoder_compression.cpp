#include "tests/unit/toolkit/CompressionCases.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"

namespace {

Bytes runLengthDecoded(const Bytes& compressed, bool& ended)
{
    Bytes data;
    std::size_t i = 0;
    ended = false;
    while (i < compressed.size()) {
        const unsigned length = compressed[i++];
        if (length == 128) {
            ended = true;
            EXPECT_EQ(i, compressed.size());
            break;
        }
        if (length < 128) {
            for (unsigned k = 0; k <= length && i < compressed.size(); ++k) {
                data.push_back(compressed[i++]);
            }
        } else if (i < compressed.size()) {
            data.insert(data.end(), 257 - length, compressed[i++]);
        }
    }
    return data;
}

/// Codes from the highest bits down, which widen one entry before the table asks for it.
Bytes lzwDecoded(const Bytes& compressed, bool& ended)
{
    std::vector<Bytes> table;
    Bytes data;
    Bytes last;
    std::size_t width = 9;
    std::size_t bit = 0;
    ended = false;
    for (bool first = true; bit + width <= 8 * compressed.size(); first = false) {
        std::size_t code = 0;
        for (std::size_t i = 0; i < width; ++i, ++bit) {
            code = code << 1 | (compressed[bit / 8] >> (7 - bit % 8) & 1U);
        }
        EXPECT_TRUE(!first || code == 256);
        if (code == 257) {
            ended = true;
            EXPECT_EQ((bit + 7) / 8, compressed.size());
            break;
        }
        if (code == 256) {
            table.clear();
            last.clear();
            width = 9;
            continue;
        }
        Bytes string;
        if (code < 256) {
            string = {static_cast<unsigned char>(code)};
        } else if (code - 258 < table.size()) {
            string = table[code - 258];
        } else {
            EXPECT_EQ(code - 258, table.size());
            EXPECT_FALSE(last.empty());
            string = last;
            string.push_back(last.empty() ? '\0' : last[0]);
        }
        if (!last.empty()) {
            last.push_back(string[0]);
            table.push_back(last);
        }
        data.insert(data.end(), string.begin(), string.end());
        last = string;
        const std::size_t next = 258 + table.size();
        width = next < 511 ? 9 : next < 1023 ? 10 : next < 2047 ? 11 : 12;
    }
    return data;
}

TEST(RunLength, KnownTexts)
{
    QsdRunLengthEncoder encoder(nullptr);
    bool ended = false;
    const auto packets = [&](const Bytes& data) { return decoded85(encodedBy(encoder, data)); };
    EXPECT_EQ(packets({}), (Bytes{128}));
    EXPECT_EQ(packets({7}), (Bytes{0, 7, 128}));
    EXPECT_EQ(packets({7, 7}), (Bytes{1, 7, 7, 128}));
    EXPECT_EQ(packets({7, 7, 7}), (Bytes{254, 7, 128}));
    EXPECT_EQ(packets({1, 7, 7, 7, 2}), (Bytes{0, 1, 254, 7, 0, 2, 128}));
    EXPECT_EQ(packets(Bytes(129, 9)), (Bytes{129, 9, 0, 9, 128}));
    EXPECT_EQ(runLengthDecoded(packets(Bytes(129, 9)), ended), Bytes(129, 9));
}

TEST(RunLength, EveryLengthIsDecodedAgain)
{
    QsdRunLengthEncoder encoder(nullptr);
    testEveryLength(encoder, runLengthDecoded);
}

TEST(RunLength, BytesAndBlocksAgree)
{
    QsdRunLengthEncoder encoder(nullptr);
    testBytesAndBlocksAgree(encoder);
}

TEST(RunLength, Streams)
{
    QsdRunLengthEncoder encoder(nullptr);
    testStreams(encoder);
}

TEST(RunLength, DecoderText)
{
    const QsdRunLengthEncoder encoder(nullptr);
    EXPECT_EQ(QsdPostScriptEncoder::GetFullDecoderString(&encoder).view(),
              std::string(LineFilter) + "/RunLengthDecode filter");
}

TEST(Lzw, KnownText)
{
    QsdLZWEncoder encoder(nullptr);
    // The codes 256 45 258 258 65 259 66 257 of nine bits each.
    EXPECT_EQ(decoded85(encodedBy(encoder, {45, 45, 45, 45, 45, 65, 45, 45, 45, 66})),
              (Bytes{0x80, 0x0B, 0x60, 0x50, 0x22, 0x0C, 0x0C, 0x85, 0x01}));
}

TEST(Lzw, EveryLengthIsDecodedAgain)
{
    QsdLZWEncoder encoder(nullptr);
    testEveryLength(encoder, lzwDecoded);
}

TEST(Lzw, BytesAndBlocksAgree)
{
    QsdLZWEncoder encoder(nullptr);
    testBytesAndBlocksAgree(encoder);
}

TEST(Lzw, Streams)
{
    QsdLZWEncoder encoder(nullptr);
    testStreams(encoder);
}

TEST(Lzw, Compresses)
{
    QsdLZWEncoder encoder(nullptr);
    EXPECT_LT(encodedBy(encoder, Bytes(1000000, 5)).size(), 5000U);
}

TEST(Lzw, DecoderText)
{
    const QsdLZWEncoder encoder(nullptr);
    EXPECT_EQ(QsdPostScriptEncoder::GetFullDecoderString(&encoder).view(),
              std::string(LineFilter) + "/LZWDecode filter");
}

} // namespace
