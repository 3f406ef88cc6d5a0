// Whole bitmaps under a matrix. The interpreter scales and turns them; the samples are those of the bitmap itself.
#include "ps/QsdPSDevice.h"

#include "ps/classic/QsdPSBackground_p.h"
#include "ps/classic/QsdPSClipRestorer_p.h"
#include "ps/classic/QsdPSOperation_p.h"
#include "ps/images/QsdPSImageSource_p.h"
#include "ps/images/QsdPSPixels_p.h"
#include "ps/text/QsdPSClassicNumbers_p.h"
#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/port/QsdBitmap.h"

#include <optional>

namespace {

QsdRect areaOf(const QsdBitmap& bitmap)
{
    return {0, 0, static_cast<std::uint32_t>(bitmap.width()), static_cast<std::uint32_t>(bitmap.height())};
}

/// Writes the factors of the transformer with the point where the bitmap goes as the translation.
void writeMatrix(QsdPSWriter& out, const QsdTransformer& t, const QsdPoint& at)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    out << "[" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << QsdSpc() << at << "]concat";
}

/// Writes the scale to the bitmap's size, turned upright again.
void writeScale(QsdPSWriter& out, const QsdRect& area)
{
    out << area.width << " -" << area.height << " scale 0 -1 t ";
}

/// Writes the operands of an image of the bitmap's size in the unit square; `samples` is what stands before the matrix.
void writeUnitImage(QsdPSWriter& out, const QsdRect& area, const char* samples)
{
    out << area.width << QsdSpc() << area.height << samples << area.width << " 0 0 -" << area.height << " 0 "
        << area.height << "]";
}

} // namespace

void QsdPSDevice::stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                const QsdTransformer& t, const QsdRect* clip) const
{
    if (bitmap == nullptr) {
        return;
    }
    if (!beginOperation(palette, QsdPSUse::Fill, [&](auto& shape) { shape.mapped(areaOf(*bitmap), t, at); })) {
        return;
    }
    const QsdRect area = areaOf(*bitmap);
    const QsdDisplay& display = *palette->display();
    const bool oneBit = bitmap->depth() == 1;
    const QsdPixelRows pixels(display, bitmap, area);
    const QsdPSFilteredSource filtered(_encoder.get());
    std::optional<QsdPSBackground> background;
    if (oneBit) {
        background.emplace(palette);
    }
    const QsdPSClipRestorer restorer(*this, _clipCache);
    restrictClip(palette, clip);

    const QsdPSClassicNumbers classicNumbers;
    if (oneBit) {
        {
            QsdPSWriter out(_stream);
            out << "G";
            writeMatrix(out, t, at);
            out << EOL << "n " << area.width << QsdSpc() << area.height << " 0 0 rect G ";
        }
        setForeground(background->get());
        QsdPSWriter out(_stream);
        out << " fill g" << EOL;
        if (_level == 1) {
            out << "/st " << QsdPSBitRowBytes(area.width) << " string def" << EOL;
        }
        writeScale(out, area);
        writeUnitImage(out, area, " true[");
        if (_level == 2) {
            filtered.write(out);
            out << " imagemask" << EOL;
        } else {
            out << "{currentfile st readhexstring pop}imagemask" << EOL;
        }
    } else {
        QsdPSWriter out(_stream);
        if (_level == 1) {
            out << "/st " << imageStringSize(area.width) << " string def" << EOL;
        }
        out << "G";
        writeMatrix(out, t, at);
        out << EOL;
        writeScale(out, area);
        writeUnitImage(out, area, " 8[");
        out << EOL;
        if (_level == 2) {
            filtered.write(out);
            out << " " << imageOperatorString() << EOL;
        } else {
            out << "{currentfile st readhexstring pop}" << imageOperatorString() << EOL;
        }
    }
    writeImage(&display, oneBit ? 1UL : display.screenDepth(), area.width, area.height, pixels.data(), pixels.size());
    QsdPSWriter(_stream) << "g" << EOL;
}

void QsdPSDevice::stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                           const QsdTransformer& t, const QsdRect* clip) const
{
    if (bitmap == nullptr) {
        return;
    }
    const bool oneBit = bitmap->depth() == 1;
    const QsdSystemPort* const mask = oneBit ? nullptr : QsdPSMaskOf(bitmap);
    if (!oneBit && mask == nullptr) {
        // Without opaque pixels the state stays; the clip is checked all the same.
        checkClip(palette->clipRegion());
        return;
    }
    if (!beginOperation(palette, QsdPSUse::Fill, [&](auto& shape) { shape.mapped(areaOf(*bitmap), t, at); })) {
        return;
    }
    const QsdPSClipRestorer restorer(*this, _clipCache);
    restrictClip(palette, clip);
    if (oneBit) {
        stretchMask(palette, at, bitmap, t);
    } else {
        stretchStrips(palette, at, bitmap, mask, t);
    }
}

void QsdPSDevice::stretchMask(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                              const QsdTransformer& t) const
{
    const QsdRect area = areaOf(*bitmap);
    const QsdPixelRows pixels(*palette->display(), bitmap, area);
    const QsdPSFilteredSource filtered(_encoder.get());
    const QsdPSClassicNumbers classicNumbers;
    {
        QsdPSWriter out(_stream);
        out << "G";
        writeMatrix(out, t, at);
        out << EOL;
        writeScale(out, area);
        if (_level == 1) {
            out << "/st " << QsdPSBitRowBytes(area.width) << " string def" << EOL;
        }
        writeUnitImage(out, area, " true[");
        if (_level == 2) {
            filtered.write(out);
            out << " imagemask " << EOL;
        } else {
            out << " {currentfile st readhexstring pop}imagemask" << EOL;
        }
    }
    writeImage(palette->display(), 1, area.width, area.height, pixels.data(), pixels.size());
    QsdPSWriter(_stream) << "g" << EOL;
}

// Each run of opaque pixels is an image of one row, placed in the bitmap's own space under the matrix.
void QsdPSDevice::stretchStrips(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                const QsdSystemPort* mask, const QsdTransformer& t) const
{
    const QsdRect area = areaOf(*bitmap);
    if (area.height == 0) {
        return;
    }
    const QsdDisplay& display = *palette->display();
    const QsdPixelRows pixels(display, bitmap, area);
    const QsdPixelRows maskPixels(display, mask, area);
    const QsdPSFilteredSource filtered(_encoder.get());
    for (std::uint32_t r = 0; r < area.height; ++r) {
        QsdForEachMaskRun(maskPixels, r, area.width, [&](unsigned long first, unsigned long length, bool atRowEnd) {
            const QsdPixelRun run = pixels.run(r, first, length);
            {
                QsdPSWriter out(_stream);
                if (_level == 1) {
                    out << "/st " << imageStringSize(length) << " string def" << EOL;
                }
                // The last run of a row is written a blank shorter than the others.
                out << (atRowEnd ? "G" : "G ");
                writeMatrix(out, t, at);
                out << " " << first << QsdSpc() << r + 1 << " t " << length << " -1 scale 0 -1 t " << length << QsdSpc()
                    << " 1 8 [" << length << " 0 0 -1 0 1]" << EOL;
                if (_level == 2) {
                    filtered.write(out);
                    out << " ";
                } else {
                    out << " {currentfile st readhexstring pop} ";
                }
                out << imageOperatorString() << EOL;
            }
            writeImage(&display, display.screenDepth(), length, 1, run.data, run.size);
            QsdPSWriter(_stream) << "g" << EOL;
        });
    }
    QsdPSWriter(_stream) << "/st null def" << EOL;
}

void QsdPSDevice::stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        stretchBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest), clip);
    }
}

void QsdPSDevice::stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                           const QsdRect* clip) const
{
    if (bitmap != nullptr) {
        stretchTransparentBitmap(palette, QsdPoint{dest.x, dest.y}, bitmap, QsdTransformer(areaOf(*bitmap), dest),
                                 clip);
    }
}

void QsdPSDevice::stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                                    const QsdRect& dest, bool) const
{
    if (source == nullptr) {
        return;
    }
    QsdRefuseMostlyOutside(from, source->width(), source->height(), false);
    QsdRGBBitmapData pixels(from.width, from.height);
    pixels.copy(*source, from, QsdPoint{});
    const QsdBitmap bitmap(display(), pixels);
    stretchBitmap(palette, QsdPoint{dest.x, dest.y}, &bitmap,
                  QsdTransformer(QsdRect{0, 0, from.width, from.height}, dest), nullptr);
}
