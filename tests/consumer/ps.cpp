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
    const auto blue = QsdMake<QsdColor>(0, 0, 65535);
    palette->setForeground(blue.get());
    device.fillRectangle(palette.get(), {72, 72, 200, 100});
    palette->setForeground(nullptr);
    device.drawString(palette.get(), {172, 220}, "Hello, paper", -1, QsdPositionCenter);
    device.end();
    return device.writeFailed() ? 1 : 0;
}
