// The pixel size that an image file states.
#pragma once

#include "values/length.h"

#include <optional>
#include <string_view>

namespace qsdps {

/// Width and height of a PNG, GIF or JPEG file, from its header alone; nothing for other bytes.
[[nodiscard]] std::optional<Size> imageSize(std::string_view bytes);

} // namespace qsdps
