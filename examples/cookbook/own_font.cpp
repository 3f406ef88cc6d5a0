// A font of one's own: a record names the PostScript font and, where the printer does not have it, the file that
// travels in the document.
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int argc, char** argv)
{
    const char* const file = argc > 2 ? argv[2] : nullptr; // a Type 1 font file that defines the font named below
    QsdPSFonts_::GetInstance()->addOrReplace(new QsdPSFontNames_(QsEncodingLatin1, "house", "Bookman-Light",
                                                                 "Bookman-Demi", "Bookman-LightItalic",
                                                                 "Bookman-DemiItalic", file, nullptr, nullptr, nullptr),
                                             false);
    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSGrey);
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    int baseline = 100;
    for (const int style : {int{QsdFontPlain}, int{QsdFontBold}, int{QsdFontItalic}, QsdFontBold | QsdFontItalic}) {
        const auto font = QsdMake<QsdFont>("house", static_cast<std::uint16_t>(style), 24);
        palette->setFont(font.get());
        device.drawString(palette.get(), {72, baseline}, "The house's own letters", -1, QsdPositionNone);
        baseline += 30;
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
