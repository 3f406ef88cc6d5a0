// What of a palette is written, and when: what differs in value from what the page has in effect, of the parts that the
// operation draws with.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSFontFile_p.h"
#include "ps/QsdPSGrey_p.h"
#include "ps/QsdPSName_p.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <string>

namespace {

/// A part of one in thousandths, as short as it can be written.
class Share {
public:
    explicit Share(unsigned value, unsigned whole)
    {
        unsigned thousandths = (value * 1000 + whole / 2) / whole;
        if (thousandths % 1000 == 0) {
            _text[_size++] = thousandths == 0 ? '0' : '1';
            return;
        }
        _text[_size++] = '.';
        for (unsigned unit = 100; thousandths != 0; unit /= 10) {
            _text[_size++] = static_cast<char>('0' + thousandths / unit);
            thousandths %= unit;
        }
    }

    [[nodiscard]] std::string_view view() const { return {_text, _size}; }

private:
    char _text[4];
    std::size_t _size = 0;
};

constexpr unsigned Full = 65535;

bool sameDashes(const QsdLineStyle& a, const QsdLineStyle& b)
{
    return std::equal(a.dashes(), a.dashes() + a.count(), b.dashes(), b.dashes() + b.count());
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
    const QsdColor& color = *palette->foreground();
    const std::array<std::uint16_t, 3> components{color.red(), color.green(), color.blue()};
    if (inForce.color != components) {
        setForeground(palette);
        inForce.color = components;
    }
    // The line under a text is dashed as others are.
    if ((stroke || text) && palette->lineStyle() != inForce.lineStyle.get()) {
        if (!inForce.lineStyle || !sameDashes(*palette->lineStyle(), *inForce.lineStyle)) {
            setLineStyle(palette);
        }
        inForce.lineStyle = QsdHandle<const QsdLineStyle>(palette->lineStyle());
    }
    if (stroke && inForce.lineWidth != palette->lineWidth()) {
        setLineWidth(palette);
        inForce.lineWidth = palette->lineWidth();
    }
}

void QsdPSPrintDevice::setForeground(const QsdPalette* palette) const
{
    const QsdColor& color = *palette->foreground();
    QsdPSWriter out(stream());
    if (color.red() == color.green() && color.green() == color.blue()) {
        out << Share(color.green(), Full).view() << " sg";
    } else if (inColor()) {
        out << Share(color.red(), Full).view() << QsdSpc() << Share(color.green(), Full).view() << QsdSpc()
            << Share(color.blue(), Full).view() << " sr";
    } else {
        out << Share(QsdPSGreyOf(color.red() >> 8, color.green() >> 8, color.blue() >> 8), 255).view() << " sg";
    }
    out << EOL;
}

bool QsdPSPrintDevice::inColor() const
{
    return getColorModel() != QsdPSGrey;
}

void QsdPSPrintDevice::writeFontSelection(int size, const char* name, const char* suffix, bool multiByte) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    const unsigned number = document.resources.font(std::string(name) + suffix, multiByte);
    QsdPSInForce& inForce = document.inForce;
    const std::pair wanted(number, size);
    if (inForce.fontAndSize == wanted) {
        return;
    }
    inForce.fontAndSize = wanted;
    if (inForce.fonts.size() <= number) {
        inForce.fonts.resize(number + 1);
    }
    inForce.fonts[number] = true;
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

// The file is the whole document's, so it goes to the setup.
void QsdPSPrintDevice::writeFontFile(const char* fileName, const char* name, const char* suffix) const
{
    QsdPSFontFile file(fileName);
    if (!file.isOpen()) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    const std::string fullName = std::string(name) + suffix;
    QsdPSWriter out(&document.resources.fontFiles());
    out << "%%BeginResource: font " << QsdPSCommentName(fullName) << EOL;
    document.sevenBits = file.copyTo(out) && document.sevenBits;
    out << EOL << "%%EndResource" << EOL;
    document.resources.supplyFont(fullName);
}
