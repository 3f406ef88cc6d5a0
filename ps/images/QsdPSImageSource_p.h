// Where an image operator gets its samples from, and what it is given besides.
#pragma once

#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/port/QsdBitmap.h"

/// The data source of level 2: the document itself, read through the encoder's decoding filter. Made before the first
/// word of an image is written, so that there is memory for the whole of it.
class QsdPSFilteredSource {
public:
    explicit QsdPSFilteredSource(const QsdPostScriptEncoder* encoder)
        : _decoder(QsdPostScriptEncoder::GetFullDecoderString(encoder))
    {
    }

    void write(QsdPSWriter& out) const { out << " currentfile " << _decoder.view(); }

private:
    QsString _decoder;
};

/// Bytes of a row of one-bit samples.
constexpr unsigned long QsdPSBitRowBytes(unsigned long width)
{
    return (width + 7) >> 3;
}

/// The mask of a drawable: null for null, for a drawable that is not a bitmap, and for a bitmap without one.
inline const QsdSystemPort* QsdPSMaskOf(const QsdSystemPort* source)
{
    return source != nullptr && source->isABitmap() ? static_cast<const QsdBitmap*>(source)->mask() : nullptr;
}
