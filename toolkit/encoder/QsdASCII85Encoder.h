// Base-85 image data.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <cstddef>

/// Writes five characters for four bytes ("z" for four zero bytes) and the end mark "~>".
class QSD_API QsdASCII85Encoder : public QsdPostScriptEncoder {
public:
    /// Writes to `stream` (not owned, may be null).
    explicit QsdASCII85Encoder(std::ostream* stream);

    void putByte(unsigned char byte) override;
    void putBytes(unsigned long count, const unsigned char* bytes) override;
    void startData() override;
    void endData() override;
    void setStream(std::ostream* stream) override;
    [[nodiscard]] QsString getDecoderString() const override;

    /// Ends the current line, if anything stands on it; the bytes put last, three at most, that do not make a group yet
    /// come on the next.
    void breakLine();

private:
    struct Cursor;

    void putBlock(std::size_t count, const unsigned char* bytes);
    void putGroups(std::size_t count, const unsigned char* bytes);
    void reserveLine();
    void flush();

    static constexpr std::size_t LineLength = 78;
    static constexpr std::size_t GroupLength = 5;
    /// Groups of a line that has no short ones.
    static constexpr std::size_t LineGroups = LineLength / GroupLength;
    /// What a line may take at most: itself, a blank before it, its end, the end mark, and what is written behind a
    /// group and does not count.
    static constexpr std::size_t LineRoom = LineLength + 2 * sizeof(long long);
    /// Bytes of a few lines: single bytes are collected until there are enough to encode line by line.
    static constexpr std::size_t HeldSize = 4 * LineGroups * 4;
    static constexpr std::size_t BufferSize = 16384; ///< large writes cost the system less a byte

    std::ostream* _stream;
    std::size_t _heldCount = 0;
    unsigned char _held[HeldSize];
    std::size_t _column = 0; ///< characters on the current line
    std::size_t _used = 0;
    char _buffer[BufferSize];
};
