// A bar chart: areas, lines, texts that are centred and ended at a point.
#include <array>
#include <ps/QsdPSPrintDevice.h>
#include <string>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int, char** argv)
{
    struct Month {
        const char* name;
        int sales;
    };
    constexpr std::array<Month, 6> Months = {
        {{"Jan", 120}, {"Feb", 180}, {"Mar", 90}, {"Apr", 240}, {"May", 210}, {"Jun", 300}}};
    constexpr int Left = 100;
    constexpr int Bottom = 500;
    constexpr int Step = 70;

    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSRGB);
    device.setTitle("Sales");
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto ink = QsdMake<QsdPalette>(&display);
    const auto font = QsdMake<QsdFont>("helvetica", QsdFontPlain, 14);
    ink->setFont(font.get());
    const auto bars = QsdMake<QsdPalette>(ink.get());
    const auto blue = QsdMake<QsdColor>(7710, 23130, 38550);
    bars->setForeground(blue.get());

    for (int value = 0; value <= 300; value += 100) {
        device.drawLine(ink.get(), {Left, Bottom - value}, {Left + Step * 6, Bottom - value});
        device.drawString(ink.get(), {Left - 8, Bottom - value + 5}, std::to_string(value).c_str(), -1,
                          QsdPositionRight);
    }
    int left = Left + 10;
    for (const Month& month : Months) {
        device.fillRectangle(bars.get(),
                             {left, Bottom - month.sales, Step - 20, static_cast<std::uint32_t>(month.sales)});
        device.drawString(ink.get(), {left + 25, Bottom + 20}, month.name, -1, QsdPositionCenter);
        left += Step;
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
