// What encoders that compress have in common.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"

#include <cstddef>
#include <string_view>

/// An encoder whose bytes are compressed and written in base 85.
///
/// An image operator takes as many bytes from a filter as it needs and may leave unread what the compression ends with,
/// which the interpreter would then take for the program. So the decoder text of these encoders reads the document line
/// by line, and what a derived class writes in finish() brings the last byte of the data and the end of the data on one
/// line: whoever got that byte has read the whole line.
class QSD_API QsdCompressingEncoder : public QsdPostScriptEncoder {
public:
    void putByte(unsigned char byte) override;
    void putBytes(unsigned long count, const unsigned char* bytes) override;
    void startData() override;
    void endData() override;
    void setStream(std::ostream* stream) override;
    /// The text that makes a file of the file on the stack.
    [[nodiscard]] QsString getDecoderString() const override;

protected:
    /// Writes to `stream` (not owned, may be null) what the filter called `filter` ("LZWDecode", say) decodes; the name
    /// must outlive the encoder.
    QsdCompressingEncoder(std::ostream* stream, std::string_view filter);

    /// Where the compressed bytes go. A line of it holds at least 60 bytes.
    [[nodiscard]] QsdASCII85Encoder& text() { return _text; }
    /// Makes the stream fail.
    void fail();

private:
    /// Begins a block of data.
    virtual void begin() = 0;
    /// Compresses `count` bytes, above 0.
    virtual void compress(std::size_t count, const unsigned char* bytes) = 0;
    /// Writes what is held back and the end of the data. The line must be broken before the last byte of the data, and
    /// the rest must fit on a line.
    virtual void finish() = 0;
    void compressHeld();

    static constexpr std::size_t HeldSize = 1024;

    std::ostream* _stream;
    std::string_view _filter;
    QsdASCII85Encoder _text;
    std::size_t _heldCount = 0;
    unsigned char _held[HeldSize]; ///< bytes that come one by one, until they are worth a call
};
