// Compressed drawings (.svgz).
#pragma once

#include <string>

namespace qsdps::svg {

/// True when the bytes begin as a gzip file does.
[[nodiscard]] bool isGzip(const std::string& bytes);
/// Replaces a gzip file's bytes by its content, up to `limit` bytes; otherwise gives false and says why in `error`.
[[nodiscard]] bool gunzip(std::string& bytes, std::size_t limit, std::string& error);

} // namespace qsdps::svg
