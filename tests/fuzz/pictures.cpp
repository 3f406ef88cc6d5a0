// PNG, JPEG and PNM files.
#include "images/pixels.h"
#include "images/reader.h"

#include <vector>

namespace {

/// Large pictures take their time and show nothing new.
constexpr std::uint64_t MostPixelsHere = 1 << 20;

void readRows(std::string_view file)
{
    qsdps::MemorySource source(file);
    const auto reader = qsdps::openImage(source, file.substr(0, 16));
    const qsdps::ImageHeader& header = reader->header();
    if (std::uint64_t{header.width} * header.height > MostPixelsHere) {
        return;
    }
    std::vector<std::uint8_t> row(qsdps::rowBytesOf(header));
    for (std::uint32_t y = 0; y < header.height; ++y) {
        reader->readRow(row.data());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    if (!qsdps::isImage(file.substr(0, 16))) {
        return 0;
    }
    try {
        readRows(file);
    } catch (const qsdps::ImageError&) {
        return 0; // broken files are told of, no more
    }
    return 0;
}
