// Hexadecimal image data.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <cstddef>

/// Writes two hexadecimal digits a byte.
class QSD_API QsdASCIIHexEncoder : public QsdPostScriptEncoder {
public:
    /// Writes to `stream` (not owned, may be null). With `endMark` the data ends with ">", as the ASCIIHexDecode
    /// filter wants it; without, exactly the digits of the bytes are written, as readhexstring wants them.
    QsdASCIIHexEncoder(std::ostream* stream, bool endMark);

    void putByte(unsigned char byte) override;
    void putBytes(unsigned long count, const unsigned char* bytes) override;
    void startData() override;
    void endData() override;
    void setStream(std::ostream* stream) override;
    [[nodiscard]] QsString getDecoderString() const override;

private:
    void endLine();
    void flush();

    static constexpr std::size_t LineLength = 78;
    static constexpr std::size_t BufferSize = 4096;

    std::ostream* _stream;
    bool _endMark;
    std::size_t _column = 0; ///< characters on the current line
    std::size_t _used = 0;
    char _buffer[BufferSize];
};
