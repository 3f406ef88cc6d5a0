// Ten thousand pages: pages wait in a temporary file, so memory does not grow, and the header still tells their number.
#include <ps/QsdPSBulkDevice.h>
#include <ps/QsdPSPrintDevice.h>
#include <string>
#include <toolkit/memory/QsdMemoryDisplay.h>

int main(int argc, char** argv)
{
    const int pages = argc > 2 ? std::stoi(argv[2]) : 10000;
    QsdMemoryDisplay display;
    QsdPSBulkDevice<QsdPSPrintDevice> device(&display, QsdPSGrey); // hands the document over in large blocks
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) {
            device.newPage();
        }
        std::string label = "Page ";
        label += std::to_string(page);
        device.drawString(palette.get(), {297, 800}, label.c_str(), -1, QsdPositionCenter);
        if (device.writeFailed()) {
            break; // no use in going on with a full disk
        }
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
