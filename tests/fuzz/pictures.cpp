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
    if (!reader) {
        return;
    }
    const qsdps::ImageHeader& header = (*reader)->header();
    if (std::uint64_t{header.width} * header.height > MostPixelsHere) {
        return;
    }
    std::vector<std::uint8_t> row(qsdps::rowBytesOf(header));
    // Broken files are told of, no more.
    for (std::uint32_t y = 0; y < header.height && (*reader)->readRow(row.data()); ++y) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    if (!qsdps::isImage(file.substr(0, 16))) {
        return 0;
    }
    readRows(file);
    return 0;
}
