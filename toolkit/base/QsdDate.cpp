#include "toolkit/base/QsdDate.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

/// The moment that SOURCE_DATE_EPOCH names, else now; in seconds since 1970.
std::chrono::sys_seconds documentTime()
{
    using namespace std::chrono;
    // The last second of the year 9999, the last that four digits can name.
    constexpr long long Limit = 253402300799;
    if (const char* const text = std::getenv("SOURCE_DATE_EPOCH")) {
        long long value = 0;
        const char* const end = text + std::strlen(text);
        const auto [parsed, error] = std::from_chars(text, end, value);
        if (error == std::errc() && parsed == end && value >= 0 && value <= Limit) {
            return sys_seconds(seconds(value));
        }
    }
    return floor<seconds>(system_clock::now());
}

} // namespace

QsString QsdGetCurrentDate()
{
    using namespace std::chrono;
    const sys_seconds moment = documentTime();
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss<seconds> time(moment - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return QsString(text);
}
