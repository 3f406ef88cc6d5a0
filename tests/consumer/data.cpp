// Writes a text in a family that the font map on the data path alone has.
#include <ps/QsdPSDevice.h>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int, char** argv)
{
    QsdMemoryDisplay display;
    QsdPSDevice device(&display, QsdPSRGB);
    if (!device.initDevice(argv[1], nullptr)) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    const auto font = QsdMake<QsdFont>("moved", QsdFontPlain, 12);
    palette->setFont(font.get());
    device.drawString(palette.get(), {72, 72}, "Hello", -1, QsdPositionNone);
    device.end();
    return device.writeFailed() ? 1 : 0;
}
