#include "toolkit/encoder/QsdASCII85Encoder.h"

#include "toolkit/encoder/QsdEncodedOutput_p.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint32_t PairBase = 85 * 85;

/// The two characters of every number below 85 * 85, in order.
constexpr auto Pairs = [] {
    std::array<char, std::size_t{2} * PairBase> pairs{};
    for (std::size_t value = 0; value < PairBase; ++value) {
        pairs[2 * value] = static_cast<char>('!' + value / 85);
        pairs[2 * value + 1] = static_cast<char>('!' + value % 85);
    }
    return pairs;
}();

/// Writes the five characters of a group.
void encodeGroup(std::uint32_t value, char* out)
{
    const std::uint32_t rest = value % (PairBase * 85);
    std::memcpy(out, Pairs.data() + 2 * std::size_t{value / (PairBase * 85)}, 2);
    std::memcpy(out + 2, Pairs.data() + 2 * std::size_t{rest / 85}, 2);
    out[4] = static_cast<char>('!' + rest % 85);
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

} // namespace

/// Where the next character goes; kept apart from the encoder while many groups are written.
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
            *out++ = 'z';
            if (++column > LineLength - GroupLength) {
                *out++ = '\n';
                column = 0;
            }
        } else {
            encodeGroup(value, out);
            advance(GroupLength);
        }
    }
};

QsdASCII85Encoder::QsdASCII85Encoder(std::ostream* stream) : _stream(stream) {}

void QsdASCII85Encoder::putByte(unsigned char byte)
{
    _group[_pending++] = byte;
    if (_pending == sizeof _group) {
        _pending = 0;
        putGroups(1, _group);
    }
}

void QsdASCII85Encoder::putBytes(unsigned long count, const unsigned char* bytes)
{
    for (; count != 0 && _pending != 0; --count) {
        putByte(*bytes++);
    }
    putGroups(count / sizeof _group, bytes);
    bytes += count / sizeof _group * sizeof _group;
    for (count %= sizeof _group; count != 0; --count) {
        putByte(*bytes++);
    }
}

void QsdASCII85Encoder::putGroups(std::size_t count, const unsigned char* bytes)
{
    while (count != 0) {
        const std::size_t batch = std::min(count, (BufferSize - _used) / GroupRoom);
        Cursor cursor{_buffer + _used, _column};
        for (std::size_t i = 0; i < batch; ++i, bytes += sizeof _group) {
            cursor.putGroup(groupValue(bytes));
        }
        _used = static_cast<std::size_t>(cursor.out - _buffer);
        _column = cursor.column;
        count -= batch;
        if (BufferSize - _used < GroupRoom) {
            flush();
        }
    }
}

void QsdASCII85Encoder::startData()
{
    _pending = 0;
    _column = 0;
    _used = 0;
}

// A short last group is padded with zeros and written one character longer than its bytes, never as "z".
void QsdASCII85Encoder::endData()
{
    Cursor cursor{_buffer + _used, _column};
    if (_pending != 0) {
        std::fill(_group + _pending, _group + sizeof _group, static_cast<unsigned char>(0));
        encodeGroup(groupValue(_group), cursor.out);
        cursor.advance(_pending + 1);
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

void QsdASCII85Encoder::flush()
{
    QsdPutEncoded(_stream, _buffer, _used);
    _used = 0;
}
