#include "images/pixels.h"

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace qsdps {

namespace {

/// The library's errors lead back to where decoding began.
struct ErrorExit {
    jpeg_error_mgr manager;
    std::jmp_buf target;
};

[[noreturn]] void leave(j_common_ptr info)
{
    // The manager is the first member, so its address is that of the whole.
    std::longjmp(reinterpret_cast<ErrorExit*>(info->err)->target, 1);
}

void keepQuiet(j_common_ptr, int) {}

void fromGrey(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        out[4 * x] = out[4 * x + 1] = out[4 * x + 2] = row[x];
        out[4 * x + 3] = 255;
    }
}

void fromRgb(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        out[4 * x] = row[3 * x];
        out[4 * x + 1] = row[3 * x + 1];
        out[4 * x + 2] = row[3 * x + 2];
        out[4 * x + 3] = 255;
    }
}

/// Four inks, stored upside down as those who make such files do.
void fromCmyk(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        for (std::uint32_t i = 0; i < 3; ++i) {
            out[4 * x + i] = static_cast<std::uint8_t>(row[4 * x + i] * row[4 * x + 3] / 255);
        }
        out[4 * x + 3] = 255;
    }
}

/// Decodes into `pixels`, whose owner outlives a jump out of here; false when the file is broken or too large.
bool decode(jpeg_decompress_struct& info, ErrorExit& error, std::string_view file, Pixels& pixels,
            std::vector<std::uint8_t>& row)
{
    if (setjmp(error.target) != 0) {
        return false;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(file.data()), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    if (std::uint64_t{info.image_width} * info.image_height > MostPixels) {
        return false;
    }
    if (info.num_components == 4) {
        info.out_color_space = JCS_CMYK;
    } else if (info.num_components == 3) {
        info.out_color_space = JCS_RGB;
    }
    jpeg_start_decompress(&info);
    pixels.width = info.output_width;
    pixels.height = info.output_height;
    pixels.rgba.resize(std::size_t{4} * pixels.width * pixels.height);
    row.resize(std::size_t{pixels.width} * static_cast<std::size_t>(info.output_components));
    while (info.output_scanline < info.output_height) {
        std::uint8_t* const out = &pixels.rgba[std::size_t{4} * pixels.width * info.output_scanline];
        JSAMPROW rows[] = {row.data()};
        jpeg_read_scanlines(&info, rows, 1);
        if (info.output_components == 4) {
            fromCmyk(row.data(), pixels.width, out);
        } else if (info.output_components == 3) {
            fromRgb(row.data(), pixels.width, out);
        } else {
            fromGrey(row.data(), pixels.width, out);
        }
    }
    jpeg_finish_decompress(&info);
    return true;
}

} // namespace

std::optional<Pixels> decodeJpeg(std::string_view file)
{
    jpeg_decompress_struct info{};
    ErrorExit error{};
    info.err = jpeg_std_error(&error.manager);
    error.manager.error_exit = leave;
    error.manager.emit_message = keepQuiet;
    Pixels pixels;
    std::vector<std::uint8_t> row;
    const bool read = decode(info, error, file, pixels, row);
    jpeg_destroy_decompress(&info);
    return read ? std::optional(std::move(pixels)) : std::nullopt;
}

} // namespace qsdps
