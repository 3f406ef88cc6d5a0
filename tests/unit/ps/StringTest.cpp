#include "ps/QsdPSString.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

std::string body(QsEncoding encoding, const std::string& text, int length = -1)
{
    CurrentEncoding = encoding;
    std::ostringstream out;
    WriteOutPSString(text.c_str(), &out, length);
    return out.str();
}

TEST(StringLiteral, LatinEscapesWhatTheScannerWouldTake)
{
    EXPECT_EQ(body(QsEncodingLatin1, "a(b)c\\d"), "a\\(b\\)c\\\\d");
    EXPECT_EQ(body(QsEncodingLatin1, "{x}$"), "\\{x\\}\\$");
    EXPECT_EQ(body(QsEncodingLatin1, "\xE9"), "\\351");
    EXPECT_EQ(body(QsEncodingLatin1, "~"), "~");
    EXPECT_EQ(body(QsEncodingLatin1, "\x7F"), "\\177");
    EXPECT_EQ(body(QsEncodingLatin1, "\n\t\r\x01"), "\n\t\r\x01");
    EXPECT_EQ(body(QsEncodingLatin1, "\x80\xFF"), "\\200\\377");
}

TEST(StringLiteral, EveryOtherEncodingIsTreatedAsLatin)
{
    for (const QsEncoding encoding : {QsEncodingUnknown, QsEncodingASCII, QsEncodingGB2312, QsEncodingGBK,
                                      QsEncodingCP1252, static_cast<QsEncoding>(4711)}) {
        EXPECT_EQ(body(encoding, "(\xE9"), "\\(\\351");
    }
}

TEST(StringLiteral, LengthCounts)
{
    EXPECT_EQ(body(QsEncodingLatin1, "abc", -1), "abc");
    EXPECT_EQ(body(QsEncodingLatin1, "abc", -7), "abc");
    EXPECT_EQ(body(QsEncodingLatin1, "abc", 2), "ab");
    EXPECT_EQ(body(QsEncodingLatin1, "abc", 0), "");
    EXPECT_EQ(body(QsEncodingLatin1, std::string("a\0b", 3), 3), std::string("a\0b", 3));
    EXPECT_EQ(body(QsEncodingShiftJIS, std::string("a\0b", 3), 3), "\\141\\000\\142");
}

TEST(StringLiteral, NothingIsWrittenForNothing)
{
    std::ostringstream out;
    WriteOutPSString(nullptr, &out, -1);
    WriteOutPSString(nullptr, &out, 5);
    WriteOutPSString("", &out, -1);
    WriteOutPSString("", &out, 1);
    WriteOutPSString("text", nullptr, -1);
    EXPECT_EQ(out.str(), "");
}

TEST(StringLiteral, ShiftJISIsOctalThroughout)
{
    EXPECT_EQ(body(QsEncodingShiftJIS, "Ab"), "\\101\\142");
    EXPECT_EQ(body(QsEncodingShiftJIS, "\x83\x5C("), "\\203\\134\\050");
}

TEST(StringLiteral, EUCSwitchesFonts)
{
    EXPECT_EQ(body(QsEncodingEUCJP, "A\xB0\xA1"
                                    "B"),
              "A\\377\\001\\60\\41\\377\\000B");
    EXPECT_EQ(body(QsEncodingEUCJP, "\xB0\xA1"), "\\377\\001\\60\\41");
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8E\xB1"), "\\377\\002\\\xB1");
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8E\xB1\x8E\xB2"), "\\377\\002\\\xB1\\\xB2");
}

TEST(StringLiteral, EUCEscapesInsideRuns)
{
    EXPECT_EQ(body(QsEncodingEUCJP, "\xB0\xA1("), "\\377\\001\\60\\41\\377\\000\\(");
    EXPECT_EQ(body(QsEncodingEUCJP, "($)"), "\\(\\$\\)");
}

TEST(StringLiteral, EUCGoesBackToKanjiAfterAKana)
{
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8E\xB1\xB0\xA1"), "\\377\\002\\\xB1\\377\\001\\60\\41");
}

TEST(StringLiteral, EUCDropsTheThirdSetsShift)
{
    // The two bytes behind the shift come out as a kanji; the first of them opens no run, since it is shifted.
    EXPECT_EQ(body(QsEncodingEUCJP, "\xB0\xA1\x8F\xB0\xA1"), "\\377\\001\\60\\41\\60\\41");
}

TEST(StringLiteral, EUCKeepsOtherControlBytesRaw)
{
    EXPECT_EQ(body(QsEncodingEUCJP, "\x9F\x7F"), "\x9F\x7F");
    EXPECT_EQ(body(QsEncodingEUCJP, "\xB0\xA1\x9F\xB0\xA1"), "\\377\\001\\60\\41\\377\\000\x9F\\377\\001\\60\\41");
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8E\xB1\x9F"), "\\377\\002\\\xB1\\377\\000\x9F");
}

TEST(StringLiteral, KanjiBytesHaveNoLeadingZeros)
{
    EXPECT_EQ(body(QsEncodingEUCJP, "\xA0\xFF"), "\\377\\001\\40\\177");
}

TEST(StringLiteral, StreamNumbersStayDecimal)
{
    CurrentEncoding = QsEncodingEUCJP;
    std::ostringstream out;
    WriteOutPSString("\xB0\xA1", &out, -1);
    out << 64;
    EXPECT_EQ(out.str(), "\\377\\001\\60\\4164");
}

TEST(StringLiteral, AFailedStreamTakesNothing)
{
    CurrentEncoding = QsEncodingLatin1;
    std::ostringstream out;
    out.setstate(std::ios_base::badbit);
    WriteOutPSString("abc", &out, -1);
    EXPECT_EQ(out.str(), "");
}

TEST(StringLiteral, EUCWritesTheThirdSetOutsideAKanjiRunHalfRaw)
{
    // The shift keeps the first byte from opening a run, so it goes into the run there is; the second opens one.
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8F\xB0\xA1"), "\xB0\\377\\001\\41");
    EXPECT_EQ(body(QsEncodingEUCJP, "A\x8F\xB0\xA1"), "A\xB0\\377\\001\\41");
    EXPECT_EQ(body(QsEncodingEUCJP, "\x8E\xB1\x8F\xB0\xA1"), "\\377\\002\\\xB1\\\xB0\\377\\001\\41");
}

TEST(StringLiteral, OfNoLengthIsNotLookedAt)
{
    CurrentEncoding = QsEncodingLatin1;
    std::ostringstream out;
    const auto* const unreadable = reinterpret_cast<const char*>(std::uintptr_t{1});
    WriteOutPSString(unreadable, &out, 0);
    EXPECT_EQ(out.str(), "");
}

TEST(StringLiteral, WhatABufferThrowsStaysInside)
{
    class Throwing : public std::streambuf {
        int_type overflow(int_type) override { throw std::runtime_error("no"); }
    };
    for (const QsEncoding encoding : {QsEncodingLatin1, QsEncodingEUCJP, QsEncodingShiftJIS}) {
        CurrentEncoding = encoding;
        Throwing buffer;
        std::ostream out(&buffer);
        EXPECT_NO_THROW(WriteOutPSString("abc", &out, -1));
        EXPECT_TRUE(out.bad());
    }
}

} // namespace
