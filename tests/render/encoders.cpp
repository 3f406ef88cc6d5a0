// Documents that show whether an interpreter gets back what an encoder was given, and goes on right behind it:
//   encoders list                      the encoders there are
//   encoders lengths FILE ENCODER      data of many lengths; the document itself counts and compares their bytes
//   encoders pages FILE ENCODER LEVEL  every kind of picture and pattern, in many sizes
//   encoders print FILE ENCODER LEVEL  the same by the device whose pages stand alone
#include "ps/QsdPSPrintDevice.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"
#ifdef DRAVONSET_HAVE_ZLIB
#include "toolkit/zlib/QsdFlateEncoder.h"
#endif

#include <cstdlib>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

template <class Encoder>
QsdPostScriptEncoder* make()
{
    return new Encoder(nullptr);
}

const struct {
    const char* name;
    QsdPostScriptEncoder* (*make)();
} Encoders[] = {
    {"ascii85", make<QsdASCII85Encoder>},
    {"runlength", make<QsdRunLengthEncoder>},
    {"lzw", make<QsdLZWEncoder>},
#ifdef DRAVONSET_HAVE_ZLIB
    {"flate", make<QsdFlateEncoder>},
#endif
};

/// Lengths at which encoders or filters begin or end a block, a table or a code width.
std::vector<std::size_t> lengths()
{
    std::vector<std::size_t> all;
    for (std::size_t length = 1; length <= 300; ++length) {
        all.push_back(length);
    }
    for (const std::size_t border : {512U, 768U, 1024U, 1792U, 2048U, 3838U, 4096U, 8192U, 65535U}) {
        for (std::size_t length = border - 6; length <= border + 6; ++length) {
            all.push_back(length);
        }
    }
    return all;
}

constexpr int Kinds = 5;

Bytes data(int kind, std::size_t length)
{
    std::mt19937 random(static_cast<unsigned>(length));
    Bytes bytes(length);
    unsigned char last = 0;
    for (unsigned char& byte : bytes) {
        switch (kind) {
        case 0: // one long run
            break;
        case 1: // nothing to compress
            last = static_cast<unsigned char>(random());
            break;
        case 2: // short runs
            last = random() % 4 == 0 ? static_cast<unsigned char>(random()) : last;
            break;
        case 3: // runs about as long as they may be
            last = random() % 128 == 0 ? static_cast<unsigned char>(random()) : last;
            break;
        default: // few values
            last = static_cast<unsigned char>(random() % 3);
            break;
        }
        byte = last;
    }
    return bytes;
}

/// Hexadecimal digits of the test's own.
std::string hexadecimal(const Bytes& bytes)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const unsigned char byte : bytes) {
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text;
}

/// Sends `text` in lines of less than 255 characters.
void sendInLines(const QsdPSDevice& device, const std::string& text)
{
    constexpr std::size_t Width = 200;
    for (std::size_t at = 0; at < text.size(); at += Width) {
        device.send(text.substr(at, Width).c_str());
    }
}

void writeLengths(const QsdPSDevice& device, const QsdDisplay& display)
{
    device.send("/check{dup string currentfile exch readhexstring pop 2 index ne"
                "{(not what was encoded: )print =}{pop}ifelse pop}def");
    for (const std::size_t length : lengths()) {
        for (int kind = 0; kind < Kinds; ++kind) {
            const Bytes bytes = data(kind, length);
            const std::string count = std::to_string(length);
            device.send((count + " 1 readpattern").c_str());
            device.writeImage(&display, 1, length * 8, 1, bytes.data(), bytes.size());
            device.send(("p " + count + " check").c_str());
            sendInLines(device, hexadecimal(bytes));
        }
    }
}

/// A bitmap whose pixels differ; with a mask in which runs of every length occur.
std::unique_ptr<QsdBitmap> picture(QsdDisplay& display, std::uint32_t width, std::uint32_t height)
{
    QsdRGBBitmapData pixels(width, height);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            pixels.setPixel(x, y,
                            {static_cast<std::uint8_t>(x * 7), static_cast<std::uint8_t>(y * 5 + x),
                             static_cast<std::uint8_t>(width)});
        }
    }
    auto bitmap = std::make_unique<QsdBitmap>(&display, pixels);
    auto mask = std::make_unique<QsdBitmap>(&display, width, height, std::uint16_t{1});
    const auto ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    for (std::uint32_t y = 0; y < height; ++y) {
        const auto row = static_cast<std::int32_t>(y);
        const std::uint32_t length = y == 0 ? width : width * y / 5;
        mask->fillRectangle(ink.get(), {0, row, length, 1});
        mask->fillRectangle(ink.get(), {static_cast<std::int32_t>(length) + 1, row, 1, 1});
    }
    bitmap->setMask(std::move(mask));
    return bitmap;
}

void drawPictures(const QsdPort& port, const QsdPalette& palette, QsdDisplay& display)
{
    for (std::uint32_t width = 1; width <= 100; ++width) {
        const std::uint32_t height = 1 + width % 4;
        const std::unique_ptr<QsdBitmap> bitmap = picture(display, width, height);
        const Bytes bits = data(1, std::size_t{(width + 7) / 8} * height);
        const auto oneBit = QsdBitmap::FromBits(&display, width, height, bits.data());
        const QsdRect all{0, 0, width, height};
        const auto y = static_cast<std::int32_t>(width * 8);
        port.drawBitmap(&palette, bitmap.get(), all, QsdPoint{0, y});
        port.drawTransparentBitmap(&palette, bitmap.get(), all, QsdPoint{100, y});
        port.stretchBitmap(&palette, QsdRect{200, y, 90, 7}, bitmap.get(), nullptr);
        port.stretchTransparentBitmap(&palette, QsdRect{300, y, 90, 7}, bitmap.get(), nullptr);
        port.drawBitmap(&palette, oneBit.get(), all, QsdPoint{400, y});
        port.drawTransparentBitmap(&palette, oneBit.get(), all, QsdPoint{500, y});
        port.stretchBitmap(&palette, QsdRect{600, y, 90, 7}, oneBit.get(), nullptr);
        port.stretchTransparentBitmap(&palette, QsdRect{700, y, 90, 7}, oneBit.get(), nullptr);
    }
}

void drawTallPictures(const QsdPort& port, const QsdPalette& palette, QsdDisplay& display)
{
    std::int32_t x = 0;
    for (const std::uint32_t height : {1365U, 1366U, 4094U, 4095U, 4096U, 4097U, 4098U, 21844U, 21845U, 21846U}) {
        const std::unique_ptr<QsdBitmap> bitmap = picture(display, 1, height);
        port.stretchBitmap(&palette, QsdRect{x, 0, 9, 800}, bitmap.get(), nullptr);
        x += 10;
    }
}

void fillPatterns(const QsdPort& port, QsdPalette& palette)
{
    for (std::uint16_t width = 1; width <= 60; ++width) {
        const Bytes bits = data(1, std::size_t{8} * ((width + 7U) / 8));
        const auto pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(width, 8, bits.data()));
        palette.setPattern(pattern.get());
        port.fillRectangle(&palette, {110, width * 12, 300, 9});
    }
    palette.setPattern(nullptr);
}

void fillColorPatterns(const QsdPort& port, QsdPalette& palette)
{
    palette.setFillStyle(QsdFillColorPattern);
    for (std::uint16_t width = 1; width <= 60; ++width) {
        const Bytes pixels = data(2, std::size_t{4} * width * 3);
        const auto colors =
            QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(width, 3, 24, pixels.data(), pixels.size()));
        palette.setColorPattern(colors.get());
        port.fillRectangle(&palette, {110, width * 12, 300, 9});
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "list") {
        for (const auto& encoder : Encoders) {
            std::cout << encoder.name << "\n";
        }
        return 0;
    }
    if (argc < 4) {
        return 2;
    }
    QsdMemoryDisplay display;
    std::unique_ptr<QsdPSDevice> owner;
    if (mode == "print") {
        owner = std::make_unique<QsdPSPrintDevice>(&display, QsdPSRGB);
    } else {
        owner = std::make_unique<QsdPSDevice>(&display, QsdPSRGB);
    }
    QsdPSDevice& device = *owner;
    device.setPaperWidth(820);
    device.setPaperHeight(820);
    if (argc > 4) {
        device.setPostScriptLevel(std::strtoul(argv[4], nullptr, 10));
    }
    for (const auto& encoder : Encoders) {
        if (encoder.name == std::string(argv[3])) {
            device.setEncoder(encoder.make());
        }
    }
    if (!device.initDevice(argv[2], nullptr)) {
        return 1;
    }
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    if (mode == "lengths") {
        writeLengths(device, display);
    } else {
        drawPictures(device, *palette, display);
        device.newPage();
        drawTallPictures(device, *palette, display);
        fillPatterns(device, *palette);
        if (device.getPostScriptLevel() != 1) { // which has no text for patterns in colour
            device.newPage();
            fillColorPatterns(device, *palette);
        }
    }
    device.end();
    return device.writeFailed() ? 1 : 0;
}
