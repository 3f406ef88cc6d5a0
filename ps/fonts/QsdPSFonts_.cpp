#include "ps/QsdPSFonts_.h"

#include "ps/fonts/QsdPSBuiltInFonts_p.h"
#include "toolkit/base/QsMalloc.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <strings.h>
#include <utility>

namespace {

const void* defaultsKey(QsEncoding encoding)
{
    return reinterpret_cast<const void*>(std::uintptr_t{encoding});
}

/// A record without a family is entered by programs only; it counts as one of an empty name.
const char* familyOf(const QsdPSFontNames_* names)
{
    return names->family() == nullptr ? "" : names->family();
}

/// Whether two families are the same but for the case of letters. Most differ in their first, which shows without a
/// call; of what letters beyond ASCII there are, the C library knows.
bool isSameFamily(const char* a, const char* b)
{
    const auto first = static_cast<unsigned char>(*a);
    const auto second = static_cast<unsigned char>(*b);
    constexpr unsigned CaseBit = 0x20;
    const bool ascii = first < 0x80 && second < 0x80;
    return !(ascii && (first | CaseBit) != (second | CaseBit)) && (std::strcmp(a, b) == 0 || strcasecmp(a, b) == 0);
}

QsdPSFontNames_** allocate(QsdPSFontNames_** old, std::size_t slots)
{
    return static_cast<QsdPSFontNames_**>(QsRealloc(old, slots * sizeof *old));
}

} // namespace

QsdPSFonts_* QsdPSFonts_::GetInstance()
{
    static QsdPSFonts_ instance(20);
    return &instance;
}

QsdPSFonts_::QsdPSFonts_(QsdPSFontNames_** slots, unsigned capacity) : _fonts(slots), _capacity(capacity)
{
    std::fill_n(_fonts, _capacity, nullptr);
}

QsdPSFonts_::QsdPSFonts_(unsigned capacity)
    : QsdPSFonts_(allocate(nullptr, std::max(capacity, 1U)), std::max(capacity, 1U))
{
    basicLoad();
}

QsdPSFonts_::~QsdPSFonts_()
{
    for (std::uint32_t i = 0; i < _count; ++i) {
        delete _fonts[i];
    }
    _count = 0;
    QsFree(_fonts);
}

QsdPSFontNames_* QsdPSFonts_::getPSFontNames(QsEncoding encoding, const char* family) const
{
    const auto matches = [=](const QsdPSFontNames_* names) {
        return names->encoding() == encoding && (family == nullptr || isSameFamily(familyOf(names), family));
    };
    QsdPSFontNames_* const* const found = std::find_if(_fonts, _fonts + _count, matches);
    return found == _fonts + _count ? nullptr : *found;
}

int QsdPSFonts_::getPSFontNames(const QsdPSFontNames_* names) const
{
    const auto equals = [=](const QsdPSFontNames_* entered) {
        return std::strcmp(familyOf(entered), familyOf(names)) == 0 && entered->encoding() == names->encoding();
    };
    QsdPSFontNames_* const* const found = std::find_if(_fonts, _fonts + _count, equals);
    return found == _fonts + _count ? -1 : static_cast<int>(found - _fonts);
}

QsdPSFontNames_* QsdPSFonts_::getDefaultFontNames(QsEncoding encoding) const
{
    return static_cast<QsdPSFontNames_*>(_defaults.get(defaultsKey(encoding)));
}

void QsdPSFonts_::setDefault(QsdPSFontNames_* names)
{
    if (!_defaults.replace(defaultsKey(names->encoding()), names)) {
        _defaults.append(defaultsKey(names->encoding()), names);
    }
}

void QsdPSFonts_::add(QsdPSFontNames_* names, bool asDefault)
{
    const bool isNew = getPSFontNames(names) < 0;
    if (isNew && _count == _capacity) {
        _fonts = allocate(_fonts, std::size_t{_capacity} * 2);
        std::fill_n(_fonts + _capacity, _capacity, nullptr);
        _capacity *= 2;
    }
    if (asDefault) {
        setDefault(names);
    }
    if (isNew) {
        _fonts[_count++] = names;
    }
}

void QsdPSFonts_::addOrReplace(QsdPSFontNames_* names, bool asDefault)
{
    const int index = getPSFontNames(names);
    if (index < 0) {
        add(names, asDefault);
        return;
    }
    if (asDefault) {
        setDefault(names);
    }
    QsdPSFontNames_* const old = std::exchange(_fonts[index], names);
    if (!asDefault) {
        _defaults.remove(defaultsKey(old->encoding()), old);
    }
    if (old != names) {
        delete old;
    }
}

void QsdPSFonts_::resetDownloaded()
{
    std::for_each(_fonts, _fonts + _count, [](QsdPSFontNames_* names) { names->resetDownloaded(); });
}

void QsdPSFonts_::basicLoad()
{
    for (const QsdPSBuiltInFont& font : QsdPSBuiltInFonts) {
        auto names =
            std::make_unique<QsdPSFontNames_>(font.encoding, font.family, font.normalName, font.boldName,
                                              font.italicName, font.boldItalicName, nullptr, nullptr, nullptr, nullptr);
        add(names.get(), font.asDefault);
        static_cast<void>(names.release());
    }
}
