// Flate compression of image data.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdCompressingEncoder.h"

#include <memory>

struct z_stream_s;

/// Writes what zlib compresses, in base 85: the smallest documents. An interpreter of language level 3 reads it; the
/// device stays at level 2. Holds about 270 KiB, whatever the size of the data. When compressing fails, which it does
/// not for lack of memory, the stream fails.
class QSD_API QsdFlateEncoder : public QsdCompressingEncoder {
public:
    /// Writes to `stream` (not owned, may be null). `effort` goes from 0 (no compression) over 1 (fast) to 9 (small);
    /// others are taken for the nearest. Throws std::bad_alloc when there is no memory, std::runtime_error when zlib is
    /// of another version than the one this was compiled for.
    explicit QsdFlateEncoder(std::ostream* stream, int effort = 6);
    ~QsdFlateEncoder() override;

private:
    struct Close {
        void operator()(z_stream_s* zlib) const;
    };

    void begin() override;
    void compress(std::size_t count, const unsigned char* bytes) override;
    void finish() override;
    /// Compresses what zlib was given as far as the buffer goes; false when there is no more to come.
    bool deflateSome(int flush);
    void putAllBut(std::size_t rest);

    /// Bytes at the end of which the last byte of the data cannot be without: the end of a block, an empty block after
    /// it, the check sum.
    static constexpr std::size_t TailSize = 16;
    static constexpr std::size_t BufferSize = 4096;

    std::unique_ptr<z_stream_s, Close> _zlib;
    std::size_t _used = 0;
    unsigned char _buffer[BufferSize]; ///< compressed bytes; the last ones wait for the end
};
