// Points of the toolkit's integer coordinate space: origin top left, y downwards.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstdint>
#include <iosfwd>

/// A position.
struct QSD_API QsdPoint {
    std::int32_t x = 0; ///< column, from left to right
    std::int32_t y = 0; ///< row, from top to bottom

    /// Equality of both coordinates.
    friend bool operator==(const QsdPoint&, const QsdPoint&) = default;
};

/// A step from one position to the next.
struct QSD_API QsdDeltaPoint {
    std::int16_t dx = 0; ///< step to the right
    std::int16_t dy = 0; ///< step downwards

    /// Equality of both steps.
    friend bool operator==(const QsdDeltaPoint&, const QsdDeltaPoint&) = default;
};

/// Writes the two coordinates in plain decimal with a blank between them, whatever the stream's locale and flags.
QSD_API std::ostream& operator<<(std::ostream& out, const QsdPoint& point);
