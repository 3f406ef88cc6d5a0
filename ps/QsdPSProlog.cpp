// Writing the prolog and the first page's setup.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSPrologParts_p.h"
#include "ps/QsdPSPrologText_p.h"
#include "ps/QsdPSString.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsLocale.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

void QsdPSDevice::initFile()
{
    const QsString decoder = QsdPostScriptEncoder::GetFullDecoderString(_encoder.get());
    QsdPSWriter out(_stream);
    QsdPSWriteText(out, QsdPSPrologStart);
    QsdPSWriteText(out, QsdPSPrologProcedures);
    if (_QsdGetMaxCharSize() > 1) {
        QsdPSWriteText(out, QsdPSPrologMultiByte);
    }
    out << "/readpattern{" << EOL;
    if (_level == 1) {
        QsdPSWriteText(out, QsdPSPrologLevel1Readpattern);
    } else {
        out << " mul string currentfile " << decoder.view() << " exch readstring pop /p exch def } bind def" << EOL;
    }
    out << "/imtrx matrix currentmatrix def" << EOL;
    QsdPSWriteLatin1Encoding(out);
    QsdPSWriteText(out, QsdPSPrologReencode);
    out << "/qsdsf{Latin1Encoding qsdreencode exch " << _PSFontScale << " 100 div mul scalefont setfont}bind def"
        << EOL;
    out << "/qsdjsf {findfont exch " << _PSFontScale << " 100 div mul scalefont setfont}bind def" << EOL;
    if (CurrentEncoding == QsEncodingEUCJP) {
        QsdPSWriteCompositeFont(out, "Ryumin-Light", _EUCFontScale);
        QsdPSWriteCompositeFont(out, "GothicBBB-Medium", _EUCFontScale);
    }
    if (_level == 1) {
        QsdPSWriteText(out, QsdPSPrologLevel1Strip);
    } else {
        QsdPSWriteText(out, QsdPSPrologStrip);
        out << "        currentfile " << decoder.view() << "        } bind def" << EOL;
    }
    QsdPSWriteText(out, QsdPSPrologRectangles);

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
