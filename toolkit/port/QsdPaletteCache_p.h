// Palettes that a display shares among those who ask for the same one.
#pragma once

#include "toolkit/port/QsdPalette.h"

#include <array>
#include <cstddef>

/// The palettes asked for most recently. It holds a reference to each, so the objects that a palette refers to stay
/// alive and their addresses keep telling them apart.
class QsdPaletteCache {
public:
    /// What palettes are told apart by.
    struct Attributes {
        const QsdColor* background;
        const QsdColor* foreground;
        const QsdPattern* pattern;
        const QsdColorPattern* colorPattern;
        const QsdFont* font;
        const QsdLineStyle* lineStyle;
        std::uint16_t lineWidth;
        std::uint16_t fillStyle;
        std::uint16_t arcMode;
        std::uint16_t fillRule;
        std::uint16_t alpha;
        std::uint16_t antialiasing;
    };

    /// The palette of these attributes with a reference for the caller.
    [[nodiscard]] QsdPalette* get(const QsdDisplay* display, const Attributes& attributes);

private:
    static constexpr std::size_t Size = 32;

    std::array<QsdHandle<QsdPalette>, Size> _palettes;
    std::size_t _next = 0;
};
