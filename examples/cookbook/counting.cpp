// A device that counts: drawing operations are virtual, so a derived device sees each before it is written.
#include <iostream>
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/memory/QsdMemoryDisplay.h>

namespace {

class CountingDevice : public QsdPSPrintDevice {
public:
    using QsdPSPrintDevice::QsdPSPrintDevice;

    void drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const override
    {
        ++_lines;
        QsdPSPrintDevice::drawLine(palette, from, to);
    }
    [[nodiscard]] unsigned long lines() const { return _lines; }

private:
    mutable unsigned long _lines = 0; // drawing is const in a port
};

/// Any object draws on any port; it does not know what it is drawn on.
void drawFan(const QsdPort& port, const QsdPalette* palette)
{
    for (int x = 0; x <= 400; x += 20) {
        port.drawLine(palette, {300, 600}, {100 + x, 200});
    }
}

} // namespace

int main(int, char** argv)
{
    QsdMemoryDisplay display;
    CountingDevice device(&display, QsdPSRGB);
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    drawFan(device, palette.get());
    device.end();
    std::cout << device.lines() << " lines\n";
    return device.writeFailed() ? 1 : 0;
}
