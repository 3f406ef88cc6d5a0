// Run length compression of image data.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdCompressingEncoder.h"

/// Writes runs of equal bytes as two, in base 85: for drawings of few colours. An interpreter of language level 2 or
/// above reads it; the device stays at level 2. Needs no memory beyond the object.
class QSD_API QsdRunLengthEncoder : public QsdCompressingEncoder {
public:
    /// Writes to `stream` (not owned, may be null).
    explicit QsdRunLengthEncoder(std::ostream* stream);

private:
    void begin() override;
    void compress(std::size_t count, const unsigned char* bytes) override;
    void finish() override;
    void putLiterals(std::size_t count);
    void putRun();

    static constexpr std::size_t MaxLength = 128;

    // Either a run is under way or bytes are collected that make none.
    std::size_t _runLength = 0;
    unsigned char _runByte = 0;
    std::size_t _literalCount = 0;
    unsigned char _literals[MaxLength] = {};
};
