// Base-85 image data.
#pragma once

#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <cstddef>

/// Writes five characters for four bytes ("z" for four zero bytes) and the end mark "~>".
class QsdASCII85Encoder : public QsdPostScriptEncoder {
public:
    /// Writes to `stream` (not owned, may be null).
    explicit QsdASCII85Encoder(std::ostream* stream);

    void putByte(unsigned char byte) override;
    void putBytes(unsigned long count, const unsigned char* bytes) override;
    void startData() override;
    void endData() override;
    void setStream(std::ostream* stream) override;
    [[nodiscard]] QsString getDecoderString() const override;

private:
    struct Cursor;

    void putGroups(std::size_t count, const unsigned char* bytes);
    void flush();

    static constexpr std::size_t LineLength = 78;
    static constexpr std::size_t GroupLength = 5;
    /// What one group may take at most: itself, a blank before and a line end behind it; and, after the last one, the
    /// end mark.
    static constexpr std::size_t GroupRoom = 2 * GroupLength;
    static constexpr std::size_t BufferSize = 4096;

    std::ostream* _stream;
    std::size_t _pending = 0; ///< bytes of the group under way
    unsigned char _group[4] = {};
    std::size_t _column = 0; ///< characters on the current line
    std::size_t _used = 0;
    char _buffer[BufferSize];
};
