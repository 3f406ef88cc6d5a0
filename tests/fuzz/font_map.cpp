// Font map files.
#include "ps/QsdPSFonts_.h"
#include "silence.h"
#include "toolkit/base/QsdGlobalContext.h"

#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    dropMessages();
    for (const char* const locale : {"C", "ja_JP.eucJP"}) {
        QsdGlobalContext::GetInstance().setLocale(QsLocale(locale));
        QsdPSFonts_ fonts(2);
        std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
        fonts.read(file, "fuzz");
        for (const QsEncoding encoding : {QsEncodingLatin1, QsEncodingEUCJP, QsEncodingShiftJIS}) {
            (void)fonts.getPSFontNames(encoding, "Times");
            (void)fonts.getPSFontNames(encoding, nullptr);
            (void)fonts.getDefaultFontNames(encoding);
        }
        fonts.resetDownloaded();
        std::istringstream again(std::string(reinterpret_cast<const char*>(data), size));
        fonts.read(again, "fuzz");
    }
    return 0;
}
