// Image samples: pixels of every depth as the bytes that the image operators read.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSGrey_p.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/port/QsdDisplay.h"

#include <array>
#include <cstdint>

namespace {

/// Components of the display's colour table, 8 bits each.
class IndexedColors {
public:
    explicit IndexedColors(const QsdDisplay& display)
    {
        std::array<unsigned short, 256> reds;
        std::array<unsigned short, 256> greens;
        std::array<unsigned short, 256> blues;
        display.colorTable(256, reds.data(), greens.data(), blues.data());
        for (std::size_t i = 0; i < 256; ++i) {
            _rgb[i] = {static_cast<unsigned char>(reds[i] >> 8), static_cast<unsigned char>(greens[i] >> 8),
                       static_cast<unsigned char>(blues[i] >> 8)};
            _grey[i] = QsdPSGreyOf(_rgb[i][0], _rgb[i][1], _rgb[i][2]);
        }
    }

    [[nodiscard]] const std::array<unsigned char, 3>& rgb(unsigned char index) const { return _rgb[index]; }
    [[nodiscard]] unsigned char grey(unsigned char index) const { return _grey[index]; }

private:
    std::array<std::array<unsigned char, 3>, 256> _rgb;
    std::array<unsigned char, 256> _grey;
};

void putIndexedRow(QsdPostScriptEncoder& encoder, const IndexedColors& colors, const unsigned char* row,
                   unsigned long width, bool inColor)
{
    for (unsigned long i = 0; i < width; ++i) {
        if (inColor) {
            const auto& rgb = colors.rgb(row[i]);
            encoder.putByte(rgb[0]);
            encoder.putByte(rgb[1]);
            encoder.putByte(rgb[2]);
        } else {
            encoder.putByte(colors.grey(row[i]));
        }
    }
}

void putDirectRow(QsdPostScriptEncoder& encoder, const unsigned char* row, unsigned long width, bool inColor)
{
    for (unsigned long i = 0; i < width; ++i) {
        const unsigned char* const pixel = row + 4 * i;
        if (inColor) {
            encoder.putBytes(3, pixel + 1);
        } else {
            encoder.putByte(QsdPSGreyOf(pixel[1], pixel[2], pixel[3]));
        }
    }
}

} // namespace

void QsdPSDevice::writeImage(const QsdDisplay* display, unsigned long depth, unsigned long width, unsigned long height,
                             const unsigned char* data, unsigned long size) const
{
    if (width == 0 || height == 0 || _encoder == nullptr) {
        return;
    }
    const unsigned long rowBytes = size / height;
    const bool inColor = _colorModel != QsdPSGrey;
    QsdPostScriptEncoder& encoder = *_encoder;
    encoder.startData();
    if (depth == 1) {
        for (unsigned long r = 0; r < height; ++r) {
            encoder.putBytes((width + 7) / 8, data + r * rowBytes);
        }
    } else if (depth <= 8) {
        const IndexedColors colors(*display);
        for (unsigned long r = 0; r < height; ++r) {
            putIndexedRow(encoder, colors, data + r * rowBytes, width, inColor);
        }
    } else {
        for (unsigned long r = 0; r < height; ++r) {
            putDirectRow(encoder, data + r * rowBytes, width, inColor);
        }
    }
    encoder.endData();
}
