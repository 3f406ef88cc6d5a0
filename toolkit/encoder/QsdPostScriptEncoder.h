// Turns the bytes of image data into the characters of a PostScript document.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"

#include <iosfwd>

/// An encoder of image data. One image is one bracket of startData, any number of bytes, and endData.
/// Lines stay under 80 columns, and none begins with "%%" or "%!", which document managers would take for a comment.
class QSD_API QsdPostScriptEncoder {
public:
    virtual ~QsdPostScriptEncoder() = default;

    /// Encodes and writes one byte.
    virtual void putByte(unsigned char byte) = 0;
    /// Encodes and writes `count` bytes; `bytes` may be null when `count` is 0.
    virtual void putBytes(unsigned long count, const unsigned char* bytes) = 0;
    /// Begins one block of data.
    virtual void startData() = 0;
    /// Ends the block: writes what is still held back, the end mark if the encoding has one, and a line end.
    virtual void endData() = 0;
    /// Sets where the characters go (not owned); null: nowhere.
    virtual void setStream(std::ostream* stream) = 0;
    /// What makes a decoding filter of the file on the stack, e.g. "/ASCII85Decode filter"; empty when the data is read
    /// without a filter.
    [[nodiscard]] virtual QsString getDecoderString() const = 0;

    /// The PostScript text that, written after "currentfile", leaves a data source that decodes the output of
    /// `encoder`; empty for null.
    [[nodiscard]] static QsString GetFullDecoderString(const QsdPostScriptEncoder* encoder);

protected:
    QsdPostScriptEncoder() = default;
    QsdPostScriptEncoder(const QsdPostScriptEncoder&) = delete;
    QsdPostScriptEncoder& operator=(const QsdPostScriptEncoder&) = delete;
};
