// A device whose document is kept in memory.
#pragma once

#include "ps/QsdPSDevice.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <sstream>
#include <string>

/// Writes into a string; the stream outlives closeStream, so that the document can be read after end.
class TestDevice : public QsdPSDevice {
public:
    explicit TestDevice(QsdDisplay* display, QsdPSColorModel model = QsdPSRGB) : QsdPSDevice(display, model) {}

    std::ostream* openStream(const char*) override
    {
        _text.str(std::string());
        _text.clear();
        return &_text;
    }
    void closeStream(std::ostream*) override {}

    /// Everything written since the last call.
    std::string taken()
    {
        std::string text = _text.str();
        _text.str(std::string());
        return text;
    }

protected:
    std::ostringstream _text;
};

/// A display, a device with an open document, and a palette; what has been written so far is dropped.
struct OpenDevice {
    explicit OpenDevice(QsdPSColorModel model = QsdPSRGB, unsigned long level = 2, unsigned short depth = 24)
        : display(depth), device(&display, model), palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display)))
    {
        device.setPostScriptLevel(level);
        device.initDevice("unused", nullptr);
        device.taken();
    }
    ~OpenDevice() { device.end(); }

    /// Brings the palette's state up to date, so that the next operation writes itself alone.
    void settle()
    {
        device.checkClip(palette->clipRegion());
        device.setCurrentPalette(palette.get());
        device.taken();
    }

    QsdMemoryDisplay display;
    TestDevice device;
    QsdHandle<QsdPalette> palette;
};
