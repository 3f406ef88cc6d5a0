// One drawing on four ports: two bitmaps in memory, the base device and the everyday device.
#include <array>
#include <ps/QsdPSPrintDevice.h>
#include <string>
#include <toolkit/memory/QsdMemoryDisplay.h>
#include <toolkit/port/QsdBitmap.h>

namespace {

void drawTarget(const QsdPort& port, QsdDisplay& display)
{
    const auto red = QsdMake<QsdColor>(50000, 0, 0);
    const auto palette = QsdMake<QsdPalette>(&display);
    for (int ring = 5; ring > 0; --ring) {
        palette->setForeground(ring % 2 == 0 ? nullptr : red.get()); // null: black
        const auto size = static_cast<std::uint32_t>(ring * 20);
        port.fillArc(palette.get(), {60 - ring * 10, 60 - ring * 10, size, size}, 0, 360);
    }
}

bool drawDocument(QsdPSDevice& device, const std::string& name)
{
    if (!device.initDevice(name.c_str())) {
        return false;
    }
    drawTarget(device, *device.display());
    device.end();
    return !device.writeFailed();
}

} // namespace

int main(int, char** argv)
{
    const std::string name = argv[1];
    QsdMemoryDisplay display;
    const QsdBitmap colored(&display, 120, 120, display.screenDepth());
    drawTarget(colored, display);
    const QsdBitmap blackAndWhite(&display, 120, 120, 1);
    drawTarget(blackAndWhite, display);

    QsdPSDevice base(&display, QsdPSRGB);
    QsdPSPrintDevice everyday(&display, QsdPSRGB);
    return drawDocument(base, name + ".base") && drawDocument(everyday, name) ? 0 : 1;
}
