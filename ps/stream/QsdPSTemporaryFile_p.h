// A file for what does not fit into memory.
#pragma once

#include <cstdio>

/// Opens an empty file for reading and writing that nobody else sees and that is gone once it is closed: in the folder
/// that the environment names for such files (TMPDIR), or in the system's own. The caller closes it; null when there is
/// no place for it.
std::FILE* QsdPSOpenTemporaryFile();
