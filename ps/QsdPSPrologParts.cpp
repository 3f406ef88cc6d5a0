#include "ps/QsdPSPrologParts_p.h"

#include "ps/QsdPSLatin1Encoding_p.h"
#include "ps/QsdPSName_p.h"
#include "ps/QsdPSPrologText_p.h"
#include "ps/QsdPSWriter_p.h"

namespace {

void writeGlyph(QsdPSWriter& out, const QsdPSGlyph& glyph)
{
    const char code[] = {static_cast<char>('0' + (glyph.code >> 6)), static_cast<char>('0' + ((glyph.code >> 3) & 7)),
                         static_cast<char>('0' + (glyph.code & 7))};
    out << "[8#" << std::string_view(code, sizeof code) << "/" << glyph.name << "]";
}

} // namespace

void QsdPSWriteText(QsdPSWriter& out, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        out << text.substr(0, end) << EOL;
        text.remove_prefix(end + 1);
    }
}

void QsdPSWriteLatin1Encoding(QsdPSWriter& out)
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

void QsdPSWriteCompositeFont(QsdPSWriter& out, std::string_view name, int latinScale)
{
    out << "18 dict begin" << EOL;
    out << "/FontName ";
    QsdPSWriteName(out, name, "-QSD-H");
    out << " def" << EOL;
    QsdPSWriteText(out, QsdPSPrologCompositeStart);
    out << "[/Helvetica findfont " << latinScale << " 100 div scalefont" << EOL;
    for (const char* const part : {"-H", ".Hankaku"}) {
        out << " ";
        QsdPSWriteName(out, name, part);
        out << " findfont" << EOL;
    }
    QsdPSWriteText(out, QsdPSPrologCompositeEnd);
}
