// A device whose samples stand in the document as short notes.
#pragma once

#include "tests/unit/ps/TestDevice.h"

#include "toolkit/port/QsdBitmap.h"

/// Keeps a display where a base class of its user needs it.
struct ScreenHolder {
    explicit ScreenHolder(unsigned short depth) : screen(depth) {}

    QsdMemoryDisplay screen;
};

/// An open document, its display and a palette that is in force. The samples of an image are written as
/// "<depth WIDTHxHEIGHT size>" and a line end.
class SampleDevice : public ScreenHolder, public TestDevice {
public:
    explicit SampleDevice(QsdPSColorModel model = QsdPSRGB, unsigned long level = 2, unsigned short depth = 24)
        : ScreenHolder(depth), TestDevice(&screen, model),
          palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&screen)))
    {
        setPostScriptLevel(level);
        initDevice("unused", nullptr);
        setCurrentPalette(palette.get());
        taken();
    }
    ~SampleDevice() override { end(); }

    void writeImage(const QsdDisplay*, unsigned long depth, unsigned long width, unsigned long height,
                    const unsigned char* data, unsigned long size) const override
    {
        *stream() << "<" << depth << " " << width << "x" << height << " " << size << ">\n";
        if (data != nullptr) {
            firstByteOfLastPixel = depth > 8 ? data[3] : data[0];
        }
    }

    QsdHandle<QsdPalette> palette;
    mutable int firstByteOfLastPixel = -1;
};
