// A device whose samples are told byte by byte.
#pragma once

#include "tests/unit/ps/RecordingEncoder.h"
#include "tests/unit/ps/TestDevice.h"

#include "toolkit/port/QsdBitmap.h"

#include <new>
#include <string>
#include <utility>

/// An open document in colour on a display of 24 bits, with a palette in force. Samples go to a text of their own.
struct RecordedSamples {
    RecordedSamples()
    {
        open.device.setEncoder(new RecordingEncoder(text));
        open.settle();
    }

    /// What the encoder was called for since the last time.
    std::string taken() { return std::exchange(text, std::string()); }

    std::string text;
    OpenDevice open;
};

/// A display that has no memory for pixels.
class FullDisplay : public QsdMemoryDisplay {
public:
    unsigned char* getBitmapData(const QsdSystemPort*, unsigned long&, const QsdRect&) const override
    {
        throw std::bad_alloc();
    }
};

/// A drawable that is not a bitmap, so that the display in memory has no pixels of it.
class Unreadable : public QsdBitmap {
public:
    using QsdBitmap::QsdBitmap;
    [[nodiscard]] bool isABitmap() const override { return false; }
};
