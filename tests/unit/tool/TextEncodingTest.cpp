#include "page/text_encoding.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

std::string encoded(QsEncoding encoding, std::string_view utf8, unsigned long expectedMissing)
{
    unsigned long missing = 0;
    std::string all;
    for (const std::string& bytes : TextEncoder(encoding).encode(utf8, missing)) {
        all += bytes;
    }
    EXPECT_EQ(missing, expectedMissing);
    return all;
}

} // namespace

TEST(TextEncoding, Latin)
{
    EXPECT_EQ(encoded(QsEncodingLatin1, "A\u00E9\u2014\u201C", 0), "A\xE9\x97\x93");
}

TEST(TextEncoding, CountsWhatIsMissing)
{
    EXPECT_EQ(encoded(QsEncodingLatin1, "a\u65E5b\u672C", 2), "a?b?");
}

TEST(TextEncoding, BrokenBytesAreMissingToo)
{
    EXPECT_EQ(encoded(QsEncodingLatin1, "a\xC3", 1), "a?");
    EXPECT_EQ(encoded(QsEncodingLatin1,
                      "\xFF"
                      "b",
                      1),
              "?b");
}

TEST(TextEncoding, LeavesOutWhatNobodySees)
{
    EXPECT_EQ(encoded(QsEncodingLatin1, "a\u200Bb\uFEFF", 0), "ab");
}

TEST(TextEncoding, Japanese)
{
    EXPECT_EQ(encoded(QsEncodingEUCJP, "\u65E5A", 0), "\xC6\xFC"
                                                      "A");
    EXPECT_EQ(encoded(QsEncodingShiftJIS, "\u65E5A", 0), "\x93\xFA"
                                                         "A");
}
