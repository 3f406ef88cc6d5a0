#include "svg/xml/inflate.h"

#include <algorithm>
#include <array>
#include <limits>

#include <zlib.h>

namespace qsdps::svg {

bool isGzip(const std::string& bytes)
{
    return bytes.size() > 2 && bytes[0] == '\x1f' && static_cast<unsigned char>(bytes[1]) == 0x8b;
}

Result<std::string> gunzip(std::string bytes, std::size_t limit)
{
    constexpr int GzipWindow = 15 + 16;
    z_stream stream{};
    if (inflateInit2(&stream, GzipWindow) != Z_OK) {
        return Error{"not enough memory to decompress"};
    }
    std::string content;
    std::array<char, 1 << 16> buffer{};
    std::size_t used = 0;
    int status = Z_OK;
    while (status == Z_OK) {
        if (stream.avail_in == 0) {
            const std::size_t part =
                std::min<std::size_t>(bytes.size() - used, std::numeric_limits<unsigned>::max() / 2);
            if (part == 0) {
                break;
            }
            stream.next_in = reinterpret_cast<Bytef*>(bytes.data() + used);
            stream.avail_in = static_cast<uInt>(part);
            used += part;
        }
        stream.next_out = reinterpret_cast<Bytef*>(buffer.data());
        stream.avail_out = static_cast<uInt>(buffer.size());
        status = inflate(&stream, Z_NO_FLUSH);
        const std::size_t produced = buffer.size() - stream.avail_out;
        if (content.size() + produced > limit) {
            inflateEnd(&stream);
            return Error{"the decompressed drawing is too large"};
        }
        content.append(buffer.data(), produced);
    }
    inflateEnd(&stream);
    if (status != Z_STREAM_END) {
        return Error{"the compressed data is damaged or cut short"};
    }
    return content;
}

} // namespace qsdps::svg
