// Text. Every call writes a block of its own: a save level, the anchor, an axis turned upright again, the string, its
// alignment, and a show procedure of the prolog.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSString.h"
#include "ps/classic/QsdPSBackground_p.h"
#include "ps/classic/QsdPSClipRestorer_p.h"
#include "ps/classic/QsdPSOperation_p.h"
#include "ps/fonts/QsdPSFontTraits_p.h"
#include "ps/text/QsdPSClassicNumbers_p.h"
#include "ps/text/QsdPSLineLength_p.h"
#include "ps/text/QsdPSStringBody_p.h"
#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/base/QsLocale.h"

#include <climits>
#include <cwchar>
#include <new>
#include <string>
#include <string_view>

namespace {

QsdTransformer verticalTransformer(const QsdFont& font)
{
    QsdTransformer t;
    t.translate(-(font.ascent() + font.descent()) * 0.5, -static_cast<double>(font.ascent()));
    t.rotate(-90);
    return t;
}

/// Writes the four factors of a matrix, without a translation, and puts it in force.
void writeFactors(QsdPSWriter& out, double x11, double x12, double x21, double x22)
{
    out << " M[" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << " 0 0]concat" << EOL;
}

std::string_view alignment(QsdPosition position)
{
    switch (position) {
    case QsdPositionRight:
        return "dup stringwidth pop -1 mul 0 rM ";
    case QsdPositionCenter:
        return "dup stringwidth pop -2 div 0 rM ";
    default:
        return "";
    }
}

std::string_view showProcedure(const QsdFont& font)
{
    const bool multiByte = _QsdGetMaxCharSize() > 1;
    if (font.isUnderlined()) {
        return multiByte ? "qsdjushow g" : "qsdushow g";
    }
    return multiByte ? "qsdjshow g" : "qsdshow g";
}

/// The characters of a wide text in the C library's encoding, as many as fit into as many bytes as `length` and one
/// more characters can take, whatever the length of the text; empty when one of them cannot be converted, and for no
/// text. As wcstombs, but the memory follows the text and not the length.
std::string multiByteText(const wchar_t* text, int length)
{
    if (length <= 0 || text == nullptr) {
        return std::string();
    }
    const std::size_t limit = (static_cast<std::size_t>(length) + 1) * static_cast<std::size_t>(_QsdGetMaxCharSize());
    std::string bytes;
    std::mbstate_t state{};
    for (; bytes.size() < limit && *text != L'\0'; ++text) {
        char character[MB_LEN_MAX];
        const std::size_t size = std::wcrtomb(character, *text, &state);
        if (size == static_cast<std::size_t>(-1)) {
            return std::string();
        }
        if (size > limit - bytes.size()) {
            break;
        }
        bytes.append(character, size);
    }
    return bytes;
}

/// Writes from the save level to the opening parenthesis; `opening` is what stands in front of the coordinates.
void openString(QsdPSWriter& out, const QsdFont& font, const QsdPoint& at, std::string_view opening)
{
    if (!QsdPSIsVertical(font)) {
        out << opening << at << " M 1 -1 scale(";
        return;
    }
    double x11, x12, x21, x22, x0, y0;
    verticalTransformer(font).getValues(x11, x12, x21, x22, x0, y0);
    // The ordinate has always been written unsigned, so one above the page comes out as a large number.
    const auto y =
        static_cast<std::uint32_t>(std::int64_t{at.y} - font.ascent() + ((font.ascent() + font.descent()) >> 1));
    const QsdPSClassicNumbers classicNumbers;
    out << "G " << at.x << QsdSpc() << y;
    writeFactors(out, x11, x12, x21, x22);
    out << " 1 -1 scale(";
}

} // namespace

void QsdPSDevice::drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                             QsdPosition position) const
{
    if (!beginOperation(palette, QsdPSUse::Text, [&](auto& shape) { shape.text(at, text, length, position); })) {
        return;
    }
    QsdPSWriter out(_stream);
    openString(out, *palette->font(), at, "G ");
    QsdPSWriteStringBody(out, text, length, lineLength());
    out << ")" << alignment(position) << showProcedure(*palette->font()) << EOL;
}

// The background is the box of the glyphs' outlines; the string waits on the operand stack while it is filled.
void QsdPSDevice::drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                              QsdPosition position) const
{
    if (!beginOperation(palette, QsdPSUse::Text, [&](auto& shape) { shape.text(at, text, length, position); })) {
        return;
    }
    const QsdPSBackground background(palette);
    {
        QsdPSWriter out(_stream);
        openString(out, *palette->font(), at, CurrentEncoding == QsEncodingShiftJIS ? "G " : " G n ");
        QsdPSWriteStringBody(out, text, length, lineLength());
        out << ")" << alignment(position) << EOL //
            << "G dup true charpath pathbbox n 4 2 roll 2 copy M" << EOL
            << "3 index exch L 3 -1 roll 2 index L exch L c ";
    }
    setForeground(background.get());
    QsdPSWriter(_stream) << " fill g " << showProcedure(*palette->font()) << EOL;
}

void QsdPSDevice::drawTransformedString(const QsdPalette* palette, const char* text, int length,
                                        const QsdTransformer& t, const QsdRegion* clip) const
{
    if (length == 0 || text == nullptr || *text == '\0') {
        return;
    }
    if (!beginOperation(palette, QsdPSUse::Text, [&](auto& shape) { shape.text(t, text, length); })) {
        return;
    }
    const QsdPSClipRestorer restorer(*this, _clipCache);
    QsdPSWriter(_stream) << " G " << EOL;
    try {
        restrictClip(palette, clip == nullptr ? nullptr : &clip->boundingRect());
    } catch (const std::bad_alloc&) {
        // No clip was written, which needs its memory first.
        QsdPSWriter(_stream) << "g" << EOL;
        throw;
    }

    const QsdFont& font = *palette->font();
    QsdTransformer matrix = t;
    if (QsdPSIsVertical(font)) {
        matrix = verticalTransformer(font).compose(t);
    }
    double x11, x12, x21, x22, x0, y0;
    matrix.getValues(x11, x12, x21, x22, x0, y0);
    QsdPSWriter out(_stream);
    {
        const QsdPSClassicNumbers classicNumbers;
        // The move by the ascent puts the top of the text at the transformed origin.
        out << x0 << QsdSpc() << y0;
        writeFactors(out, x11, x12, x21, x22);
        out << "0 " << font.ascent() << " rM 1 -1 scale(";
    }
    QsdPSWriteStringBody(out, text, length, lineLength());
    out << ")" << showProcedure(font) << EOL;
}

void QsdPSDevice::drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                            QsdPosition position) const
{
    const std::string bytes = multiByteText(text, length);
    if (!bytes.empty()) {
        checkClip(palette->clipRegion());
        drawString(palette, at, bytes.c_str(), static_cast<int>(bytes.size()), position);
    }
}

void QsdPSDevice::drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                             QsdPosition position) const
{
    const std::string bytes = multiByteText(text, length);
    if (!bytes.empty()) {
        checkClip(palette->clipRegion());
        drawIString(palette, at, bytes.c_str(), static_cast<int>(bytes.size()), position);
    }
}

void QsdPSDevice::drawString(const QsdPalette*, const QsdPoint&, const QsdBidiString*, int, QsdPosition) const {}

void QsdPSDevice::drawIString(const QsdPalette*, const QsdPoint&, const QsdBidiString*, int, QsdPosition) const {}

void QsdPSDevice::drawTransformedString(const QsdPalette*, const QsdBidiString*, int, const QsdTransformer&,
                                        const QsdRegion*) const
{
}
