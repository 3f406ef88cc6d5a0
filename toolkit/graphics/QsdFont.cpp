#include "toolkit/graphics/QsdFont.h"

#include "toolkit/base/QsLocale.h"
#include "toolkit/graphics/QsdCharacters_p.h"
#include "toolkit/graphics/QsdFontMetrics_p.h"

#include <algorithm>
#include <limits>

namespace {

const QsdFontMetrics& metricsOf(const char* family, std::uint16_t style)
{
    return QsdMetricsOf(family, (style & QsdFontBold) != 0, (style & QsdFontItalic) != 0);
}

std::uint16_t scaled(std::uint16_t thousandths, std::uint16_t size)
{
    const unsigned units = (unsigned{thousandths} * size + 500) / 1000;
    return static_cast<std::uint16_t>(std::min<unsigned>(units, std::numeric_limits<std::uint16_t>::max()));
}

} // namespace

QsdFont::QsdFont(const char* family, std::uint16_t style, std::uint16_t size)
    : QsdFont(family, style, size, scaled(metricsOf(family, style).ascent, size),
              scaled(metricsOf(family, style).descent, size))
{
}

QsdFont::QsdFont(const char* family, std::uint16_t style, std::uint16_t size, std::uint16_t ascent,
                 std::uint16_t descent)
    : _family(family == nullptr ? std::nullopt : std::optional<QsString>(family)), _style(style), _size(size),
      _ascent(ascent), _descent(descent)
{
}

double QsdFont::stringWidth(const char* text, int length) const
{
    const double size = _size != 0 ? _size : _ascent + _descent;
    const QsdFontMetrics& metrics = metricsOf(getFamily(), _style);
    const bool multiByte = _QsdGetMaxCharSize() > 1;
    double thousandths = 0;
    QsdForEachCharacter(text, length, [&](const QsdCharacter& character) {
        const auto code = static_cast<unsigned char>(*character.bytes);
        if (multiByte) {
            thousandths += character.half ? 500 : 1000;
        } else {
            thousandths += code < 32 ? 0 : metrics.advances[code - 32];
        }
    });
    return thousandths * size / 1000;
}
