// From drawings to a document.
#pragma once

#include "command/options.h"

namespace qsdps {

/// Does what the options ask for; messages go to standard error. Returns the exit status: 0 done, 1 some file
/// failed, 2 the output's name is that of another kind of file.
[[nodiscard]] int convert(const Options& options);

} // namespace qsdps
