// A picture that a program makes or decodes itself, a strip of rows at a time: the whole never lies in memory.
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/graphics/QsdRGBBitmapData.h>
#include <toolkit/memory/QsdMemoryDisplay.h>
#include <toolkit/port/QsdBitmap.h>

int main(int, char** argv)
{
    constexpr std::uint32_t Width = 400;
    constexpr std::uint32_t Height = 300;
    constexpr std::uint32_t StripHeight = 50;
    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSRGB);
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    for (std::uint32_t top = 0; top < Height; top += StripHeight) {
        QsdRGBBitmapData strip(Width, StripHeight);
        for (std::uint32_t y = 0; y < StripHeight; ++y) {
            for (std::uint32_t x = 0; x < Width; ++x) {
                const auto shade = static_cast<std::uint8_t>((x ^ (top + y)) & 0xFF);
                strip.setPixel(x, y, {shade, static_cast<std::uint8_t>(255 - shade), 200});
            }
        }
        const QsdBitmap bitmap(&display, strip);
        device.drawBitmap(palette.get(), &bitmap, {0, 0, Width, StripHeight},
                          {72, static_cast<std::int32_t>(72 + top)});
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
