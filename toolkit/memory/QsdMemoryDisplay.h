// The embedded display.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdDisplay.h"

#include <cstdint>

/// A display without a window system, whose drawables are bitmaps in memory.
class QSD_API QsdMemoryDisplay : public QsdDisplay {
public:
    /// A display of `screenDepth` bits a pixel: 1 (white and black), 2 to 7 (greys), 8 (a cube of colours and a ramp of
    /// greys) or above (direct colour). 0 is taken for 1.
    explicit QsdMemoryDisplay(unsigned short screenDepth = 24);

    /// Replaces the colour table, of which the first 256 entries count; one without any changes nothing. The pixels of
    /// bitmaps keep their indices.
    void setColors(QsdColorTable colors);

    void colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                    unsigned short* blues) const override;
    [[nodiscard]] unsigned short colorCount() const override;
    [[nodiscard]] unsigned short screenDepth() const override { return _screenDepth; }
    /// Reads bitmaps; other drawables have no pixels here.
    [[nodiscard]] unsigned char* getBitmapData(const QsdSystemPort* port, unsigned long& size,
                                               const QsdRect& rect) const override;

private:
    unsigned short _screenDepth;
    QsdColorTable _colors;
};
