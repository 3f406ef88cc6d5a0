// LZW compression of image data.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/encoder/QsdCompressingEncoder.h"

#include <cstdint>
#include <memory>

/// Writes codes of 9 to 12 bits for strings of bytes that came before, in base 85. An interpreter of language level 2
/// or above reads it; the device stays at level 2. Holds a table of 32 KiB.
class QSD_API QsdLZWEncoder : public QsdCompressingEncoder {
public:
    /// Writes to `stream` (not owned, may be null). Throws std::bad_alloc when there is no memory for the table.
    explicit QsdLZWEncoder(std::ostream* stream);
    ~QsdLZWEncoder() override;

private:
    struct Table;

    void begin() override;
    void compress(std::size_t count, const unsigned char* bytes) override;
    void finish() override;
    void clearTable();
    void putCode(std::uint32_t code);
    void countEntry();

    std::unique_ptr<Table> _table;
    std::uint32_t _prefix; ///< code of the string read so far
    std::uint32_t _lastEntry;
    unsigned _width; ///< bits of a code
    std::uint32_t _bits = 0;
    unsigned _bitCount = 0; ///< bits that do not make a byte yet
};
