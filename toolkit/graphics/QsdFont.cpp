#include "toolkit/graphics/QsdFont.h"

#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/graphics/QsdFontMetrics_p.h"

#include <algorithm>
#include <cstring>
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

/// Bytes of the character that `lead` begins, and whether it is half as wide as the size.
struct MultiByte {
    int bytes;
    bool half;
};

MultiByte characterAt(unsigned char lead, QsEncoding encoding)
{
    if (lead < 0x80) {
        return {1, true};
    }
    if (encoding == QsEncodingShiftJIS) {
        return lead >= 0xA1 && lead <= 0xDF ? MultiByte{1, true} : MultiByte{2, false};
    }
    if (encoding == QsEncodingEUCJP && lead == 0x8E) {
        return {2, true};
    }
    return {encoding == QsEncodingEUCJP && lead == 0x8F ? 3 : 2, false};
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
    if (text == nullptr) {
        return 0;
    }
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    const double size = _size != 0 ? _size : _ascent + _descent;
    const QsLocale& locale = QsdGlobalContext::GetInstance().getLocale();
    const QsdFontMetrics& metrics = metricsOf(getFamily(), _style);
    const bool multiByte = locale.getMaxCharSize() > 1;
    double thousandths = 0;
    for (std::size_t i = 0; i < count;) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (multiByte) {
            const MultiByte character = characterAt(byte, locale.getEncoding());
            thousandths += character.half ? 500 : 1000;
            i += static_cast<std::size_t>(character.bytes);
        } else {
            thousandths += byte < 32 ? 0 : metrics.advances[byte - 32];
            ++i;
        }
    }
    return thousandths * size / 1000;
}
