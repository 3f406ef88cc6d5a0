// Points of the toolkit's integer coordinate space: origin top left, y downwards.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstdint>
#include <iosfwd>

/// A position.
struct QSD_API QsdPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const QsdPoint&, const QsdPoint&) = default;
};

/// A step from one position to the next.
struct QSD_API QsdDeltaPoint {
    std::int16_t dx = 0;
    std::int16_t dy = 0;

    friend bool operator==(const QsdDeltaPoint&, const QsdDeltaPoint&) = default;
};

/// Writes the two coordinates in plain decimal with a blank between them, whatever the stream's locale and flags.
QSD_API std::ostream& operator<<(std::ostream& out, const QsdPoint& point);
