// Colours.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>

/// An unchanging colour of three 16-bit components (0 to 65535).
class QSD_API QsdColor : public QsdResource {
public:
    /// A colour of three components, 0 to 65535 each.
    QsdColor(std::uint16_t red, std::uint16_t green, std::uint16_t blue) : _red(red), _green(green), _blue(blue) {}

    /// The red component, 0 to 65535.
    [[nodiscard]] std::uint16_t red() const { return _red; }
    /// The green component, 0 to 65535.
    [[nodiscard]] std::uint16_t green() const { return _green; }
    /// The blue component, 0 to 65535.
    [[nodiscard]] std::uint16_t blue() const { return _blue; }

private:
    std::uint16_t _red;
    std::uint16_t _green;
    std::uint16_t _blue;
};
