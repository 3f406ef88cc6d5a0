// Fills of the current path: plain, with a one-bit pattern, with a colour pattern.
//
// A pattern fill puts the tile's samples into the string p, opens a save level with a procedure that paints one tile,
// and lets the prolog's fillpat lay tiles over the bounding box of the path, clipped to it. At level 1 the samples of a
// one-bit tile stand inside the procedure itself.
#include "ps/QsdPSDevice.h"

#include "ps/classic/QsdPSBackground_p.h"
#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/base/QsMalloc.h"

#include <memory>
#include <new>

namespace {

using Buffer = std::unique_ptr<unsigned char, QsFreeDeleter>;

bool isEvenOdd(const QsdPalette* palette)
{
    return palette->fillRule() == QsdEvenOddRule;
}

/// Lays the tile of the given size over the path.
template <class Pattern>
void writeTiling(QsdPSWriter& out, const QsdPalette* palette, const Pattern& pattern)
{
    out << pattern.width() << QsdSpc() << pattern.height() << (isEvenOdd(palette) ? " true" : " false") << " fillpat g"
        << EOL;
}

} // namespace

void QsdPSDevice::fillWithPattern(const QsdPalette* palette) const
{
    checkClip(palette->clipRegion());
    try {
        fillPath(palette);
    } catch (const std::bad_alloc&) {
        // The path that waits to be filled stands in a line of its own, which what follows drops.
        QsdPSWriter(_stream) << EOL;
        throw;
    }
}

void QsdPSDevice::fillPath(const QsdPalette* palette) const
{
    switch (palette->fillStyle()) {
    case QsdFillPattern:
        if (palette->pattern() == palette->display()->solidPattern()) {
            QsdPSWriter(_stream) << QsdSpc() << (isEvenOdd(palette) ? "eo" : "") << "fill" << EOL;
            return;
        }
        writeMaskTile(palette, true);
        break;
    case QsdFillMaskPattern:
        writeMaskTile(palette, false);
        break;
    case QsdFillColorPattern:
        writeColorPattern(palette);
        return;
    default:
        break;
    }
    QsdPSWriter out(_stream);
    writeTiling(out, palette, *palette->pattern());
}

// The background goes on inside a save level, which keeps the path and the foreground for the tiles.
void QsdPSDevice::writeOpaqueStart(const QsdPalette* palette) const
{
    const QsdPSBackground background(palette);
    QsdPSWriter(_stream) << " G ";
    setForeground(background.get());
    QsdPSWriter(_stream) << (isEvenOdd(palette) ? "eo" : "");
}

// At level 2 the same words follow the background fill of an opaque pattern and begin a mask pattern, which has no save
// level to end there; documents have always been so.
void QsdPSDevice::writeMaskTile(const QsdPalette* palette, bool opaque) const
{
    const QsdPattern& pattern = *palette->pattern();
    unsigned long size = 0;
    const Buffer data(pattern.getBitmapData(size));
    if (opaque) {
        writeOpaqueStart(palette);
    }
    const auto samples = [&] {
        writeImage(palette->display(), 1, pattern.width(), pattern.height(), data.get(), size);
    };
    if (_level == 1) {
        QsdPSWriter(_stream) << (opaque ? "fill g G 1 -1 scale{" : " G 1 -1 scale{") << pattern.width() << QsdSpc()
                             << pattern.height() << " true"
                             << "[-1 0 0 -1 0 1]<" << EOL;
        samples();
        QsdPSWriter(_stream) << ">imagemask}" << EOL;
    } else {
        QsdPSWriter(_stream) << "fill g" << EOL << "1 " << size << " readpattern" << EOL;
        samples();
        QsdPSWriter(_stream) << "G 1 -1 scale { " << pattern.width() << QsdSpc() << pattern.height() << " true "
                             << "[-1 0 0 -1 0 1] { p } imagemask }" << EOL;
    }
}

void QsdPSDevice::writeColorPattern(const QsdPalette* palette) const
{
    const QsdColorPattern* const pattern = palette->colorPattern();
    if (pattern == nullptr) {
        // Nothing to tile with; the path goes without being painted.
        QsdPSWriter(_stream) << EOL;
        return;
    }
    const unsigned long screenDepth = palette->display()->screenDepth();
    unsigned long size = 0;
    const Buffer data(pattern->getBitmapData(size));
    const bool inColor = _colorModel == QsdPSRGB && pattern->depth() != 1;
    const auto width = pattern->width();
    const auto height = pattern->height();
    {
        QsdPSWriter out(_stream);
        if (inColor) {
            out << EOL << width << QsdSpc() << height << " 3 mul readpattern" << EOL;
        } else {
            out << width << QsdSpc() << height << " readpattern" << EOL;
        }
    }
    writeImage(palette->display(), screenDepth, width, height, data.get(), size);
    QsdPSWriter out(_stream);
    out << EOL;
    if (inColor) {
        out << "G  1 -1 scale {" << width << QsdSpc() << height << QsdSpc() << 8
            << " [1 0 0 -1 0 0]{p}false 3 colorimage}" << EOL << QsdSpc();
    } else {
        out << "G  1 -1 scale{" << width << QsdSpc() << height << QsdSpc() << screenDepth << "[-1 0 0 -1 0 1]{p}image}"
            << EOL;
    }
    writeTiling(out, palette, *pattern);
}
