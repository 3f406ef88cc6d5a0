#include "images/pixels.h"
#include "images/reader.h"

#include <gtest/gtest.h>

#include <string>

using namespace qsdps;
using namespace std::string_view_literals;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// All rows of a file, as the reader hands them out.
Result<Bytes> readRows(std::string_view file)
{
    MemorySource source(file);
    const auto reader = openImage(source, file);
    if (!reader) {
        return reader.error();
    }
    const ImageHeader& header = (*reader)->header();
    const std::size_t rowBytes = rowBytesOf(header);
    Bytes rows(rowBytes * header.height);
    for (std::uint32_t y = 0; y < header.height; ++y) {
        if (const Status read = (*reader)->readRow(&rows[rowBytes * y]); !read) {
            return read.error();
        }
    }
    return rows;
}

Bytes rowsOf(std::string_view file)
{
    return *readRows(file);
}

/// Why a file is refused; empty when it is not.
std::string refusal(std::string_view file)
{
    const Result<Bytes> rows = readRows(file);
    return rows ? std::string() : rows.error().message();
}

ImageHeader headerOf(std::string_view file)
{
    MemorySource source(file);
    return (*openImage(source, file))->header();
}

} // namespace

TEST(Pnm, BitmapsStayBits)
{
    const Bytes expected{0x81, 0x80, 0x42, 0x00};
    EXPECT_EQ(rowsOf("P4\n9 2\n\x81\x80\x42\0"sv), expected);
    EXPECT_EQ(rowsOf("P1 9 2\n1 0 0 0 0 0 0 1 1\n010000100"sv), expected);
    EXPECT_EQ(headerOf("P1 1 1 1").kind, PixelKind::Bits);
    EXPECT_EQ(headerOf("P1 1 1 1").set, (Rgb{0, 0, 0}));
}

TEST(Pnm, GreysAreEqualInAllComponents)
{
    EXPECT_EQ(rowsOf("P5 2 1 255\n\x10\xFE"sv), (Bytes{16, 16, 16, 255, 254, 254, 254, 255}));
    EXPECT_EQ(headerOf("P5 2 1 255\n"sv).kind, PixelKind::Grey);
}

TEST(Pnm, ColoursComeInTheirOrder)
{
    EXPECT_EQ(rowsOf("P6\n1 1\n255\nabc"sv), (Bytes{'a', 'b', 'c', 255}));
    EXPECT_EQ(rowsOf("P3\n1 1\n255\n1 2 3"sv), (Bytes{1, 2, 3, 255}));
    EXPECT_EQ(headerOf("P6\n1 1\n255\n"sv).kind, PixelKind::Color);
}

TEST(Pnm, SamplesAreBroughtToEightBits)
{
    EXPECT_EQ(rowsOf("P2 4 1 3\n0 1 2 3")[4], 85);
    EXPECT_EQ(rowsOf("P5 1 1 65535\n\x80\x80"sv)[0], 128);
    EXPECT_EQ(rowsOf("P5 1 1 256\n\x01\0"sv)[0], 255);
    EXPECT_EQ(rowsOf("P2 1 1 3\n9")[0], 255) << "more than the maximum";
}

TEST(Pnm, CommentsStandBetweenNumbers)
{
    EXPECT_EQ(rowsOf("P5#one\n 1 #two # three\n#four\n1 255\n#"sv), (Bytes{'#', '#', '#', 255}));
}

TEST(Pnm, ArbitraryMapsHaveAlpha)
{
    const auto file = "P7\n# made by hand\nWIDTH 1\nHEIGHT 2\nDEPTH 2\nMAXVAL 255\nTUPLTYPE GRAYSCALE_ALPHA\n"
                      "ENDHDR\n\x20\x80\x30\xFF"sv;
    EXPECT_TRUE(headerOf(file).hasAlpha);
    EXPECT_EQ(headerOf(file).kind, PixelKind::Grey);
    EXPECT_EQ(rowsOf(file), (Bytes{32, 32, 32, 128, 48, 48, 48, 255}));
    EXPECT_EQ(rowsOf("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 4\nMAXVAL 255\nENDHDR\nabcd"sv), (Bytes{'a', 'b', 'c', 'd'}));
}

TEST(Pnm, RefusesSizesWithReasons)
{
    EXPECT_EQ(refusal("P5 0 3 255\n"), "the picture is empty: 0 x 3 pixels");
    EXPECT_EQ(refusal("P5 1000001 1 255\n"), "the picture is too large: 1000001 x 1 pixels");
    EXPECT_EQ(refusal("P4 100000 10001\n"), "the picture is too large: 100000 x 10001 pixels");
    EXPECT_NE(refusal("P6 4294967297 4294967297 255\n").find("too large"), std::string::npos) << "no wrapping round";
}

TEST(Pnm, RefusesBrokenFiles)
{
    for (const auto file : {"P5 "sv, "P5 2"sv, "P5 2 2"sv, "P5 2 2 255\nabc"sv, "P4 9 1\na"sv, "P1 2 2\n101"sv,
                            "P3 1 1 255\n1 2"sv, "P6 1 1 256\nabcde"sv}) {
        EXPECT_EQ(refusal(file), "broken PNM file: the file ends early") << file;
    }
    EXPECT_EQ(refusal("P2 1 1 255\nx"), "broken PNM file: no number");
    EXPECT_EQ(refusal("P1 1 1 2"), "broken PNM file: no bit");
    EXPECT_EQ(refusal("P5 1 1 0\na"), "broken PNM file: samples up to 0");
    EXPECT_EQ(refusal("P7\nWIDTH 1\nHEIGHT 1\nDEPTH 5\nMAXVAL 1\nENDHDR\n"), "broken PNM file: 5 samples a pixel");
    EXPECT_EQ(refusal("P7\nWIDTH 1\nrubbish"), "broken PNM file: the header has no end");
}

TEST(Pnm, OtherTextsAreNoPictures)
{
    EXPECT_FALSE(isImage("P8 1 1"));
    EXPECT_FALSE(isImage("P5"));
    EXPECT_FALSE(isImage("P5x"));
    EXPECT_FALSE(isImage("PS-Adobe"));
    EXPECT_TRUE(isImage("P5 1"));
}

TEST(Pnm, TheFirstCommentMayBeATitle)
{
    EXPECT_EQ(headerOf("P5\n# Title: A window \n1 1\n255\n"sv).title, "A window ");
    EXPECT_EQ(headerOf("P1 1 # Title: Bits\n# Title: More\n1 1").title, "Bits");
    EXPECT_EQ(headerOf("P7\n# Title: Maps\nWIDTH 1\nHEIGHT 1\nDEPTH 1\nMAXVAL 1\nENDHDR\n\1"sv).title, "Maps");
    EXPECT_EQ(headerOf("P5\n# by hand\n# Title: Late\n1 1\n255\n"sv).title, "");
    EXPECT_EQ(headerOf("P5\n# Title: " + std::string(5000, 'x') + "\n1 1\n255\n").title.size(), 992U);
}
