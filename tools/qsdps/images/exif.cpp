#include "images/exif.h"

#include <string_view>

namespace qsdps {

namespace {

using namespace std::string_view_literals;

/// Numbers of a TIFF file, in the byte order that it states; 0 beyond its end.
class TiffNumbers {
public:
    explicit TiffNumbers(std::string_view bytes) : _bytes(bytes), _bigEndian(bytes.starts_with("MM"sv)) {}

    [[nodiscard]] std::uint32_t two(std::size_t at) const
    {
        return _bigEndian ? byteAt(at) << 8 | byteAt(at + 1) : byteAt(at + 1) << 8 | byteAt(at);
    }
    [[nodiscard]] std::uint32_t four(std::size_t at) const
    {
        return _bigEndian ? two(at) << 16 | two(at + 2) : two(at + 2) << 16 | two(at);
    }

private:
    [[nodiscard]] std::uint32_t byteAt(std::size_t at) const
    {
        return at < _bytes.size() ? static_cast<unsigned char>(_bytes[at]) : 0U;
    }

    std::string_view _bytes;
    bool _bigEndian;
};

} // namespace

int exifOrientation(const std::uint8_t* segment, std::size_t size)
{
    constexpr std::string_view Start = "Exif\0\0"sv;
    constexpr std::uint32_t OrientationTag = 0x0112;
    constexpr std::size_t EntrySize = 12;
    std::string_view bytes(reinterpret_cast<const char*>(segment), size);
    if (!bytes.starts_with(Start)) {
        return 1;
    }
    bytes.remove_prefix(Start.size());
    const TiffNumbers tiff(bytes);
    const std::size_t directory = tiff.four(4);
    const std::size_t count = tiff.two(directory);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = directory + 2 + EntrySize * i;
        if (tiff.two(entry) == OrientationTag) {
            const std::uint32_t value = tiff.two(entry + 8);
            return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
        }
    }
    return 1;
}

} // namespace qsdps
