// Pixels read back from a drawable, and the opaque runs of a mask.
#pragma once

#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/port/QsdSystemPort.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// Throws std::bad_alloc when more than 256 MiB of the pixels of `rect` lie outside a source of that size: they are
/// nothing but zeros, which no memory should be spent on.
inline void QsdRefuseMostlyOutside(const QsdRect& rect, unsigned long width, unsigned long height, bool oneBit)
{
    constexpr std::uint64_t MostBytes = std::uint64_t{1} << 28;
    const auto side = [](unsigned long length) {
        return static_cast<std::uint32_t>(std::min<unsigned long>(length, UINT32_MAX));
    };
    const QsdRect inside = rect.intersected({0, 0, side(width), side(height)});
    const std::uint64_t outside = std::uint64_t{rect.width} * rect.height - std::uint64_t{inside.width} * inside.height;
    if (outside > (oneBit ? MostBytes * 8 : MostBytes / 4)) {
        throw std::bad_alloc();
    }
}

/// Neighbouring colour pixels of one row.
struct QsdPixelRun {
    const unsigned char* data;
    unsigned long size;               ///< bytes that an image of one row may take for its stride
    std::vector<unsigned char> own{}; ///< holds the pixels when the source is short of them
};

/// The pixels of a rectangle of a drawable in the layout of its display, row by row. A drawable that has none leaves
/// rows without a byte.
class QsdPixelRows {
public:
    /// Throws std::bad_alloc when there is no memory for the pixels, and for a rectangle of which more than 256 MiB lie
    /// outside the drawable: those are nothing but zeros.
    QsdPixelRows(const QsdDisplay& display, const QsdSystemPort* port, const QsdRect& rect)
        : _data((check(*port, rect), display.getBitmapData(port, _size, rect))),
          _rowBytes(_data == nullptr || rect.height == 0 ? 0 : _size / rect.height),
          _pixelBytes(display.screenDepth() > 8 ? 4 : 1)
    {
    }

    /// Throws std::bad_alloc for a rectangle of which more than 256 MiB lie outside the drawable.
    static void check(const QsdSystemPort& port, const QsdRect& rect)
    {
        QsdRefuseMostlyOutside(rect, port.width(), port.height(), port.depth() == 1);
    }

    [[nodiscard]] const unsigned char* data() const { return _data.get(); }
    [[nodiscard]] unsigned long size() const { return _size; }
    /// Copies the first `size` bytes of a row; those that the row does not have become 0.
    void copyRow(unsigned long r, unsigned long size, unsigned char* bytes) const
    {
        const unsigned long there = std::min(size, _rowBytes);
        if (there != 0) {
            std::memcpy(bytes, _data.get() + r * _rowBytes, there);
        }
        std::memset(bytes + there, 0, size - there);
    }
    /// The first column from `x` on, below `width`, whose bit in a row of one-bit pixels is as `set` says; `width` when
    /// there is none. Bits that the row does not have are clear.
    [[nodiscard]] unsigned long findBit(unsigned long r, unsigned long x, unsigned long width, bool set) const
    {
        const unsigned char* const row = _data.get() + r * _rowBytes;
        const unsigned flip = set ? 0 : 0xFF;
        unsigned looked = 0xFFU >> (x % 8);
        for (unsigned long i = x / 8; i * 8 < width; ++i) {
            const unsigned byte = ((i < _rowBytes ? row[i] : 0U) ^ flip) & looked;
            if (byte != 0) {
                const auto column = static_cast<unsigned>(std::countl_zero(static_cast<unsigned char>(byte)));
                return std::min(i * 8 + column, width);
            }
            looked = 0xFF;
        }
        return width;
    }
    /// `length` colour pixels of a row from column `x` on; those that the row does not have are 0. The size is that of
    /// all rows, or of the run alone where zeros were filled in.
    [[nodiscard]] QsdPixelRun run(unsigned long r, unsigned long x, unsigned long length) const
    {
        const unsigned long first = x * _pixelBytes;
        const unsigned long bytes = length * _pixelBytes;
        const unsigned char* const row = _data.get() + r * _rowBytes;
        if (first + bytes <= _rowBytes) {
            return {row + first, _size};
        }
        std::vector<unsigned char> padded(bytes);
        if (first < _rowBytes) {
            std::copy(row + first, row + _rowBytes, padded.begin());
        }
        const unsigned char* const data = padded.data();
        return {data, bytes, std::move(padded)};
    }

private:
    unsigned long _size = 0;
    std::unique_ptr<unsigned char, QsFreeDeleter> _data;
    unsigned long _rowBytes;
    unsigned long _pixelBytes;
};

/// Calls emit(first, length, atRowEnd) for each run of set bits among the first `width` of row `r` of a mask.
template <class Emit>
void QsdForEachMaskRun(const QsdPixelRows& mask, unsigned long r, unsigned long width, Emit emit)
{
    for (unsigned long first = mask.findBit(r, 0, width, true); first < width;) {
        const unsigned long end = mask.findBit(r, first, width, false);
        emit(first, end - first, end == width);
        first = mask.findBit(r, end, width, true);
    }
}
