// Bitmaps. The samples are read from the display and written some rows at a time, in the smallest form that shows the
// same colours; when there is no memory for some of them, nothing of the image stays in the document. The space of
// images is that of the pixels: an image whose first pixel is at x, y has the matrix [1 0 0 1 -x -y]. Only opaque ones
// and masks under a matrix of their own are images of a square of one unit, since interpreters round the two
// differently.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSBackground_p.h"
#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSClipRestorer_p.h"
#include "ps/QsdPSFiniteMatrix_p.h"
#include "ps/QsdPSImageFormat_p.h"
#include "ps/QsdPSImageSource_p.h"
#include "ps/QsdPSPixels_p.h"
#include "ps/QsdPSPrintOperation_p.h"
#include "ps/QsdPSSamples_p.h"
#include "ps/QsdPSShare_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <cstring>
#include <vector>

/// Where an image stands.
struct QsdPSImagePlace {
    QsdPoint at;
    bool underMatrix = false; ///< of its own, as QsdPSDevice places stretched bitmaps
};

namespace {

/// Strings of an interpreter hold so many bytes.
constexpr std::size_t MaxString = 65535;

/// Calls use(rows, first, count) for the pixels of `rect`, so many rows at a time as are worth reading at once.
template <class Use>
void forEachBand(const QsdDisplay& display, const QsdSystemPort* source, const QsdRect& rect, Use use)
{
    constexpr std::uint32_t BandPixels = 64 * 1024;
    const std::uint32_t band = std::max<std::uint32_t>(1, BandPixels / std::max<std::uint32_t>(1, rect.width));
    for (std::uint32_t first = 0; first < rect.height;) {
        const std::uint32_t count = std::min(band, rect.height - first);
        const auto y = static_cast<std::int32_t>(rect.y + std::int64_t{first});
        use(QsdPixelRows(display, source, {rect.x, y, rect.width, count}), first, count);
        first += count;
    }
}

/// Rows of colour pixels, converted one by one.
class ColorRows {
public:
    ColorRows(const QsdDisplay& display, std::uint32_t width, bool inColor)
        : _converter(display, display.screenDepth(), inColor), _width(width), _pixels(_converter.sourceBytes(width)),
          _samples(std::size_t{width} * _converter.components())
    {
    }

    [[nodiscard]] unsigned components() const { return _converter.components(); }
    /// The samples of a row, valid until the next call.
    [[nodiscard]] const unsigned char* read(const QsdPixelRows& rows, std::uint32_t r)
    {
        rows.copyRow(r, _pixels.size(), _pixels.data());
        _converter.convert(_pixels.data(), _width, _samples.data());
        return _samples.data();
    }

private:
    QsdPSSamples _converter;
    std::uint32_t _width;
    std::vector<unsigned char> _pixels;
    std::vector<unsigned char> _samples;
};

/// The greatest string, of a whole number of which a row of `rowBytes` consists.
std::size_t stringSize(std::size_t rowBytes)
{
    std::size_t parts = (rowBytes + MaxString - 1) / MaxString;
    while (rowBytes % parts != 0) {
        ++parts;
    }
    return rowBytes / parts;
}

void writePlace(QsdPSWriter& out, const QsdPoint& at)
{
    out << "[1 0 0 1 " << -std::int64_t{at.x} << QsdSpc() << -std::int64_t{at.y} << "]";
}

/// Makes the bitmap's area the square of one unit where the image is to be one.
void writeSpace(QsdPSWriter& out, const QsdPSImagePlace& place, const QsdRect& rect)
{
    if (place.underMatrix) {
        out << rect.width << " -" << rect.height << " scale 0 -1 t ";
    }
}

/// Writes the image's matrix.
void writePlace(QsdPSWriter& out, const QsdPSImagePlace& place, const QsdRect& rect)
{
    if (place.underMatrix) {
        out << "[" << rect.width << " 0 0 -" << rect.height << " 0 " << rect.height << "]";
    } else {
        writePlace(out, place.at);
    }
}

bool isEmpty(const QsdRect& rect)
{
    return rect.width == 0 || rect.height == 0;
}

void writeHexColor(QsdPSWriter& out, std::uint32_t color)
{
    constexpr char Digits[] = "0123456789abcdef";
    char text[6];
    for (unsigned i = 0; i < sizeof text; ++i) {
        text[i] = Digits[(color >> (20 - 4 * i)) & 0xF];
    }
    out << std::string_view(text, sizeof text);
}

/// Sets a colour.
void writeColor(QsdPSWriter& out, std::uint32_t color)
{
    const auto share = [](std::uint32_t component) { return QsdPSShare((component * QsdPSShare::Whole + 127) / 255); };
    out << share(color >> 16).view() << QsdSpc() << share((color >> 8) & 0xFF).view() << QsdSpc()
        << share(color & 0xFF).view() << " sr ";
}

/// Writes the number of the last colour and the table.
void writeColorTable(QsdPSWriter& out, const QsdPSImageFormat& format)
{
    constexpr std::size_t PerLine = 12;
    out << format.colors().size() - 1 << "<";
    std::size_t written = 0;
    for (const std::uint32_t color : format.colors()) {
        if (written != 0 && written % PerLine == 0) {
            out << EOL;
        }
        writeHexColor(out, color);
        ++written;
    }
    out << ">";
}

/// Writes the colour space of samples that the image dictionary says all else of.
void writeColorSpace(QsdPSWriter& out, const QsdPSImageFormat& format)
{
    if (format.kind() == QsdPSImageFormat::Indexed) {
        out << "[/Indexed/DeviceRGB ";
        writeColorTable(out, format);
        out << "]";
    } else {
        out << (format.kind() == QsdPSImageFormat::Color ? "/DeviceRGB " : "/DeviceGray ");
    }
}

/// Samples of a row of hidden pixels, which are written as zeros: nobody sees them, and zeros are the shortest. In a
/// table of colours that is the first one.
std::vector<unsigned char> hiddenRow(const QsdPSImageFormat& format, std::size_t width, std::size_t components)
{
    std::vector<unsigned char> row(width * components);
    if (format.kind() == QsdPSImageFormat::Indexed) {
        const std::uint32_t color = format.colors().front();
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = static_cast<unsigned char>(color >> 8 * (components - 1 - i % components));
        }
    }
    return row;
}

} // namespace

void QsdPSPrintDevice::drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                  const QsdPoint& at) const
{
    writeBitmap(palette, source, rect, at, false);
}

void QsdPSPrintDevice::drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source,
                                             const QsdRect& rect, const QsdPoint& at) const
{
    writeBitmap(palette, source, rect, at, true);
}

void QsdPSPrintDevice::stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                     const QsdTransformer& t, const QsdRect* clip) const
{
    writeStretched(palette, at, bitmap, t, clip, false);
}

void QsdPSPrintDevice::stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                                const QsdTransformer& t, const QsdRect* clip) const
{
    writeStretched(palette, at, bitmap, t, clip, true);
}

void QsdPSPrintDevice::writeBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                   const QsdPoint& at, bool transparent) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    setCurrentPalette(palette);
    if (source == nullptr || isEmpty(rect) || stream() == nullptr) {
        return;
    }
    QsdPixelRows::check(*source, rect);
    reach(at.x, at.y, static_cast<double>(at.x) + rect.width, static_cast<double>(at.y) + rect.height, 0);
    QsdPSWriteWhole(_document->pageTexts, [&](QsdPSSpool&) {
        if (source->depth() == 1) {
            writeBits(palette, source, rect, {at}, !transparent);
        } else if (!transparent) {
            writeColors(palette, source, rect, {at});
        } else if (const QsdSystemPort* const mask = QsdPSMaskOf(source)) {
            writeMasked(palette, source, mask, rect, at);
        }
    });
}

void QsdPSPrintDevice::writeStretched(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                      const QsdTransformer& given, const QsdRect* clip, bool transparent) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Fill);
    const QsdTransformer t = QsdPSFiniteMatrix(given);
    setCurrentPalette(palette);
    if (bitmap == nullptr || stream() == nullptr) {
        return;
    }
    const QsdRect area{0, 0, static_cast<std::uint32_t>(bitmap->width()), static_cast<std::uint32_t>(bitmap->height())};
    const QsdSystemPort* const mask = QsdPSMaskOf(bitmap);
    if (isEmpty(area) || (transparent && bitmap->depth() != 1 && mask == nullptr)) {
        return;
    }
    const QsdPSClipRestorer restorer(*this, currentClip());
    restrictClip(palette, clip);

    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    const QsdPSExtent extent =
        QsdPSExtentOf(QsdTransformer(x11, x12, x21, x22, at.x, at.y), 0, 0, area.width, area.height);
    reach(extent.left, extent.bottom, extent.right, extent.top, 0);
    QsdPSWriteWhole(_document->pageTexts, [&](QsdPSSpool&) {
        {
            const QsdPSClassicNumbers classicNumbers;
            QsdPSWriter(stream()) << "G[" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << QsdSpc()
                                  << at << "]concat" << EOL;
        }
        if (bitmap->depth() == 1) {
            writeBits(palette, bitmap, area, {QsdPoint{}, true}, !transparent);
        } else if (!transparent) {
            writeColors(palette, bitmap, area, {QsdPoint{}, true});
        } else {
            writeMasked(palette, bitmap, mask, area, QsdPoint{});
        }
        QsdPSWriter(stream()) << "g" << EOL;
    });
}

void QsdPSPrintDevice::writeDataSource(QsdPSWriter& out, const QsdPostScriptEncoder& encoder) const
{
    if (readsHexadecimal(&encoder)) {
        out << "{hr}";
    } else {
        QsdPSFilteredSource(&encoder).write(out);
    }
}

void QsdPSPrintDevice::writeSourceString(QsdPSWriter& out, const QsdPostScriptEncoder& encoder,
                                         std::size_t rowBytes) const
{
    if (readsHexadecimal(&encoder)) {
        out << stringSize(rowBytes) << " hs ";
    }
}

void QsdPSPrintDevice::writeBits(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                 const QsdPSImagePlace& place, bool opaque) const
{
    if (opaque) {
        QsdPSWriter(stream()) << "G n " << rect.width << QsdSpc() << rect.height << QsdSpc() << place.at << " rect ";
        setForeground(QsdPSBackground(palette).get());
        QsdPSWriter(stream()) << "fill g" << EOL;
    }
    if (imageEncoder() == nullptr) {
        return;
    }
    std::vector<unsigned char> row(QsdPSBitRowBytes(rect.width));
    writeSamples(_document->pageTexts, [&](std::ostream& target, QsdPostScriptEncoder& encoder) {
        {
            QsdPSWriter out(&target);
            writeSpace(out, place, rect);
            writeSourceString(out, encoder, row.size());
            out << rect.width << QsdSpc() << rect.height << " true";
            writePlace(out, place, rect);
            writeDataSource(out, encoder);
            out << " Im" << EOL;
        }
        encoder.startData();
        forEachBand(*palette->display(), source, rect,
                    [&](const QsdPixelRows& rows, std::uint32_t, std::uint32_t count) {
                        for (std::uint32_t r = 0; r < count; ++r) {
                            rows.copyRow(r, row.size(), row.data());
                            encoder.putBytes(row.size(), row.data());
                        }
                    });
        encoder.endData();
    });
}

void QsdPSPrintDevice::writeColors(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                   const QsdPSImagePlace& place) const
{
    if (imageEncoder() == nullptr) {
        return;
    }
    const QsdDisplay& display = *palette->display();
    ColorRows colors(display, rect.width, inColor());
    const auto forEachRow = [&](auto use) {
        forEachBand(display, source, rect, [&](const QsdPixelRows& rows, std::uint32_t, std::uint32_t count) {
            for (std::uint32_t r = 0; r < count; ++r) {
                use(colors.read(rows, r));
            }
        });
    };
    QsdPSImageFormat format(colors.components());
    forEachRow([&](const unsigned char* samples) { format.look(samples, rect.width); });
    format.decide(rect.width, rect.height, true);
    const bool painted = _document->level == 1 && format.kind() == QsdPSImageFormat::Indexed;
    if (painted && format.colors().size() != 2) {
        format.decide(rect.width, rect.height, false);
    } else if (painted) {
        // Level 1 has no colour tables: the first colour is the ground, the second is painted through a mask.
        QsdPSWriter out(stream());
        out << "G ";
        writeColor(out, format.colors()[0]);
        out << "n " << rect.width << QsdSpc() << rect.height << QsdSpc() << place.at << " rect fill ";
        writeColor(out, format.colors()[1]);
        out << EOL;
    }
    const bool asMask = format.kind() == QsdPSImageFormat::Indexed && painted;
    std::vector<unsigned char> packed(format.rowBytes(rect.width));
    writeSamples(_document->pageTexts, [&](std::ostream& target, QsdPostScriptEncoder& encoder) {
        {
            QsdPSWriter out(&target);
            writeSpace(out, place, rect);
            writeSourceString(out, encoder, packed.size());
            out << rect.width << QsdSpc() << rect.height << QsdSpc();
            if (asMask) {
                out << "true";
            } else {
                out << format.bits();
            }
            writePlace(out, place, rect);
            if (!asMask && format.kind() == QsdPSImageFormat::Indexed) {
                writeColorTable(out, format);
            }
            writeDataSource(out, encoder);
            constexpr const char* Operators[] = {" Ig", " I", " Ix"};
            out << (asMask ? " Im" : Operators[format.kind()]) << EOL;
        }
        encoder.startData();
        forEachRow([&](const unsigned char* samples) {
            format.pack(samples, rect.width, packed.data());
            encoder.putBytes(packed.size(), packed.data());
        });
        encoder.endData();
    });
    if (asMask) {
        QsdPSWriter(stream()) << "g" << EOL;
    }
}

void QsdPSPrintDevice::writeMasked(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                                   const QsdRect& rect, const QsdPoint& at) const
{
    if (_document->level < 3 || readsHexadecimal(imageEncoder())) {
        writeRuns(palette, source, mask, rect, at);
        return;
    }
    const QsdDisplay& display = *palette->display();
    ColorRows colors(display, rect.width, inColor());
    const auto forEachRow = [&](auto use) {
        forEachBand(display, source, rect, [&](const QsdPixelRows& rows, std::uint32_t first, std::uint32_t count) {
            const QsdPixelRows maskRows(
                display, mask, {rect.x, static_cast<std::int32_t>(rect.y + std::int64_t{first}), rect.width, count});
            for (std::uint32_t r = 0; r < count; ++r) {
                use(colors.read(rows, r), maskRows, r);
            }
        });
    };
    const std::size_t components = colors.components();
    QsdPSImageFormat format(colors.components());
    forEachRow([&](const unsigned char* samples, const QsdPixelRows& maskRows, std::uint32_t r) {
        QsdForEachMaskRun(maskRows, r, rect.width, [&](unsigned long first, unsigned long length, bool) {
            format.look(samples + first * components, length);
        });
    });
    format.decide(rect.width, rect.height, true);
    std::vector<unsigned char> packed(format.rowBytes(rect.width));
    std::vector<unsigned char> bits(QsdPSBitRowBytes(rect.width));
    const std::vector<unsigned char> hidden = hiddenRow(format, rect.width, components);
    std::vector<unsigned char> shown;
    writeSamples(_document->pageTexts, [&](std::ostream& target, QsdPostScriptEncoder& encoder) {
        {
            QsdPSWriter out(&target);
            out << "G";
            writeColorSpace(out, format);
            out << "setcolorspace " << rect.width << QsdSpc() << rect.height << QsdSpc() << format.bits();
            writePlace(out, at);
            constexpr int Ranges[] = {1, 3, 0}; // of samples between 0 and 1
            out << Ranges[format.kind()];
            writeDataSource(out, encoder);
            out << " Ik" << EOL;
        }
        encoder.startData();
        forEachRow([&](const unsigned char* samples, const QsdPixelRows& maskRows, std::uint32_t r) {
            maskRows.copyRow(r, bits.size(), bits.data());
            encoder.putBytes(bits.size(), bits.data());
            shown = hidden;
            QsdForEachMaskRun(maskRows, r, rect.width, [&](unsigned long first, unsigned long length, bool) {
                std::memcpy(shown.data() + first * components, samples + first * components, length * components);
            });
            format.pack(shown.data(), rect.width, packed.data());
            encoder.putBytes(packed.size(), packed.data());
        });
        encoder.endData();
        QsdPSWriter(&target) << "g" << EOL;
    });
}

// Without masked images each run of pixels inside the mask is an image of its own.
void QsdPSPrintDevice::writeRuns(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                                 const QsdRect& rect, const QsdPoint& at) const
{
    if (imageEncoder() == nullptr) {
        return;
    }
    const QsdDisplay& display = *palette->display();
    ColorRows colors(display, rect.width, inColor());
    forEachBand(display, source, rect, [&](const QsdPixelRows& rows, std::uint32_t first, std::uint32_t count) {
        const QsdPixelRows maskRows(
            display, mask, {rect.x, static_cast<std::int32_t>(rect.y + std::int64_t{first}), rect.width, count});
        for (std::uint32_t r = 0; r < count; ++r) {
            const auto y = static_cast<std::int32_t>(std::int64_t{at.y} + first + r);
            const unsigned char* const samples = colors.read(rows, r);
            QsdForEachMaskRun(maskRows, r, rect.width, [&](unsigned long begin, unsigned long length, bool) {
                const std::size_t size = length * colors.components();
                writeSamples(_document->pageTexts, [&](std::ostream& target, QsdPostScriptEncoder& encoder) {
                    {
                        QsdPSWriter out(&target);
                        writeSourceString(out, encoder, size);
                        out << length << " 1 8";
                        writePlace(out, {static_cast<std::int32_t>(static_cast<std::int64_t>(begin) + at.x), y});
                        writeDataSource(out, encoder);
                        out << (inColor() ? " I" : " Ig") << EOL;
                    }
                    encoder.startData();
                    encoder.putBytes(size, samples + begin * colors.components());
                    encoder.endData();
                });
            });
        }
    });
}
