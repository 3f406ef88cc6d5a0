// Where data files are looked for.
#pragma once

#include <string>

/// The path of the data file `name`: in the folders of QSDPATH, then in the data folder of the installation that this
/// library belongs to, wherever that has been moved, then in the data folder that it was configured for. An absolute
/// name stands for itself. Empty when there is no such file, or when a relative name leads upwards.
[[nodiscard]] std::string QsdFindDataFile(const char* name);
