// The version of the toolkit.
#pragma once

#include "toolkit/base/QsdExport.h"

/// The toolkit's version as a number: major times 100 plus minor.
[[nodiscard]] QSD_API int QsdGetVersion();

/// The toolkit's version as text, "major.minor.patch".
[[nodiscard]] QSD_API const char* QsdGetVersionString();
