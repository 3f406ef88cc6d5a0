// A bar chart: areas, lines, texts that are centred and ended at a point.
#include <algorithm>
#include <array>
#include <ps/QsdPSPrintDevice.h>
#include <string>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int, char** argv)
{
    constexpr std::array<int, 6> Sales = {120, 180, 90, 240, 210, 300};
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
    for (int i = 0; i < 6; ++i) {
        const int height = Sales.at(static_cast<std::size_t>(i));
        const QsdRect bar{Left + i * Step + 10, Bottom - height, Step - 20, static_cast<std::uint32_t>(height)};
        device.fillRectangle(bars.get(), bar);
        std::string quarter = "Q";
        quarter += std::to_string(i + 1);
        device.drawString(ink.get(), {bar.x + 25, Bottom + 20}, quarter.c_str(), -1, QsdPositionCenter);
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
