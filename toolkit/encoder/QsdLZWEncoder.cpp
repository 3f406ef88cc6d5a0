#include "toolkit/encoder/QsdLZWEncoder.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t ClearTable = 256;
constexpr std::uint32_t EndOfData = 257;
constexpr std::uint32_t NoPrefix = 4096;
/// The last code that the table may give; the one after it would be the widest, too late for codes that widen early.
constexpr std::uint32_t LastCode = 4094;
constexpr unsigned MinWidth = 9;

} // namespace

/// The codes of strings, found by the code of all their bytes but the last, and that byte.
struct QsdLZWEncoder::Table {
    static constexpr unsigned SizeBits = 13; ///< twice as many places as codes
    static constexpr std::uint32_t Size = 1U << SizeBits;

    /// The place of a string: it stands there, or, if it is not in the table, nothing does.
    std::uint32_t& find(std::uint32_t prefix, unsigned char byte)
    {
        const std::uint32_t key = prefix << 8 | byte;
        std::uint32_t place = key * 2654435761U >> (32 - SizeBits);
        while (places[place] != 0 && places[place] >> 12 != key) {
            place = (place + 1) % Size;
        }
        return places[place];
    }

    static std::uint32_t entry(std::uint32_t prefix, unsigned char byte, std::uint32_t code)
    {
        return (prefix << 8 | byte) << 12 | code;
    }

    std::array<std::uint32_t, Size> places; ///< 20 bits of key above 12 of code; 0: nothing
};

QsdLZWEncoder::QsdLZWEncoder(std::ostream* stream)
    : QsdCompressingEncoder(stream, "LZWDecode"), _table(std::make_unique<Table>())
{
    clearTable();
    _prefix = NoPrefix;
}

QsdLZWEncoder::~QsdLZWEncoder() = default;

void QsdLZWEncoder::begin()
{
    _bitCount = 0;
    _prefix = NoPrefix;
    clearTable();
    putCode(ClearTable);
}

void QsdLZWEncoder::compress(std::size_t count, const unsigned char* bytes)
{
    for (const unsigned char* const end = bytes + count; bytes != end; ++bytes) {
        if (_prefix == NoPrefix) {
            _prefix = *bytes;
            continue;
        }
        std::uint32_t& place = _table->find(_prefix, *bytes);
        if (place != 0) {
            _prefix = place & 0xFFF;
            continue;
        }
        putCode(_prefix);
        place = Table::entry(_prefix, *bytes, _lastEntry + 1);
        _prefix = *bytes;
        countEntry();
    }
}

// The code of the last bytes is always still here.
void QsdLZWEncoder::finish()
{
    text().breakLine();
    if (_prefix != NoPrefix) {
        putCode(_prefix);
        countEntry();
    }
    putCode(EndOfData);
    if (_bitCount != 0) {
        text().putByte(static_cast<unsigned char>(_bits << (8 - _bitCount)));
        _bitCount = 0;
    }
}

void QsdLZWEncoder::clearTable()
{
    _table->places.fill(0);
    _lastEntry = EndOfData;
    _width = MinWidth;
}

void QsdLZWEncoder::putCode(std::uint32_t code)
{
    _bits = _bits << _width | code;
    _bitCount += _width;
    while (_bitCount >= 8) {
        _bitCount -= 8;
        text().putByte(static_cast<unsigned char>(_bits >> _bitCount));
    }
}

// Codes become wider one entry early, when the last code of a width is given; that is what the filter expects unless it
// is told otherwise.
void QsdLZWEncoder::countEntry()
{
    ++_lastEntry;
    if (_lastEntry == LastCode) {
        putCode(ClearTable);
        clearTable();
    } else if (_lastEntry + 1 == 1U << _width) {
        ++_width;
    }
}
