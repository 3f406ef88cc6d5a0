// Where the bytes of what a drawing names come from: images and style sheets.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qsdps::svg {

struct LinkedFile {
    std::string data;
    std::string name; ///< for messages
};

/// The bytes behind the href of an image or style sheet: a data URI, or a file inside `baseFolder` of at most `limit`
/// bytes. Nothing for everything else: other places, the network, files outside.
[[nodiscard]] std::optional<LinkedFile> readLinked(std::string_view href, const std::filesystem::path& baseFolder,
                                                   std::size_t limit);

} // namespace qsdps::svg
