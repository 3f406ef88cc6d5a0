// Japanese text: the locale says that strings are in EUC. The printer has to have the font that the document names;
// Ghostscript needs a Japanese font on the machine.
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/base/QsdGlobalContext.h>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int, char** argv)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.eucJP"));
    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSGrey);
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    const auto mincho = QsdMake<QsdFont>("fixed", QsdFontPlain, 24);
    palette->setFont(mincho.get());
    // "Tokyo" in two kanji, then Latin letters in the same string.
    device.drawString(palette.get(), {72, 100}, "\xC5\xEC\xB5\xFE (Tokyo)", -1, QsdPositionNone);
    device.end();
    return device.writeFailed() ? 1 : 0;
}
