#include "page/fonts.h"

#include <string_view>

namespace qsdps {

Face FontTable::face(const FontRequest& request) const
{
    bool isMapped = false;
    const auto findMapped = [&](const std::string& name) {
        const char* const family = _findMapped ? _findMapped(name) : nullptr;
        isMapped = family != nullptr;
        return family;
    };
    Face face = faceFor(
        request.families, isBold(request), [this](const std::string& name) { return _letters.has(name); }, findMapped);
    if (_encoding == QsEncodingLatin1 || isMapped) {
        return face;
    }
    Face plain;
    plain.family = face.family;
    if (_encoding == QsEncodingEUCJP) {
        plain.family = std::string_view(face.family) == "times" ? "fixed" : "gothic medium bbb";
    }
    return plain;
}

const QsdFont* FontTable::get(const FontRequest& request, bool underlined, std::uint16_t size)
{
    const auto style =
        static_cast<std::uint16_t>((isBold(request) ? QsdFontBold : 0) | (request.italic ? QsdFontItalic : 0) |
                                   (underlined ? QsdFontUnderlined : 0));
    const char* const family = face(request).family;
    if (_fonts.size() >= MostFonts) {
        _fonts.clear();
    }
    QsdHandle<const QsdFont>& entry = _fonts[{family, style, size}];
    if (!entry) {
        entry = QsdHandle<const QsdFont>::Adopt(_display.createFont(family, style, size));
    }
    return entry.get();
}

} // namespace qsdps
