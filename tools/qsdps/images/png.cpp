#include "images/pixels.h"

#include <png.h>

namespace qsdps {

std::optional<Pixels> decodePng(std::string_view file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) {
        return std::nullopt;
    }
    if (std::uint64_t{image.width} * image.height > MostPixels) {
        png_image_free(&image);
        return std::nullopt;
    }
    image.format = PNG_FORMAT_RGBA;
    Pixels pixels{image.width, image.height, std::vector<std::uint8_t>(PNG_IMAGE_SIZE(image))};
    const bool read = png_image_finish_read(&image, nullptr, pixels.rgba.data(), 0, nullptr) != 0;
    png_image_free(&image);
    return read ? std::optional(std::move(pixels)) : std::nullopt;
}

} // namespace qsdps
