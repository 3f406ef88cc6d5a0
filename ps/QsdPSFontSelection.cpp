// Which PostScript font stands for a toolkit font.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSFontFile_p.h"
#include "ps/QsdPSFontTraits_p.h"
#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSName_p.h"
#include "ps/QsdPSString.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsLocale.h"
#include "toolkit/base/QsdMessages.h"

#include <string>
#include <string_view>

namespace {

/// The family in a name of the form "-foundry-family-..."; false for a name that does not begin so.
bool familyOfXName(std::string_view name, std::string& family)
{
    if (name.empty() || name.front() != '-') {
        return false;
    }
    const std::size_t second = name.find('-', 1);
    family = second == std::string_view::npos
                 ? std::string()
                 : std::string(name.substr(second + 1, name.find('-', second + 1) - second - 1));
    return true;
}

QsdPSFontNames_* findByXNames(const QsdFont& font)
{
    std::string family;
    for (const QsString& name : font.windowSystemNames()) {
        if (familyOfXName(name.view(), family)) {
            if (QsdPSFontNames_* const names =
                    QsdPSFonts_::GetInstance()->getPSFontNames(CurrentEncoding, family.c_str())) {
                return names;
            }
        }
    }
    return nullptr;
}

/// The record for a font, by family or, for want of it, by encoding; null when even that fails.
QsdPSFontNames_* findNames(const QsdFont& font)
{
    const QsdPSFonts_& registry = *QsdPSFonts_::GetInstance();
    QsdPSFontNames_* names = nullptr;
    if (font.style() == QsdFontByXName) {
        names = findByXNames(font);
    } else if (font.getFamily() != nullptr) {
        names = registry.getPSFontNames(CurrentEncoding, font.getFamily());
    }
    if (names == nullptr) {
        names = registry.getDefaultFontNames(CurrentEncoding);
    }
    if (names == nullptr) {
        names = registry.getPSFontNames(CurrentEncoding, nullptr);
    }
    if (names == nullptr && CurrentEncoding != QsEncodingLatin1 && font.getFamily() != nullptr) {
        names = registry.getPSFontNames(QsEncodingLatin1, font.getFamily());
    }
    return names;
}

QsdPSFace faceOf(const QsdFont& font)
{
    const unsigned bold = (font.style() & QsdFontBold) != 0 ? 1 : 0;
    const unsigned italic = (font.style() & QsdFontItalic) != 0 ? 2 : 0;
    return static_cast<QsdPSFace>(bold + italic);
}

/// What is put behind the normal name when a face has none of its own, by face.
constexpr const char* FaceSuffixes[] = {"", "-Bold", "-Oblique", "-BoldOblique"};

} // namespace

void QsdPSDevice::setFont(const QsdPalette* palette) const
{
    const QsdFont& font = *palette->font();
    const int size = QsdPSSizeOf(font);
    QsdPSFontNames_* const names = findNames(font);
    const QsdPSFace face = faceOf(font);
    const char* const ownName = names == nullptr ? nullptr : names->name(face);
    const char* const name = ownName != nullptr || names == nullptr ? ownName : names->normalName();
    if (name == nullptr) {
        writeFontSelection(size, "Helvetica", "", QsdPSGlyphs::Latin);
        return;
    }
    const char* const suffix = ownName != nullptr ? "" : FaceSuffixes[static_cast<unsigned>(face)];

    if (names->downloadFileName(face) != nullptr && !names->isDownloaded(face)) {
        writeFontFile(names->downloadFileName(face), name, suffix);
        names->setDownloaded(face);
    }
    const bool multiByte = _QsdGetMaxCharSize() > 1 && names->encoding() != QsEncodingLatin1;
    const QsdPSGlyphs singleByte = names->hasOwnEncoding() ? QsdPSGlyphs::Own : QsdPSGlyphs::Latin;
    writeFontSelection(size, name, suffix, multiByte ? QsdPSGlyphs::MultiByte : singleByte);
}

void QsdPSDevice::writeFontSelection(int size, const char* name, const char* suffix, QsdPSGlyphs glyphs) const
{
    const QsdPSLiteralName literal(name, suffix);
    QsdPSWriter out(_stream);
    out << size;
    literal.write(out);
    out << (glyphs == QsdPSGlyphs::MultiByte ? std::string_view(" qsdjsf") : std::string_view(" qsdsf")) << EOL;
}

void QsdPSDevice::writeFontFile(const char* fileName, const char* name, const char* suffix) const
{
    QsdPSFontFile file(fileName);
    if (!file.isOpen()) {
        return;
    }
    const std::string fullName = QsdPSCommentName(std::string(name) + suffix);
    QsdPSWriter out(_stream);
    out << EOL << "%%BeginFont: " << fullName << EOL;
    file.copyTo(out);
    out << EOL << "%%EndFont" << EOL;
}
