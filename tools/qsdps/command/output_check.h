// What a document must not be written over.
#pragma once

#include "command/options.h"

#include <string>
#include <sys/stat.h>

namespace qsdps {

/// The file that a document of a name is written to: symbolic links are followed to the name of what they stand for,
/// which need not be there yet. Links that go round are left to the system to complain about.
[[nodiscard]] std::string linkTarget(std::string name);

/// The input, or other file read, that a document would be written over: one that is the same file as the output, by
/// whatever name, link or open descriptor. Its name for messages; empty when there is none. Only files that hold data
/// count, not terminals, pipes and devices.
[[nodiscard]] std::string inputUnderOutput(const Options& options);

/// The ending of a file's name, or of what it is a link to, when it is known to be that of something else than a
/// PostScript document: a drawing, a picture, an archive, a text. It begins with a dot; empty when there is none.
[[nodiscard]] std::string foreignEnding(const std::string& name);

/// Whether an existing file lets this user write it, as replacing it takes no more than the right to its folder. A
/// file that nobody may write is protected from the system's own user as well.
[[nodiscard]] bool mayBeReplaced(const std::string& name, const struct stat& status);

} // namespace qsdps
