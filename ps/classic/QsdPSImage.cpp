// Image samples: pixels of every depth as the bytes that the image operators read.
#include "ps/QsdPSDevice.h"

#include "ps/images/QsdPSGrey_p.h"
#include "ps/images/QsdPSImageSource_p.h"
#include "ps/images/QsdPSIndexedColors_p.h"
#include "ps/images/QsdPSSamples_p.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <typeinfo>

namespace {

/// The bytes of one row of a source, which may be fewer than its pixels need; those beyond them are 0.
struct Row {
    const unsigned char* bytes;
    unsigned long length;

    [[nodiscard]] unsigned char byte(unsigned long i) const
    {
        return i < length ? bytes[i] : static_cast<unsigned char>(0);
    }
};

void putBitRow(QsdPostScriptEncoder& encoder, const Row& row, unsigned long width)
{
    const unsigned long needed = QsdPSBitRowBytes(width);
    const unsigned long there = std::min(needed, row.length);
    if (there != 0) {
        encoder.putBytes(there, row.bytes);
    }
    for (unsigned long i = there; i < needed; ++i) {
        encoder.putByte(0);
    }
}

void putIndexedRow(QsdPostScriptEncoder& encoder, const QsdPSIndexedColors& colors, const Row& row, unsigned long width,
                   bool inColor)
{
    for (unsigned long i = 0; i < width; ++i) {
        const unsigned char index = row.byte(i);
        if (inColor) {
            const auto& rgb = colors.rgb(index);
            encoder.putByte(rgb[0]);
            encoder.putByte(rgb[1]);
            encoder.putByte(rgb[2]);
        } else {
            encoder.putByte(colors.grey(index));
        }
    }
}

/// Whether nobody can tell how many bytes the encoder is handed at a time. Encoders of a program's own get a call for
/// each pixel, as they always did; ours, exactly, may get many pixels at once, as a call takes longer than to encode.
bool takesBlocks(const QsdPostScriptEncoder& encoder)
{
    return typeid(encoder) == typeid(QsdASCII85Encoder) || typeid(encoder) == typeid(QsdASCIIHexEncoder);
}

void putDirectBlocks(QsdPostScriptEncoder& encoder, const QsdPSSamples& converter, const unsigned char* pixels,
                     unsigned long count)
{
    constexpr unsigned long Most = 256;
    std::array<unsigned char, 3 * Most> samples;
    for (unsigned long first = 0; first < count; first += Most) {
        const unsigned long part = std::min(Most, count - first);
        converter.convert(pixels + converter.sourceBytes(first), part, samples.data());
        encoder.putBytes(part * converter.components(), samples.data());
    }
}

void putDirectPixel(QsdPostScriptEncoder& encoder, const unsigned char* pixel, bool inColor)
{
    if (inColor) {
        encoder.putBytes(3, pixel + 1);
    } else {
        encoder.putByte(QsdPSGreyOf(pixel[1], pixel[2], pixel[3]));
    }
}

void putDirectRow(QsdPostScriptEncoder& encoder, const Row& row, unsigned long width, bool inColor)
{
    for (unsigned long i = 0; i < width; ++i) {
        const std::array<unsigned char, 4> pixel = {0, row.byte(4 * i + 1), row.byte(4 * i + 2), row.byte(4 * i + 3)};
        putDirectPixel(encoder, pixel.data(), inColor);
    }
}

} // namespace

void QsdPSDevice::writeImage(const QsdDisplay* display, unsigned long depth, unsigned long width, unsigned long height,
                             const unsigned char* data, unsigned long size) const
{
    if (width == 0 || height == 0 || _encoder == nullptr) {
        return;
    }
    const unsigned long rowBytes = data == nullptr ? 0 : size / height;
    const auto row = [=](unsigned long r) { return Row{data + r * rowBytes, rowBytes}; };
    const bool inColor = _colorModel != QsdPSGrey;
    QsdPostScriptEncoder& encoder = *_encoder;
    encoder.startData();
    if (depth == 1) {
        for (unsigned long r = 0; r < height; ++r) {
            putBitRow(encoder, row(r), width);
        }
    } else if (depth <= 8) {
        const QsdPSIndexedColors colors(*display);
        for (unsigned long r = 0; r < height; ++r) {
            putIndexedRow(encoder, colors, row(r), width, inColor);
        }
    } else {
        const QsdPSSamples converter(*display, depth, inColor);
        const bool blocks = takesBlocks(encoder) && width <= rowBytes / 4;
        for (unsigned long r = 0; r < height; ++r) {
            if (blocks) {
                putDirectBlocks(encoder, converter, row(r).bytes, width);
            } else {
                putDirectRow(encoder, row(r), width, inColor);
            }
        }
    }
    encoder.endData();
}
