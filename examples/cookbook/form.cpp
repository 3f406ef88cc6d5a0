// A form as an encapsulated document, which other programs place on their pages: labels in boxes, dashed fields.
#include <array>
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int, char** argv)
{
    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSGrey);
    QsdRect box{20, 20, 400, 220};
    if (!device.initDevice(argv[1], &box)) {
        return 1;
    }
    const auto text = QsdMake<QsdPalette>(&display);
    const auto font = QsdMake<QsdFont>("times", QsdFontPlain, 16);
    text->setFont(font.get());
    const auto field = QsdMake<QsdPalette>(&display);
    const std::uint8_t dashes[] = {2, 2};
    const auto dotted = QsdMake<QsdLineStyle>(2, dashes);
    field->setLineStyle(dotted.get(), 1);

    device.drawRoundRectangle(text.get(), {25, 25, 390, 210}, 10);
    constexpr std::array<const char*, 4> Labels = {"Name", "Street", "Town", "Date and signature"};
    for (int i = 0; i < 4; ++i) {
        const int y = 40 + i * 48;
        device.drawLabel(text.get(), {40, y, 130, 30}, Labels.at(static_cast<std::size_t>(i)), -1, nullptr,
                         QsdPositionLeft);
        device.drawRectangle(field.get(), {180, y, 220, 30});
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
