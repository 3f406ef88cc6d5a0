// Documents of what is viewed.
#pragma once

#include "command/options.h"

#include <string>
#include <vector>

namespace qsdview {

/// What qsdps does with these files and this output ("-": standard output) when nothing else is asked for; messages
/// have this program's name. Throws std::invalid_argument for what qsdps does not take, after that is told.
[[nodiscard]] qsdps::Options documentOptions(const std::vector<std::string>& files, const std::string& output);

/// Prints the files into the document `output` as qsdps does. Returns the exit status.
[[nodiscard]] int print(const std::vector<std::string>& files, const std::string& output);

/// Where the document of a file goes: its name with the ending .ps, in the current folder.
[[nodiscard]] std::string documentNameFor(const std::string& file);

} // namespace qsdview
