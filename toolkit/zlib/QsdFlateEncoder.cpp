#include "toolkit/zlib/QsdFlateEncoder.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

#define ZLIB_CONST
#include <zlib.h>

QsdFlateEncoder::QsdFlateEncoder(std::ostream* stream, int effort) : QsdCompressingEncoder(stream, "FlateDecode")
{
    auto zlib = std::make_unique<z_stream>();
    switch (deflateInit(zlib.get(), std::clamp(effort, Z_NO_COMPRESSION, Z_BEST_COMPRESSION))) {
    case Z_OK:
        _zlib.reset(zlib.release());
        break;
    case Z_MEM_ERROR:
        throw std::bad_alloc();
    default:
        throw std::runtime_error("zlib is of another version");
    }
}

QsdFlateEncoder::~QsdFlateEncoder() = default;

void QsdFlateEncoder::Close::operator()(z_stream_s* zlib) const
{
    deflateEnd(zlib);
    delete zlib;
}

void QsdFlateEncoder::begin()
{
    _used = 0;
    if (deflateReset(_zlib.get()) != Z_OK) {
        fail();
    }
}

void QsdFlateEncoder::compress(std::size_t count, const unsigned char* bytes)
{
    while (count != 0) {
        const std::size_t batch = std::min<std::size_t>(count, std::numeric_limits<uInt>::max());
        count -= batch;
        _zlib->next_in = bytes;
        _zlib->avail_in = static_cast<uInt>(batch);
        bytes += batch;
        while (_zlib->avail_in != 0) {
            if (!deflateSome(Z_NO_FLUSH)) {
                return;
            }
        }
    }
}

void QsdFlateEncoder::finish()
{
    _zlib->avail_in = 0;
    while (deflateSome(Z_FINISH)) {
    }
    putAllBut(std::min(_used, TailSize));
    text().breakLine();
    putAllBut(0);
}

bool QsdFlateEncoder::deflateSome(int flush)
{
    if (_used == BufferSize) {
        putAllBut(TailSize);
    }
    _zlib->next_out = _buffer + _used;
    _zlib->avail_out = static_cast<uInt>(BufferSize - _used);
    const int result = deflate(_zlib.get(), flush);
    _used = BufferSize - _zlib->avail_out;
    if (result != Z_OK && result != Z_STREAM_END) {
        fail();
    }
    return result == Z_OK;
}

void QsdFlateEncoder::putAllBut(std::size_t rest)
{
    text().putBytes(_used - rest, _buffer);
    std::memmove(_buffer, _buffer + _used - rest, rest);
    _used = rest;
}
