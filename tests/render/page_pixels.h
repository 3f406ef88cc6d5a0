// A page as the interpreter wrote it, and colours as they come out on it.
#pragma once

#include "toolkit/graphics/QsdBitmapData.h"
#include "toolkit/graphics/QsdColor.h"

#include <cstdint>
#include <iosfwd>
#include <vector>

/// The colours of the page and of the palette; each has only components that every way of writing a number keeps.
inline constexpr QsdRGB Ground{0, 255, 255};
inline constexpr QsdRGB Foreground{255, 0, 0};
inline constexpr QsdRGB Background{255, 255, 0};

/// A colour for palettes.
[[nodiscard]] QsdHandle<QsdColor> colorOf(QsdRGB rgb);

/// A page of raw pixels of three bytes.
class PagePixels {
public:
    /// Reads `file`; what is not such a page has no size.
    explicit PagePixels(const char* file);

    [[nodiscard]] bool hasSize(int width, int height) const { return _width == width && _height == height; }
    /// Whether the pixel at (x, y), which must be inside, shows a colour: exactly, or on the `grey` model its grey
    /// within one step.
    [[nodiscard]] bool shows(int x, int y, QsdRGB color, bool grey) const;
    /// The pixel at (x, y), which must be inside.
    [[nodiscard]] QsdRGB pixel(int x, int y) const;

private:
    int _width = 0;
    int _height = 0;
    std::vector<std::uint8_t> _bytes;
};

/// Writes the components.
std::ostream& operator<<(std::ostream& out, QsdRGB color);
