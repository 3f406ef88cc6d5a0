// The files that every program has open from its start.
#pragma once

#include <string>

namespace qsdps {

/// Opens standard input, standard output and standard error where the program was started without them, so that no
/// file of the program's own gets their numbers and, with them, messages that were meant for nobody. What is opened
/// cannot be used: reading and writing fail as they would have failed. Called before anything else is opened; false
/// when the system refuses.
[[nodiscard]] bool openStandardFiles();

/// Writes what std::cout still holds. When some of what it was given could not be written, tells so, after the name of
/// the program, on standard error and returns false.
[[nodiscard]] bool finishStandardOutput(const std::string& program);

} // namespace qsdps
