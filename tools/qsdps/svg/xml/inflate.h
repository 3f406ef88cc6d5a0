// Compressed drawings (.svgz).
#pragma once

#include "values/result.h"

#include <string>

namespace qsdps::svg {

/// True when the bytes begin as a gzip file does.
[[nodiscard]] bool isGzip(const std::string& bytes);
/// The content of a gzip file, up to `limit` bytes.
[[nodiscard]] Result<std::string> gunzip(std::string bytes, std::size_t limit);

} // namespace qsdps::svg
