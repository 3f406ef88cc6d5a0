// An encoder of image data of one's own: hexadecimal in upper case, 32 bytes a line. The decoder text tells the
// interpreter how to read it back; a filter needs its end mark.
#include <ostream>
#include <ps/QsdPSPrintDevice.h>
#include <toolkit/encoder/QsdPostScriptEncoder.h>
#include <toolkit/graphics/QsdRGBBitmapData.h>
#include <toolkit/memory/QsdMemoryDisplay.h>
#include <toolkit/port/QsdBitmap.h>

namespace {

class UpperCaseHex : public QsdPostScriptEncoder {
public:
    void putByte(unsigned char byte) override
    {
        constexpr char Digits[] = "0123456789ABCDEF";
        if (_stream != nullptr) {
            *_stream << Digits[byte >> 4] << Digits[byte & 15] << (++_count % 32 == 0 ? "\n" : "");
        }
    }
    void putBytes(unsigned long count, const unsigned char* bytes) override
    {
        for (unsigned long i = 0; i < count; ++i) {
            putByte(bytes[i]);
        }
    }
    void startData() override { _count = 0; }
    void endData() override
    {
        if (_stream != nullptr) {
            *_stream << ">\n";
        }
    }
    void setStream(std::ostream* stream) override { _stream = stream; }
    [[nodiscard]] QsString getDecoderString() const override { return QsString("/ASCIIHexDecode filter"); }

private:
    std::ostream* _stream = nullptr;
    unsigned long _count = 0;
};

} // namespace

int main(int, char** argv)
{
    QsdMemoryDisplay display;
    QsdPSPrintDevice device(&display, QsdPSRGB);
    device.setEncoder(new UpperCaseHex); // the device owns it
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    QsdRGBBitmapData pixels(64, 64);
    for (std::uint32_t y = 0; y < 64; ++y) {
        for (std::uint32_t x = 0; x < 64; ++x) {
            pixels.setPixel(x, y, {static_cast<std::uint8_t>(x * 4), static_cast<std::uint8_t>(y * 4), 128});
        }
    }
    const QsdBitmap bitmap(&display, pixels);
    const auto palette = QsdMake<QsdPalette>(&display);
    device.stretchBitmap(palette.get(), QsdRect{72, 72, 256, 256}, &bitmap, nullptr);
    device.end();
    return device.writeFailed() ? 1 : 0;
}
