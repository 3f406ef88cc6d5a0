// Dash patterns of lines.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>
#include <vector>

/// An unchanging dash pattern: lengths of dashes and gaps in turn, in coordinate units; none: a solid line.
class QSD_API QsdLineStyle : public QsdResource {
public:
    /// Copies `count` dash lengths (0 to 255 each); `dashes` may be null when `count` is 0.
    QsdLineStyle(std::uint16_t count, const std::uint8_t* dashes);

    /// Number of dashes and gaps; 0: a solid line.
    [[nodiscard]] std::uint16_t count() const { return static_cast<std::uint16_t>(_dashes.size()); }
    /// Their lengths, count() of them, the first a dash; valid as long as the object.
    [[nodiscard]] const std::uint8_t* dashes() const { return _dashes.data(); }

private:
    std::vector<std::uint8_t> _dashes;
};
