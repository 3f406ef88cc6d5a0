// Where data files are looked for.
#pragma once

#include <string>

/// The path of the data file `name`: in the folders of QSDPATH, then the installed data folder, then that of the source
/// tree. An absolute name stands for itself. Empty when there is no such file, or when a relative name leads upwards.
[[nodiscard]] std::string QsdFindDataFile(const char* name);
