// SVG files, drawn on a page.
#include "kept_document.h"
#include "page/painter.h"
#include "ps/QsdPSDevice.h"
#include "silence.h"
#include "svg/reader.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    dropMessages();
    const auto drawing = qsdps::SvgDrawing::load(std::string(reinterpret_cast<const char*>(data), size), {});
    if (!drawing) {
        return 0;
    }
    QsdMemoryDisplay display;
    KeptDocument<QsdPSDevice> device(&display, QsdPSRGB);
    device.initDevice("fuzz", nullptr);
    qsdps::PaintTools tools(display, QsEncodingLatin1);
    const qsdps::Units units(842);
    device.setTransformer(units.toPoints());
    qsdps::Report report;
    qsdps::Painter painter(device, units, qsdps::Matrix(), {255, 255, 255}, tools, report);
    (*drawing)->draw(painter, report);
    device.end();
    return 0;
}
