#include "images/pixels.h"
#include "images/reader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <jpeglib.h>

using namespace qsdps;

namespace {

struct Kind {
    J_COLOR_SPACE space = JCS_RGB;
    int components = 3;
    bool progressive = false;
};

/// A file of 32 by 32 pixels of one colour, 200 by 100 pixels in an inch.
std::string jpegOf(const Kind& kind, std::vector<JSAMPLE> color)
{
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &bytes, &size);
    info.image_width = info.image_height = 32;
    info.input_components = kind.components;
    info.in_color_space = kind.space;
    jpeg_set_defaults(&info);
    info.density_unit = 1;
    info.X_density = 200;
    info.Y_density = 100;
    if (kind.progressive) {
        jpeg_simple_progression(&info);
    }
    jpeg_start_compress(&info, TRUE);
    std::vector<JSAMPLE> row;
    for (int x = 0; x < 32; ++x) {
        row.insert(row.end(), color.begin(), color.end());
    }
    while (info.next_scanline < info.image_height) {
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string file(reinterpret_cast<const char*>(bytes), size);
    std::free(bytes);
    return file;
}

ImageHeader headerOf(std::string_view file)
{
    MemorySource source(file);
    return (*openImage(source, file))->header();
}

void expectColor(const std::string& file, Rgb expected)
{
    const std::optional<Pixels> pixels = decodeImage(file);
    ASSERT_TRUE(pixels);
    ASSERT_EQ(pixels->rgba.size(), 4U * 32 * 32);
    for (std::size_t i = 0; i < pixels->rgba.size(); i += 4) {
        EXPECT_NEAR(pixels->rgba[i], expected.r, 3);
        EXPECT_NEAR(pixels->rgba[i + 1], expected.g, 3);
        EXPECT_NEAR(pixels->rgba[i + 2], expected.b, 3);
        EXPECT_EQ(pixels->rgba[i + 3], 255);
    }
}

} // namespace

TEST(Jpeg, ReadsColorAndGrey)
{
    expectColor(jpegOf({}, {200, 100, 50}), {200, 100, 50});
    const std::string grey = jpegOf({JCS_GRAYSCALE, 1}, {77});
    EXPECT_EQ(headerOf(grey).kind, PixelKind::Grey);
    expectColor(grey, {77, 77, 77});
}

TEST(Jpeg, ReadsProgressiveFiles)
{
    expectColor(jpegOf({JCS_RGB, 3, true}, {10, 220, 130}), {10, 220, 130});
}

TEST(Jpeg, ReadsFourInksUpsideDown)
{
    expectColor(jpegOf({JCS_CMYK, 4}, {255, 128, 0, 255}), {255, 128, 0});
    expectColor(jpegOf({JCS_CMYK, 4}, {255, 128, 0, 128}), {128, 64, 0});
}

TEST(Jpeg, ReadsTheDensity)
{
    EXPECT_EQ(headerOf(jpegOf({}, {0, 0, 0})).density, (Density{200, 100}));
}

TEST(Jpeg, RefusesWhatEndsEarly)
{
    for (const bool progressive : {false, true}) {
        const std::string file = jpegOf({JCS_RGB, 3, progressive}, {200, 100, 50});
        for (const std::size_t missing : {std::size_t{1}, std::size_t{2}, std::size_t{10}, file.size() / 2}) {
            EXPECT_FALSE(decodeImage(std::string_view(file).substr(0, file.size() - missing))) << missing;
        }
    }
}
