// Where the bytes of an image come from.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qsdps::svg {

struct ImageBytes {
    std::string data;
    std::string name; ///< for messages
};

/// The bytes behind an image's href: a data URI, or a file inside `baseFolder` of at most `limit` bytes.
/// Nothing for everything else: other places, the network, files outside.
[[nodiscard]] std::optional<ImageBytes> readImage(std::string_view href, const std::filesystem::path& baseFolder,
                                                  std::size_t limit);

} // namespace qsdps::svg
