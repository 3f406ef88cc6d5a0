#include "tests/unit/toolkit/CompressionCases.h"
#include "toolkit/zlib/QsdFlateEncoder.h"

#include <zlib.h>

namespace {

Bytes inflated(const Bytes& compressed, bool& ended)
{
    Bytes input = compressed;
    Bytes data;
    z_stream zlib{};
    EXPECT_EQ(inflateInit(&zlib), Z_OK);
    zlib.next_in = input.data();
    zlib.avail_in = static_cast<uInt>(input.size());
    int result = Z_OK;
    while (result == Z_OK) {
        unsigned char buffer[4096];
        zlib.next_out = buffer;
        zlib.avail_out = sizeof buffer;
        result = inflate(&zlib, Z_SYNC_FLUSH);
        data.insert(data.end(), buffer, buffer + sizeof buffer - zlib.avail_out);
    }
    ended = result == Z_STREAM_END;
    EXPECT_TRUE(ended || result == Z_BUF_ERROR);
    EXPECT_EQ(zlib.avail_in, 0U);
    inflateEnd(&zlib);
    return data;
}

TEST(Flate, EveryLengthIsDecodedAgain)
{
    for (const int effort : {0, 1, 6, 9}) {
        SCOPED_TRACE(effort);
        QsdFlateEncoder encoder(nullptr, effort);
        testEveryLength(encoder, inflated);
    }
}

TEST(Flate, BytesAndBlocksAgree)
{
    QsdFlateEncoder encoder(nullptr);
    testBytesAndBlocksAgree(encoder);
}

TEST(Flate, Streams)
{
    QsdFlateEncoder encoder(nullptr);
    testStreams(encoder);
}

TEST(Flate, EffortsOutOfRange)
{
    const Bytes data = compressible(1, 50000);
    const auto size = [&](int effort) {
        QsdFlateEncoder encoder(nullptr, effort);
        return encodedBy(encoder, data).size();
    };
    EXPECT_EQ(size(-5), size(0));
    EXPECT_EQ(size(100), size(9));
    EXPECT_LT(size(9), size(0));
}

TEST(Flate, FailsTheStreamOutsideOfABlock)
{
    std::ostringstream out;
    QsdFlateEncoder encoder(&out);
    encoder.startData();
    encoder.endData();
    EXPECT_TRUE(out.good());
    encoder.putByte(1);
    encoder.endData();
    EXPECT_TRUE(out.bad());
}

TEST(Flate, DecoderText)
{
    const QsdFlateEncoder encoder(nullptr);
    EXPECT_EQ(QsdPostScriptEncoder::GetFullDecoderString(&encoder).view(),
              std::string(LineFilter) + "/FlateDecode filter");
}

} // namespace
