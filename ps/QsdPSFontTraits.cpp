#include "ps/QsdPSFontTraits_p.h"

#include "ps/QsdPSString.h"
#include "toolkit/graphics/QsdFont.h"

bool QsdPSIsVertical(const QsdFont& font)
{
    return CurrentEncoding == QsEncodingShiftJIS && font.getFamily() != nullptr && *font.getFamily() == '@';
}

int QsdPSSizeOf(const QsdFont& font)
{
    return font.size() != 0 ? font.size() : font.ascent() + font.descent() - 1;
}

bool QsdPSIsPiFont(std::string_view name)
{
    return name == "Symbol" || name == "ZapfDingbats";
}
