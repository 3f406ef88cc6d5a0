// Writing the prolog and the first page's setup.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSLatin1Encoding_p.h"
#include "ps/QsdPSPrologText_p.h"
#include "ps/QsdPSString.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsLocale.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

namespace {

void writeText(QsdPSWriter& out, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        out << text.substr(0, end) << EOL;
        text.remove_prefix(end + 1);
    }
}

void writeGlyph(QsdPSWriter& out, const QsdPSGlyph& glyph)
{
    const char code[] = {static_cast<char>('0' + (glyph.code >> 6)), static_cast<char>('0' + ((glyph.code >> 3) & 7)),
                         static_cast<char>('0' + (glyph.code & 7))};
    out << "[8#" << std::string_view(code, sizeof code) << "/" << glyph.name << "]";
}

void writeLatin1Encoding(QsdPSWriter& out)
{
    out << "/Latin1Encoding [" << EOL;
    for (const QsdPSGlyphLine& line : QsdPSLatin1Encoding) {
        writeGlyph(out, line.first);
        if (line.second.name != nullptr) {
            out << "\t";
            writeGlyph(out, line.second);
        }
        out << EOL;
    }
    out << "] def" << EOL;
}

/// A Japanese font whose first part is Latin, scaled to suit the glyphs of the two others.
void writeCompositeFont(QsdPSWriter& out, std::string_view name, int latinScale)
{
    out << "18 dict begin" << EOL;
    out << "/FontName /" << name << "-QSD-H def" << EOL;
    writeText(out, QsdPSPrologCompositeStart);
    out << "[/Helvetica findfont " << latinScale << " 100 div scalefont" << EOL;
    out << " /" << name << "-H findfont" << EOL;
    out << " /" << name << ".Hankaku findfont" << EOL;
    writeText(out, QsdPSPrologCompositeEnd);
}

} // namespace

void QsdPSDevice::writeProlog()
{
    const QsString decoder = QsdPostScriptEncoder::GetFullDecoderString(_encoder.get());
    QsdPSWriter out(_stream);
    writeText(out, QsdPSPrologStart);
    if (_QsdGetMaxCharSize() > 1) {
        writeText(out, QsdPSPrologMultiByte);
    }
    out << "/readpattern{" << EOL;
    if (_level == 1) {
        writeText(out, QsdPSPrologLevel1Readpattern);
    } else {
        out << " mul string currentfile " << decoder.view() << " exch readstring pop /p exch def } bind def" << EOL;
    }
    out << "/imtrx matrix currentmatrix def" << EOL;
    writeLatin1Encoding(out);
    writeText(out, QsdPSPrologReencode);
    out << "/qsdsf{Latin1Encoding qsdreencode exch " << _PSFontScale << " 100 div mul scalefont setfont}bind def"
        << EOL;
    out << "/qsdjsf {findfont exch " << _PSFontScale << " 100 div mul scalefont setfont}bind def" << EOL;
    if (CurrentEncoding == QsEncodingEUCJP) {
        writeCompositeFont(out, "Ryumin-Light", _EUCFontScale);
        writeCompositeFont(out, "GothicBBB-Medium", _EUCFontScale);
    }
    if (_level == 1) {
        writeText(out, QsdPSPrologLevel1Strip);
    } else {
        writeText(out, QsdPSPrologStrip);
        out << "        currentfile " << decoder.view() << "        } bind def" << EOL;
    }
    writeText(out, QsdPSPrologRectangles);

    out << "%%Page: " << _pageCount << QsdSpc() << _pageCount << EOL;
    out << "%%BeginPageSetup" << EOL;
    {
        double x11, x12, x21, x22, x0, y0;
        getPageTransformer().getValues(x11, x12, x21, x22, x0, y0);
        const QsdPSClassicNumbers classicNumbers;
        out << "/realmatrix { [" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << QsdSpc() << x0
            << QsdSpc() << y0 << "] imtrx matrix concatmatrix } bind def" << EOL;
        out << "realmatrix setmatrix" << EOL;
    }
    out << "/Courier findfont setfont" << EOL;
    out << "%%EndPageSetup" << EOL;
}
