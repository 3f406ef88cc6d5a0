#include "toolkit/encoder/QsdRunLengthEncoder.h"

#include <algorithm>

namespace {

constexpr unsigned char EndOfData = 128;
/// A shorter run within other bytes would not make them shorter.
constexpr std::size_t MinRun = 3;

} // namespace

QsdRunLengthEncoder::QsdRunLengthEncoder(std::ostream* stream) : QsdCompressingEncoder(stream, "RunLengthDecode") {}

void QsdRunLengthEncoder::begin()
{
    _runLength = 0;
    _literalCount = 0;
}

// What is full goes out with the next byte only, so that finish() finds the last one here.
void QsdRunLengthEncoder::compress(std::size_t count, const unsigned char* bytes)
{
    for (const unsigned char* const end = bytes + count; bytes != end; ++bytes) {
        if (_runLength != 0) {
            if (*bytes == _runByte && _runLength < MaxLength) {
                ++_runLength;
                continue;
            }
            putRun();
        } else if (_literalCount == MaxLength) {
            putLiterals(MaxLength);
        }
        _literals[_literalCount++] = *bytes;
        const unsigned char* const tail = _literals + _literalCount - MinRun;
        if (_literalCount >= MinRun && std::count(tail, tail + MinRun, *bytes) == MinRun) {
            putLiterals(_literalCount - MinRun);
            _literalCount = 0;
            _runLength = MinRun;
            _runByte = *bytes;
        }
    }
}

void QsdRunLengthEncoder::finish()
{
    if (_runLength != 0) {
        text().breakLine();
        putRun();
    } else if (_literalCount != 0) {
        text().putByte(static_cast<unsigned char>(_literalCount - 1));
        text().putBytes(_literalCount - 1, _literals);
        text().breakLine();
        text().putByte(_literals[_literalCount - 1]);
    }
    text().putByte(EndOfData);
}

void QsdRunLengthEncoder::putLiterals(std::size_t count)
{
    if (count != 0) {
        text().putByte(static_cast<unsigned char>(count - 1));
        text().putBytes(count, _literals);
    }
    _literalCount = 0;
}

void QsdRunLengthEncoder::putRun()
{
    text().putByte(static_cast<unsigned char>(257 - _runLength));
    text().putByte(_runByte);
    _runLength = 0;
}
