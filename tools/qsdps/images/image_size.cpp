#include "images/image_size.h"

namespace qsdps {
namespace {

unsigned byteAt(std::string_view bytes, std::size_t at)
{
    return static_cast<unsigned char>(bytes[at]);
}

unsigned big16(std::string_view bytes, std::size_t at)
{
    return byteAt(bytes, at) << 8 | byteAt(bytes, at + 1);
}

unsigned little16(std::string_view bytes, std::size_t at)
{
    return byteAt(bytes, at + 1) << 8 | byteAt(bytes, at);
}

std::optional<Size> pngSize(std::string_view bytes)
{
    if (bytes.size() < 24) {
        return {};
    }
    const auto number = [&](std::size_t at) { return big16(bytes, at) * 65536.0 + big16(bytes, at + 2); };
    return Size{number(16), number(20)};
}

/// True for the segments that begin a picture.
bool isFrame(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::optional<Size> jpegSize(std::string_view bytes)
{
    std::size_t at = 2;
    while (at + 9 < bytes.size()) {
        if (byteAt(bytes, at) != 0xFF) {
            return {};
        }
        const unsigned marker = byteAt(bytes, at + 1);
        if (isFrame(marker)) {
            return Size{double(big16(bytes, at + 7)), double(big16(bytes, at + 5))};
        }
        at += marker == 0xFF ? 1 : 2 + big16(bytes, at + 2);
    }
    return {};
}

} // namespace

std::optional<Size> imageSize(std::string_view bytes)
{
    if (bytes.starts_with("\x89PNG")) {
        return pngSize(bytes);
    }
    if (bytes.starts_with("\xFF\xD8")) {
        return jpegSize(bytes);
    }
    if (bytes.starts_with("GIF8") && bytes.size() >= 10) {
        return Size{double(little16(bytes, 6)), double(little16(bytes, 8))};
    }
    return {};
}

} // namespace qsdps
