// What of a palette is written, and when: what differs in value from what the page has in effect, of the parts that the
// operation draws with.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSFontFile_p.h"
#include "ps/QsdPSFontTraits_p.h"
#include "ps/QsdPSGrey_p.h"
#include "ps/QsdPSName_p.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "ps/QsdPSShare_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <string>

namespace {

using Shares = std::array<std::uint16_t, 3>;

/// The thousandths of a colour as they are written; three equal ones are a grey.
Shares sharesOf(const QsdColor& color, bool inColor)
{
    const auto share = [](unsigned value, unsigned whole) {
        return static_cast<std::uint16_t>((value * QsdPSShare::Whole + whole / 2) / whole);
    };
    constexpr unsigned Full = 65535;
    if (inColor || (color.red() == color.green() && color.green() == color.blue())) {
        return {share(color.red(), Full), share(color.green(), Full), share(color.blue(), Full)};
    }
    const std::uint16_t grey = share(QsdPSGreyOf(color.red() >> 8, color.green() >> 8, color.blue() >> 8), 255);
    return {grey, grey, grey};
}

/// Whether a line is solid: it has no dashes, or none of any length, which the language does not take.
bool isSolid(const QsdLineStyle& style)
{
    return std::all_of(style.dashes(), style.dashes() + style.count(), [](unsigned char dash) { return dash == 0; });
}

bool sameDashes(const QsdLineStyle& a, const QsdLineStyle& b)
{
    return isSolid(a) ? isSolid(b) : std::equal(a.dashes(), a.dashes() + a.count(), b.dashes(), b.dashes() + b.count());
}

} // namespace

void QsdPSPrintDevice::writePalette(const QsdPalette* palette) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSInForce& inForce = _document->inForce;
    const QsdPSUse use = _document->use;
    const bool text = use == QsdPSUse::Everything || use == QsdPSUse::Text;
    const bool stroke = use == QsdPSUse::Everything || use == QsdPSUse::Stroke;
    if (text && palette->font() != inForce.font.get()) {
        setFont(palette);
        inForce.font = QsdHandle<const QsdFont>(palette->font());
    }
    if (palette->foreground() != inForce.foreground.get() || inForce.foregroundInColor != inColor()) {
        const Shares shares = sharesOf(*palette->foreground(), inColor());
        if (inForce.color != shares) {
            setForeground(palette);
            inForce.color = shares;
        }
        inForce.foreground = QsdHandle<const QsdColor>(palette->foreground());
        inForce.foregroundInColor = inColor();
    }
    // The line under a text is dashed as others are.
    if ((stroke || text) && palette->lineStyle() != inForce.lineStyle.get()) {
        if (!inForce.lineStyle || !sameDashes(*palette->lineStyle(), *inForce.lineStyle)) {
            writeDashes(palette);
        }
        inForce.lineStyle = QsdHandle<const QsdLineStyle>(palette->lineStyle());
    }
    // The thinnest lines are one unit wide.
    const unsigned long width = std::max<unsigned long>(palette->lineWidth(), 1);
    if (stroke && inForce.lineWidth != width) {
        setLineWidth(palette);
        inForce.lineWidth = width;
    }
}

void QsdPSPrintDevice::writeDashes(const QsdPalette* palette) const
{
    if (isSolid(*palette->lineStyle())) {
        QsdPSWriter(stream()) << "[] 0 setdash" << EOL;
    } else {
        setLineStyle(palette);
    }
}

void QsdPSPrintDevice::setForeground(const QsdPalette* palette) const
{
    const Shares shares = sharesOf(*palette->foreground(), inColor());
    QsdPSWriter out(stream());
    if (shares[0] == shares[1] && shares[1] == shares[2]) {
        out << QsdPSShare(shares[0]).view() << " sg" << EOL;
    } else {
        out << QsdPSShare(shares[0]).view() << QsdSpc() << QsdPSShare(shares[1]).view() << QsdSpc()
            << QsdPSShare(shares[2]).view() << " sr" << EOL;
    }
}

bool QsdPSPrintDevice::inColor() const
{
    return getColorModel() != QsdPSGrey;
}

void QsdPSPrintDevice::writeFontSelection(int size, const char* name, const char* suffix, QsdPSGlyphs glyphs) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    const std::string fullName = std::string(name) + suffix;
    const bool isPiFont = glyphs == QsdPSGlyphs::Latin && QsdPSIsPiFont(fullName);
    const unsigned number = document.resources.font(fullName, isPiFont ? QsdPSGlyphs::Own : glyphs);
    QsdPSInForce& inForce = document.inForce;
    const std::pair wanted(number, size);
    if (inForce.fontAndSize == wanted) {
        return;
    }
    if (inForce.fonts.size() <= number) {
        inForce.fonts.resize(number + 1);
    }
    inForce.fonts[number] = true;
    inForce.fontAndSize = wanted;
    const QsdPSClassicNumbers classicNumbers;
    QsdPSWriter out(stream());
    out << "F" << number + 1 << QsdSpc();
    const std::int64_t hundredths = std::int64_t{size} * _PSFontScale;
    if (hundredths % 100 == 0) {
        out << hundredths / 100;
    } else {
        out << static_cast<double>(hundredths) / 100;
    }
    out << " sf" << EOL;
}

// The file is the whole document's, so it goes to the setup. One that is not there, breaks off or is no font is left
// out.
void QsdPSPrintDevice::writeFontFile(const char* fileName, const char* name, const char* suffix) const
{
    QsdPSFontFile file(fileName);
    if (!file.isOpen()) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    const std::string fullName = std::string(name) + suffix;
    QsdPSWriteWhole(document.resources.fontFiles(), [&](QsdPSSpool& spool) {
        const std::uint64_t before = spool.size();
        QsdPSWriter out(&spool);
        out << "%%BeginResource: font " << QsdPSShortCommentName(fullName) << EOL;
        if (!file.writeAsText(out)) {
            out.commit();
            spool.truncate(before);
            return;
        }
        out << "%%EndResource" << EOL;
        document.resources.supplyFont(fullName);
        document.sevenBits = document.sevenBits && file.isSevenBits();
    });
}
