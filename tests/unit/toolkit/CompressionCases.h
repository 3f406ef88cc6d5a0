// What every encoder that compresses must do, for the tests of each.
#pragma once

#include "tests/unit/toolkit/Ascii85Decoder.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>
#include <vector>

/// Decodes compressed bytes up to their end mark, or as far as they go; `ended` tells which.
using Decompress = Bytes (*)(const Bytes& compressed, bool& ended);

inline std::string encodedBy(QsdPostScriptEncoder& encoder, const Bytes& data)
{
    std::ostringstream out;
    encoder.setStream(&out);
    encoder.startData();
    encoder.putBytes(data.size(), data.data());
    encoder.endData();
    encoder.setStream(nullptr);
    return out.str();
}

/// Bytes with more and more to compress as `kind` goes from 0 to 3.
inline Bytes compressible(unsigned kind, std::size_t length)
{
    std::mt19937 random(static_cast<unsigned>(length) * 4 + kind);
    Bytes data(length);
    unsigned char last = 0;
    for (unsigned char& byte : data) {
        const unsigned chances[] = {1, 3, 100, 100000};
        if (random() % chances[kind] == 0) {
            last = static_cast<unsigned char>(random());
        }
        byte = last;
    }
    return data;
}

/// What an interpreter that has read only the lines before the last can know must not be the whole data: else the last
/// line would be left to be taken for the program.
inline void expectLastLineNeeded(const std::string& text, std::size_t length, Decompress decompress)
{
    const std::size_t lastLine = text.rfind('\n', text.size() - 2) + 1;
    bool ended = true;
    const Bytes known = decompress(decoded85(text.substr(0, lastLine) + "~>\n"), ended);
    EXPECT_FALSE(ended);
    if (length != 0) {
        EXPECT_LT(known.size(), length);
    }
}

inline void expectRoundTrip(QsdPostScriptEncoder& encoder, const Bytes& data, Decompress decompress)
{
    const std::string text = encodedBy(encoder, data);
    expectGoodLines(text);
    bool ended = false;
    ASSERT_EQ(decompress(decoded85(text), ended), data);
    EXPECT_TRUE(ended);
    expectLastLineNeeded(text, data.size(), decompress);
}

inline void testEveryLength(QsdPostScriptEncoder& encoder, Decompress decompress)
{
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length <= 300; ++length) {
        lengths.push_back(length);
    }
    for (const std::size_t border : {512U, 768U, 1024U, 1792U, 2048U, 3838U, 4096U, 8192U, 65535U}) {
        for (std::size_t length = border - 6; length <= border + 6; ++length) {
            lengths.push_back(length);
        }
    }
    for (const std::size_t length : lengths) {
        for (unsigned kind = 0; kind < 4; ++kind) {
            SCOPED_TRACE(testing::Message() << "length " << length << " kind " << kind);
            expectRoundTrip(encoder, compressible(kind, length), decompress);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

inline void testBytesAndBlocksAgree(QsdPostScriptEncoder& encoder)
{
    const Bytes data = compressible(1, 20000);
    const std::string text = encodedBy(encoder, data);
    std::ostringstream out;
    encoder.setStream(&out);
    encoder.startData();
    encoder.putByte(1);
    encoder.startData(); // forgets what came before
    for (std::size_t i = 0; i < data.size();) {
        const std::size_t block = std::min<std::size_t>(i % 1500, data.size() - i);
        encoder.putBytes(block, data.data() + i);
        i += block;
        if (i < data.size()) {
            encoder.putByte(data[i++]);
        }
    }
    encoder.putBytes(0, nullptr);
    encoder.endData();
    EXPECT_EQ(out.str(), text);
}

inline void testStreams(QsdPostScriptEncoder& encoder)
{
    encoder.setStream(nullptr);
    EXPECT_EQ(encodedBy(encoder, compressible(3, 100000)), encodedBy(encoder, compressible(3, 100000)));
    encoder.startData();
    encoder.putBytes(3, compressible(0, 3).data());
    encoder.endData();
    std::ostringstream out;
    out.setstate(std::ios_base::badbit);
    encoder.setStream(&out);
    encoder.startData();
    encoder.putByte(1);
    encoder.endData();
    EXPECT_EQ(out.str(), "");
}

/// The decoder text, up to the name of the filter.
inline constexpr const char* LineFilter = "[exch cvlit 80 string{{2 copy readline not 1 index()ne or{exit}if pop}loop "
                                          "3 1 roll pop pop}/exec load]cvx/ASCII85Decode filter";
