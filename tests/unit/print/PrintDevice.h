// A QsdPSPrintDevice whose documents are kept in memory.
#pragma once

#include "ps/QsdPSPrintDevice.h"
#include "tests/structure/structure_check.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

/// Keeps the text of its document; each must keep the structuring conventions.
class PrintDevice : public QsdPSPrintDevice {
public:
    explicit PrintDevice(QsdDisplay* display, QsdPSColorModel model = QsdPSRGB) : QsdPSPrintDevice(display, model) {}

    std::ostream* openStream(const char*) override
    {
        _output.str(std::string());
        _output.clear();
        return &_output;
    }
    void closeStream(std::ostream*) override {}

    [[nodiscard]] std::string document() const { return _output.str(); }
    using QsdPSPrintDevice::writeFontSelection;

private:
    std::ostringstream _output;
};

/// A display, a device with an open document of one page, and a palette.
struct PrintPage {
    explicit PrintPage(unsigned long level = 2, QsdPSColorModel model = QsdPSRGB, unsigned short depth = 24,
                       QsdRect* bbox = nullptr)
        : display(depth), device(&display, model), palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display)))
    {
        device.setPostScriptLevel(level);
        device.initDevice("folder/page.ps", bbox);
    }

    /// Ends the document, which must be right, and returns it.
    std::string whole()
    {
        device.end();
        const std::string text = device.document();
        for (const std::string& fault : structureFaults(text)) {
            ADD_FAILURE() << fault << "\n" << text;
        }
        return text;
    }
    /// Ends the document and returns what lies between two of its lines.
    std::string between(const std::string& first, const std::string& last) { return part(whole(), first, last); }
    /// What was drawn on page `number`.
    static std::string drawing(const std::string& text, int number = 1)
    {
        const std::string page = "%%Page: " + std::to_string(number) + " " + std::to_string(number) + "\n";
        return part(text.substr(text.find(page)), "%%EndPageSetup\n", "%%PageTrailer\n");
    }
    static std::string part(const std::string& text, const std::string& first, const std::string& last)
    {
        const std::size_t begin = text.find(first);
        const std::size_t end = begin == std::string::npos ? begin : text.find(last, begin + first.size());
        if (end == std::string::npos) {
            return "nothing between " + first + " and " + last;
        }
        return text.substr(begin + first.size(), end - begin - first.size());
    }

    QsdMemoryDisplay display;
    PrintDevice device;
    QsdHandle<QsdPalette> palette;
};
