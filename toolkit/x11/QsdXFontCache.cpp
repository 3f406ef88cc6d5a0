#include "toolkit/x11/QsdXFontCache_p.h"

#include "toolkit/base/QsLocale.h"
#include "toolkit/x11/QsdXFont.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <strings.h>

namespace {

constexpr std::size_t MostFaces = 64;
constexpr unsigned LargestSize = 400; ///< servers make whole fonts of letters as large as asked for
constexpr char UsualFamily[] = "helvetica";

/// Whether a family can stand in a name of X, where some characters have meanings.
bool isPlainFamily(const std::string& family)
{
    constexpr std::size_t Longest = 100;
    return !family.empty() && family.size() <= Longest && std::none_of(family.begin(), family.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '-' || c == '*' || c == '?' || c == ',' || c == '"';
    });
}

std::string nameOf(const std::string& family, const char* weight, const char* slant, unsigned size,
                   const char* encoding)
{
    return "-*-" + family + "-" + weight + "-" + slant + "-normal-*-" + std::to_string(size) + "-*-*-*-*-*-" + encoding;
}

/// Whether the font is what its name says; servers have names that stand for other fonts.
bool isOfFamily(const QsdXFace& face, const std::string& family)
{
    const std::string_view name = face.names().front().view();
    const std::size_t begin = name.find('-', 1);
    return begin != std::string_view::npos && name.size() > begin + 1 + family.size() &&
           name[begin + 1 + family.size()] == '-' &&
           strncasecmp(name.data() + begin + 1, family.c_str(), family.size()) == 0;
}

} // namespace

template <class Load>
QsdXFontCache::Face QsdXFontCache::remembered(const std::string& key, Load load)
{
    const auto known =
        std::find_if(_known.begin(), _known.end(), [&](const auto& entry) { return entry.first == key; });
    if (known != _known.end()) {
        std::rotate(known, known + 1, _known.end());
        return _known.back().second;
    }
    if (_connection->isLost()) {
        return nullptr;
    }
    if (_known.size() == MostFaces) {
        _known.erase(_known.begin());
    }
    _known.emplace_back(key, load());
    return _known.back().second;
}

QsdXFontCache::Face QsdXFontCache::load(const std::string& family, std::uint16_t style, unsigned size) const
{
    using Words = std::vector<const char*>;
    // A family that lacks a style is still nearer than another one.
    const Words weights = (style & QsdFontBold) != 0 ? Words{"bold", "medium"} : Words{"medium"};
    const Words slants = (style & QsdFontItalic) != 0 ? Words{"i", "o", "r"} : Words{"r"};
    Face substitute;
    for (const char* const weight : weights) {
        for (const char* const slant : slants) {
            // Fonts of signs have an encoding of their own.
            for (const char* const encoding : {"iso8859-1", "adobe-fontspecific"}) {
                Face face = QsdXFace::Font(_connection, nameOf(family, weight, slant, size, encoding));
                if (face != nullptr && isOfFamily(*face, family)) {
                    return face;
                }
                if (substitute == nullptr) {
                    substitute = std::move(face);
                }
            }
        }
    }
    return substitute;
}

QsdXFontCache::Face QsdXFontCache::find(const char* family, std::uint16_t style, unsigned size)
{
    if (size == 0 || size > LargestSize) {
        return nullptr;
    }
    const std::string wanted = family != nullptr && isPlainFamily(family) ? family : UsualFamily;
    const std::uint16_t face = style & (QsdFontBold | QsdFontItalic);
    if (_QsdGetMaxCharSize() > 1) {
        // A set has the family where it can, and signs of any family for what that lacks.
        const std::string names =
            nameOf(wanted, face & QsdFontBold ? "bold" : "medium", face & QsdFontItalic ? "*" : "r", size, "*-*") +
            "," + nameOf("fixed", "medium", "r", size, "*-*") + "," + nameOf("*", "*", "r", size, "*-*");
        return remembered("set " + names, [&] { return QsdXFace::Set(_connection, names); });
    }
    const std::string key = wanted + "/" + std::to_string(face) + "/" + std::to_string(size);
    return remembered(key, [&] {
        Face found = load(wanted, face, size);
        return found != nullptr || wanted == UsualFamily ? found : load(UsualFamily, face, size);
    });
}

QsdXFontCache::Face QsdXFontCache::findByName(const std::string& names)
{
    const bool several = names.find(',') != std::string::npos;
    return remembered("name " + names,
                      [&] { return several ? QsdXFace::Set(_connection, names) : QsdXFace::Font(_connection, names); });
}

QsdXFontCache::Face QsdXFontCache::faceOf(const QsdFont& font, double scale)
{
    const auto* const xFont = dynamic_cast<const QsdXFont*>(&font);
    // A font of another server draws nothing here.
    if (scale == 1 && xFont != nullptr && &xFont->face()->connection() == _connection.get()) {
        return xFont->face();
    }
    if (font.style() == QsdFontByXName && scale != 1) {
        return nullptr;
    }
    const int size = font.size() != 0 ? font.size() : font.ascent() + font.descent();
    return find(font.getFamily(), font.style(), static_cast<unsigned>(std::lround(std::min(size * scale, 1e6))));
}
