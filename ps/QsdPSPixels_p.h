// Pixels read back from a drawable, and the opaque runs of a mask.
#pragma once

#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdDisplay.h"

#include <memory>

/// The pixels of a rectangle of a drawable in the layout of its display, row by row.
class QsdPixelRows {
public:
    QsdPixelRows(const QsdDisplay& display, const QsdSystemPort* port, const QsdRect& rect)
        : _data(display.getBitmapData(port, _size, rect)), _rowBytes(rect.height == 0 ? 0 : _size / rect.height),
          _pixelBytes(display.screenDepth() > 8 ? 4 : 1)
    {
    }

    [[nodiscard]] const unsigned char* data() const { return _data.get(); }
    [[nodiscard]] unsigned long size() const { return _size; }
    [[nodiscard]] const unsigned char* row(unsigned long r) const { return _data.get() + r * _rowBytes; }
    /// The address of a colour pixel.
    [[nodiscard]] const unsigned char* pixel(unsigned long r, unsigned long x) const
    {
        return row(r) + x * _pixelBytes;
    }

private:
    unsigned long _size = 0;
    std::unique_ptr<unsigned char, QsFreeDeleter> _data;
    unsigned long _rowBytes;
    unsigned long _pixelBytes;
};

/// Calls emit(first, length, atRowEnd) for each run of set bits among the first `width` of a row of mask bits.
template <class Emit>
void QsdForEachMaskRun(const unsigned char* mask, unsigned long width, Emit emit)
{
    bool inside = false;
    unsigned long first = 0;
    for (unsigned long i = 0; i < width; ++i) {
        const bool set = (mask[i / 8] & (0x80U >> (i % 8))) != 0;
        if (set == inside) {
            continue;
        }
        if (inside) {
            emit(first, i - first, false);
        }
        inside = set;
        first = i;
    }
    if (inside) {
        emit(first, width - first, true);
    }
}
