#include "toolkit/encoder/QsdASCIIHexEncoder.h"

#include "toolkit/encoder/QsdEncodedOutput_p.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

/// The two digits of every byte, in order.
constexpr auto Digits = [] {
    std::array<char, 512> digits{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        digits[2 * byte] = "0123456789abcdef"[byte >> 4];
        digits[2 * byte + 1] = "0123456789abcdef"[byte & 15];
    }
    return digits;
}();

} // namespace

QsdASCIIHexEncoder::QsdASCIIHexEncoder(std::ostream* stream, bool endMark) : _stream(stream), _endMark(endMark) {}

void QsdASCIIHexEncoder::putByte(unsigned char byte)
{
    putBytes(1, &byte);
}

void QsdASCIIHexEncoder::putBytes(unsigned long count, const unsigned char* bytes)
{
    while (count != 0) {
        const unsigned long batch = std::min<unsigned long>(count, (LineLength - _column) / 2);
        for (unsigned long i = 0; i < batch; ++i) {
            std::memcpy(_buffer + _used + 2 * i, Digits.data() + 2 * std::size_t{bytes[i]}, 2);
        }
        _used += 2 * batch;
        _column += 2 * batch;
        bytes += batch;
        count -= batch;
        if (_column == LineLength) {
            endLine();
        }
    }
}

void QsdASCIIHexEncoder::startData()
{
    _used = 0;
    _column = 0;
}

void QsdASCIIHexEncoder::endData()
{
    if (_endMark) {
        _buffer[_used++] = '>';
        ++_column;
    }
    if (_column != 0) {
        endLine();
    }
    flush();
}

void QsdASCIIHexEncoder::setStream(std::ostream* stream)
{
    _stream = stream;
}

QsString QsdASCIIHexEncoder::getDecoderString() const
{
    return QsString("/ASCIIHexDecode filter");
}

void QsdASCIIHexEncoder::endLine()
{
    _buffer[_used++] = '\n';
    _column = 0;
    if (BufferSize - _used <= LineLength + 1) {
        flush();
    }
}

void QsdASCIIHexEncoder::flush()
{
    QsdPutEncoded(_stream, _buffer, _used);
    _used = 0;
}
