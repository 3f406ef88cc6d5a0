#include "toolkit/port/QsdPalette.h"

#include "toolkit/port/QsdDisplay.h"

namespace {

template <class Resource>
QsdHandle<const Resource> shared(const Resource* given, const Resource* otherwise)
{
    return QsdHandle<const Resource>(given != nullptr ? given : otherwise);
}

} // namespace

QsdPalette::QsdPalette(const QsdDisplay* display) : _display(display)
{
    setForeground(nullptr);
    setBackground(nullptr);
    setFont(nullptr);
    setLineStyle(nullptr, 0);
    setPattern(nullptr);
}

QsdPalette::QsdPalette(const QsdPalette* other)
    : _display(other->_display), _foreground(other->_foreground), _background(other->_background), _font(other->_font),
      _lineStyle(other->_lineStyle), _pattern(other->_pattern), _colorPattern(other->_colorPattern),
      _lineWidth(other->_lineWidth), _fillStyle(other->_fillStyle), _fillRule(other->_fillRule),
      _arcMode(other->_arcMode), _alpha(other->_alpha), _antialiasing(other->_antialiasing),
      _clipRegion(other->_clipRegion)
{
}

void QsdPalette::setForeground(const QsdColor* color)
{
    _foreground = shared(color, _display->black());
}

void QsdPalette::setBackground(const QsdColor* color)
{
    _background = shared(color, _display->white());
}

void QsdPalette::setFont(const QsdFont* font)
{
    _font = shared(font, _display->defaultFont());
}

void QsdPalette::setLineStyle(const QsdLineStyle* style, std::uint16_t width)
{
    _lineStyle = shared(style, _display->solidLineStyle());
    _lineWidth = width;
}

void QsdPalette::setPattern(const QsdPattern* pattern)
{
    _pattern = shared(pattern, _display->solidPattern());
}

void QsdPalette::setColorPattern(const QsdColorPattern* pattern)
{
    _colorPattern = QsdHandle<const QsdColorPattern>(pattern);
}
