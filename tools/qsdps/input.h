// Files given to the tool.
#pragma once

#include <filesystem>
#include <string>

namespace qsdps {

/// Reads a whole file, or standard input for "-". False, and a reason in `error`, when it cannot be read.
[[nodiscard]] bool readInput(const std::string& name, std::string& bytes, std::string& error);

/// The folder that a file lies in; empty for standard input.
[[nodiscard]] std::filesystem::path folderOf(const std::string& name);

} // namespace qsdps
