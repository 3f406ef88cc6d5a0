// Bitmaps at their natural size, read back from their display. Pixels are read before the first word of an image is
// written, as is everything else that takes memory, so that a document stays in order when there is none.
#include "ps/QsdPSDevice.h"

#include "ps/classic/QsdPSBackground_p.h"
#include "ps/classic/QsdPSOperation_p.h"
#include "ps/images/QsdPSImageSource_p.h"
#include "ps/images/QsdPSPixels_p.h"
#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/port/QsdBitmap.h"

#include <cstdint>

namespace {

/// The rest of an image header: the size and the matrix of an image that fills the unit square, first row at the top.
void writeUnitMatrix(QsdPSWriter& out, const QsdRect& rect)
{
    out << "[" << rect.width << " 0 0 -" << rect.height << " 0 " << rect.height << "]";
}

} // namespace

void QsdPSDevice::drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                             const QsdPoint& at) const
{
    if (source == nullptr) {
        return;
    }
    if (!beginOperation(palette, QsdPSUse::Fill, [&](auto& shape) {
            shape.box({at.x, at.y, rect.width, rect.height});
        })) {
        return;
    }
    const QsdPixelRows pixels(*palette->display(), source, rect);
    const QsdPSFilteredSource filtered(_encoder.get());
    const std::int64_t bottom = std::int64_t{at.y} + rect.height;
    if (source->depth() == 1) {
        const QsdPSBackground background(palette);
        QsdPSWriter(_stream) << "G n " << rect.width << QsdSpc() << rect.height << QsdSpc() << at << " rect G ";
        setForeground(background.get());
        QsdPSWriter(_stream) << " fill g" << EOL << at.x << QsdSpc() << bottom << " t ";
        writeBitmapMask(palette, pixels, rect, filtered, "       imagemask ");
        return;
    }
    {
        QsdPSWriter out(_stream);
        if (_level == 1) {
            out << "/st " << imageStringSize(rect.width) << " string def" << EOL;
        }
        out << "n G " << at.x << QsdSpc() << bottom << " t " << rect.width << " -" << rect.height << " scale" << EOL;
        out << rect.width << QsdSpc() << rect.height << " 8";
        writeUnitMatrix(out, rect);
        out << " ";
        if (_level == 2) {
            filtered.write(out);
            out << " " << imageOperatorString() << EOL;
        } else {
            out << " {currentfile st readhexstring pop} " << imageOperatorString() << EOL;
        }
    }
    writeImage(palette->display(), palette->display()->screenDepth(), rect.width, rect.height, pixels.data(),
               pixels.size());
    QsdPSWriter(_stream) << "g" << EOL;
}

// Paints the set bits of a one-bit source in the foreground and ends the save level around it; `level2Operator` differs
// between the forms in its blanks alone.
void QsdPSDevice::writeBitmapMask(const QsdPalette* palette, const QsdPixelRows& pixels, const QsdRect& rect,
                                  const QsdPSFilteredSource& source, const char* level2Operator) const
{
    {
        QsdPSWriter out(_stream);
        if (_level == 1) {
            out << "/st " << QsdPSBitRowBytes(rect.width) << " string def" << EOL;
        }
        out << rect.width << " -" << rect.height << " scale " << rect.width << QsdSpc() << rect.height << " true";
        writeUnitMatrix(out, rect);
        if (_level == 2) {
            source.write(out);
            out << level2Operator << EOL;
        } else {
            out << " {currentfile st readhexstring pop} imagemask" << EOL;
        }
    }
    writeImage(palette->display(), 1, rect.width, rect.height, pixels.data(), pixels.size());
    QsdPSWriter(_stream) << "g" << EOL;
}

void QsdPSDevice::drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                                        const QsdPoint& at) const
{
    if (!beginOperation(palette, QsdPSUse::Fill, [&](auto& shape) {
            shape.box({at.x, at.y, rect.width, rect.height});
        })) {
        return;
    }
    if (source != nullptr && source->depth() == 1) {
        const QsdPixelRows pixels(*palette->display(), source, rect);
        const QsdPSFilteredSource filtered(_encoder.get());
        QsdPSWriter(_stream) << "n " << at << " M "
                             << "0 " << rect.height << " rL " << rect.width << " 0 rL "
                             << "0 " << static_cast<std::int32_t>(-rect.height) << " rL" << EOL << "G " << at.x
                             << QsdSpc() << std::int64_t{at.y} + rect.height << " t ";
        writeBitmapMask(palette, pixels, rect, filtered, " imagemask");
        return;
    }
    const QsdSystemPort* const mask = QsdPSMaskOf(source);
    if (mask == nullptr) {
        return;
    }
    const QsdDisplay& display = *palette->display();
    const QsdPixelRows pixels(display, source, rect);
    const QsdPixelRows maskPixels(display, mask, rect);
    for (std::uint32_t r = 0; r < rect.height; ++r) {
        // A strip is painted upwards from its origin, so it starts on the far side of its row.
        const std::int64_t y = std::int64_t{at.y} + r + 1;
        QsdForEachMaskRun(maskPixels, r, rect.width, [&](unsigned long first, unsigned long length, bool) {
            const QsdPixelRun run = pixels.run(r, first, length);
            {
                QsdPSWriter out(_stream);
                out << length << QsdSpc() << static_cast<std::int64_t>(first) + at.x << QsdSpc() << y << QsdSpc();
                if (_level == 1) {
                    out << imageStringSize(length);
                }
                out << " strip " << imageOperatorString() << EOL;
            }
            writeImage(&display, display.screenDepth(), length, 1, run.data, run.size);
            QsdPSWriter(_stream) << "g" << EOL;
        });
    }
}

void QsdPSDevice::drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& dest,
                             const QsdRegion* clip, QsdPosition position, bool transparent) const
{
    QsdPort::drawBitmap(palette, bitmap, dest, clip, position, transparent);
}

void QsdPSDevice::drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& from,
                             const QsdRect& dest, const QsdRegion* clip, QsdPosition position, bool transparent) const
{
    QsdPort::drawBitmap(palette, bitmap, from, dest, clip, position, transparent);
}
