// What cameras write into pictures.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qsdps {

/// The orientation, 1 to 8, that an application segment of a JPEG file states ("Exif", two zeros, then a TIFF file of
/// tags); 1 where it states none. `segment` holds `size` bytes, which may be anything.
[[nodiscard]] int exifOrientation(const std::uint8_t* segment, std::size_t size);

} // namespace qsdps
