#include "toolkit/encoder/QsdASCII85Encoder.h"

#include "toolkit/encoder/QsdEncodedOutput_p.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint32_t PairBase = 85 * 85;
constexpr std::size_t GroupBytes = 4;

/// The two characters of every number below 85 * 85, the first one in the lower byte.
constexpr auto Pairs = [] {
    std::array<std::uint16_t, PairBase> pairs{};
    for (std::size_t value = 0; value < PairBase; ++value) {
        pairs[value] = static_cast<std::uint16_t>('!' + value / 85 + (('!' + value % 85) << 8));
    }
    return pairs;
}();

/// The five characters of a group, the first one in the lowest byte.
///
/// Counted in units of 85 ** 3, the group is a fraction whose integer part is its first two digits; times 85 ** 2, what
/// is left gives the next two, and times 85 the last. The factor is rounded up by less than 0.3 of its last bit, which
/// for 32 bits adds up to a third of the last digit's unit: never enough to reach the next digit.
std::uint64_t groupCharacters(std::uint32_t value)
{
    constexpr unsigned Shift = 51;
    constexpr std::uint64_t One = std::uint64_t{1} << Shift;
    constexpr std::uint64_t Factor = One / (PairBase * 85) + 1;
    std::uint64_t scaled = value * Factor;
    const std::uint64_t first = Pairs[scaled >> Shift];
    scaled = scaled % One * PairBase;
    const std::uint64_t second = Pairs[scaled >> Shift];
    scaled = scaled % One * 85;
    return first | second << 16 | ((scaled >> Shift) + '!') << 32;
}

/// Writes the five characters of a group, and three more bytes behind them that do not count.
void encodeGroup(std::uint32_t value, char* out)
{
    const std::uint64_t characters = groupCharacters(value);
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(out, &characters, sizeof characters);
    } else {
        for (unsigned i = 0; i < 5; ++i) {
            out[i] = static_cast<char>(characters >> 8 * i);
        }
    }
}

std::uint32_t groupValue(const unsigned char* bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           std::uint32_t{bytes[3]};
}

/// Whether document managers would take a line that begins with these two characters for a comment of theirs.
bool looksLikeComment(const char* line)
{
    return line[0] == '%' && (line[1] == '%' || line[1] == '!');
}

/// Writes a line of `groups` groups with its end; false, and what was written does not count, if it is not a plain
/// one: if a group is all zeros, or the line would look like a comment.
bool encodePlainLine(const unsigned char* bytes, std::size_t groups, char* line)
{
    bool hasZero = false;
    char* out = line;
    for (std::size_t i = 0; i < groups; ++i, out += 5) {
        const std::uint32_t value = groupValue(bytes + GroupBytes * i);
        hasZero = hasZero || value == 0;
        encodeGroup(value, out);
    }
    *out = '\n';
    return !hasZero && !looksLikeComment(line);
}

} // namespace

/// Where the next character goes; kept apart from the encoder while the groups of a line are written.
struct QsdASCII85Encoder::Cursor {
    char* out;
    std::size_t column;

    /// Takes over `count` characters that stand at `out` already. The filter skips blanks, so one in front hides the
    /// beginning of a line that would look like a comment.
    void advance(std::size_t count)
    {
        if (column == 0 && looksLikeComment(out)) {
            std::memmove(out + 1, out, count);
            *out = ' ';
            ++count;
        }
        out += count;
        column += count;
        if (column > LineLength - GroupLength) {
            *out++ = '\n';
            column = 0;
        }
    }

    void putGroup(std::uint32_t value)
    {
        if (value == 0) {
            *out = 'z';
            advance(1);
        } else {
            encodeGroup(value, out);
            advance(GroupLength);
        }
    }
};

QsdASCII85Encoder::QsdASCII85Encoder(std::ostream* stream) : _stream(stream) {}

void QsdASCII85Encoder::putByte(unsigned char byte)
{
    _held[_heldCount++] = byte;
    if (_heldCount == HeldSize) {
        _heldCount = 0;
        putGroups(HeldSize / GroupBytes, _held);
    }
}

void QsdASCII85Encoder::putBytes(unsigned long count, const unsigned char* bytes)
{
    // Colour images come pixel by pixel.
    constexpr std::size_t Pixel = 3;
    if (count == Pixel && _heldCount + Pixel < HeldSize) {
        std::memcpy(_held + _heldCount, bytes, Pixel);
        _heldCount += Pixel;
    } else {
        putBlock(count, bytes);
    }
}

void QsdASCII85Encoder::putBlock(std::size_t count, const unsigned char* bytes)
{
    const std::size_t room = HeldSize - _heldCount;
    if (count >= room) {
        if (_heldCount != 0) {
            std::memcpy(_held + _heldCount, bytes, room);
            putGroups(HeldSize / GroupBytes, _held);
            _heldCount = 0;
            bytes += room;
            count -= room;
        }
        const std::size_t groups = count / HeldSize * (HeldSize / GroupBytes);
        putGroups(groups, bytes);
        bytes += groups * GroupBytes;
        count %= HeldSize;
    }
    if (count != 0) {
        std::memcpy(_held + _heldCount, bytes, count);
        _heldCount += count;
    }
}

void QsdASCII85Encoder::putGroups(std::size_t count, const unsigned char* bytes)
{
    while (count != 0) {
        reserveLine();
        if (_column == 0 && count >= LineGroups && encodePlainLine(bytes, LineGroups, _buffer + _used)) {
            _used += LineGroups * GroupLength + 1;
            bytes += LineGroups * GroupBytes;
            count -= LineGroups;
            continue;
        }
        Cursor cursor{_buffer + _used, _column};
        do {
            cursor.putGroup(groupValue(bytes));
            bytes += GroupBytes;
        } while (--count != 0 && cursor.column != 0);
        _used = static_cast<std::size_t>(cursor.out - _buffer);
        _column = cursor.column;
    }
}

void QsdASCII85Encoder::breakLine()
{
    const std::size_t groups = _heldCount / GroupBytes;
    putGroups(groups, _held);
    _heldCount %= GroupBytes;
    std::memmove(_held, _held + groups * GroupBytes, _heldCount);
    if (_column != 0) {
        reserveLine();
        _buffer[_used++] = '\n';
        _column = 0;
    }
}

void QsdASCII85Encoder::startData()
{
    _heldCount = 0;
    _column = 0;
    _used = 0;
}

// A short last group is padded with zeros and written one character longer than its bytes, never as "z".
void QsdASCII85Encoder::endData()
{
    putGroups(_heldCount / GroupBytes, _held);
    reserveLine();
    Cursor cursor{_buffer + _used, _column};
    const std::size_t rest = _heldCount % GroupBytes;
    if (rest != 0) {
        unsigned char group[GroupBytes] = {};
        std::memcpy(group, _held + _heldCount - rest, rest);
        encodeGroup(groupValue(group), cursor.out);
        cursor.advance(rest + 1);
    }
    std::memcpy(cursor.out, "~>\n", 3);
    _used = static_cast<std::size_t>(cursor.out - _buffer) + 3;
    flush();
    startData();
}

void QsdASCII85Encoder::setStream(std::ostream* stream)
{
    _stream = stream;
}

QsString QsdASCII85Encoder::getDecoderString() const
{
    return QsString("/ASCII85Decode filter");
}

void QsdASCII85Encoder::reserveLine()
{
    if (BufferSize - _used < LineRoom) {
        flush();
    }
}

void QsdASCII85Encoder::flush()
{
    QsdPutEncoded(_stream, _buffer, _used);
    _used = 0;
}
