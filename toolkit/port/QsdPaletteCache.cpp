#include "toolkit/port/QsdPaletteCache_p.h"

#include <algorithm>

namespace {

/// A palette that someone changed in spite of all no longer matches and is not handed out again.
bool matches(const QsdPalette& palette, const QsdPaletteCache::Attributes& a)
{
    return palette.background() == a.background && palette.foreground() == a.foreground &&
           palette.pattern() == a.pattern && palette.colorPattern() == a.colorPattern && palette.font() == a.font &&
           palette.lineStyle() == a.lineStyle && palette.lineWidth() == a.lineWidth &&
           palette.fillStyle() == a.fillStyle && palette.arcMode() == a.arcMode && palette.fillRule() == a.fillRule &&
           palette.alpha() == a.alpha && palette.antialiasing() == a.antialiasing && palette.clipRegion().isFull();
}

} // namespace

QsdPalette* QsdPaletteCache::get(const QsdDisplay* display, const Attributes& attributes)
{
    const auto found = std::find_if(_palettes.begin(), _palettes.end(), [&](const QsdHandle<QsdPalette>& palette) {
        return palette && matches(*palette, attributes);
    });
    if (found != _palettes.end()) {
        (*found)->reference();
        return found->get();
    }
    auto* const palette = new QsdPalette(display);
    palette->setBackground(attributes.background);
    palette->setForeground(attributes.foreground);
    palette->setPattern(attributes.pattern);
    palette->setColorPattern(attributes.colorPattern);
    palette->setFont(attributes.font);
    palette->setLineStyle(attributes.lineStyle, attributes.lineWidth);
    palette->setFillStyle(attributes.fillStyle);
    palette->setArcMode(attributes.arcMode);
    palette->setFillRule(attributes.fillRule);
    palette->setAlpha(attributes.alpha);
    palette->setAntialiasing(attributes.antialiasing);
    _palettes[_next] = QsdHandle<QsdPalette>(palette);
    _next = (_next + 1) % Size;
    return palette;
}
