// The date that documents carry.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"

/// The current date and time in UTC as "YYYY-MM-DDThh:mm:ssZ". When the environment variable SOURCE_DATE_EPOCH holds
/// a number of seconds since 1970, that moment is used, so that builds can be repeated byte for byte.
[[nodiscard]] QSD_API QsString QsdGetCurrentDate();
