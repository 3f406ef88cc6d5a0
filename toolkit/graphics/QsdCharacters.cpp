#include "toolkit/graphics/QsdCharacters_p.h"

#include "toolkit/base/QsdGlobalContext.h"

#include <algorithm>
#include <cstring>

namespace {

struct Extent {
    std::size_t length;
    bool half;
};

/// What the first byte of a character of a multi-byte encoding tells about it.
Extent extentOf(unsigned char lead, QsEncoding encoding)
{
    constexpr unsigned char SingleShift2 = 0x8E;
    constexpr unsigned char SingleShift3 = 0x8F;
    if (lead < 0x80) {
        return {1, true};
    }
    if (encoding == QsEncodingShiftJIS) {
        const bool halfWidthKatakana = lead >= 0xA1 && lead <= 0xDF;
        return halfWidthKatakana ? Extent{1, true} : Extent{2, false};
    }
    if (encoding == QsEncodingEUCJP && lead == SingleShift2) {
        return {2, true};
    }
    return {encoding == QsEncodingEUCJP && lead == SingleShift3 ? std::size_t{3} : std::size_t{2}, false};
}

} // namespace

void QsdForEachCharacter(const char* text, int length, const std::function<void(const QsdCharacter&)>& use)
{
    if (text == nullptr) {
        return;
    }
    const QsLocale& locale = QsdGlobalContext::GetInstance().getLocale();
    const bool multiByte = locale.getMaxCharSize() > 1;
    std::size_t left = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    while (left != 0) {
        Extent extent{1, false};
        if (multiByte) {
            extent = extentOf(static_cast<unsigned char>(*text), locale.getEncoding());
            extent.length = std::min(extent.length, left);
        }
        use({text, extent.length, extent.half});
        text += extent.length;
        left -= extent.length;
    }
}
