#include "toolkit/encoder/QsdCompressingEncoder.h"

#include <cstring>
#include <ostream>
#include <string>

namespace {

/// Makes a procedure of a file that gives its next line that is not empty; the empty string at its end. The line end
/// behind the operator that wants the data is such an empty line if blanks stand before it.
constexpr std::string_view LineReader = "[exch cvlit 80 string"
                                        "{{2 copy readline not 1 index()ne or{exit}if pop}loop 3 1 roll pop pop}"
                                        "/exec load]cvx";

} // namespace

QsdCompressingEncoder::QsdCompressingEncoder(std::ostream* stream, std::string_view filter)
    : _stream(stream), _filter(filter), _text(stream)
{
}

void QsdCompressingEncoder::putByte(unsigned char byte)
{
    _held[_heldCount++] = byte;
    if (_heldCount == HeldSize) {
        compressHeld();
    }
}

void QsdCompressingEncoder::putBytes(unsigned long count, const unsigned char* bytes)
{
    if (count == 0) {
        return;
    }
    if (count > HeldSize - _heldCount) {
        compressHeld();
    }
    if (count >= HeldSize) {
        compress(count, bytes);
        return;
    }
    std::memcpy(_held + _heldCount, bytes, count);
    _heldCount += count;
    if (_heldCount == HeldSize) {
        compressHeld();
    }
}

void QsdCompressingEncoder::startData()
{
    _heldCount = 0;
    _text.startData();
    begin();
}

void QsdCompressingEncoder::endData()
{
    compressHeld();
    finish();
    _text.endData();
}

void QsdCompressingEncoder::setStream(std::ostream* stream)
{
    _stream = stream;
    _text.setStream(stream);
}

QsString QsdCompressingEncoder::getDecoderString() const
{
    std::string decoder(LineReader);
    decoder += _text.getDecoderString().view();
    decoder += '/';
    decoder += _filter;
    decoder += " filter";
    return QsString(decoder);
}

void QsdCompressingEncoder::fail()
{
    if (_stream != nullptr) {
        _stream->setstate(std::ios_base::badbit);
    }
}

void QsdCompressingEncoder::compressHeld()
{
    if (_heldCount != 0) {
        compress(_heldCount, _held);
        _heldCount = 0;
    }
}
