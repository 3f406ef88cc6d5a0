#include "ps/QsdPSWriter_p.h"

#include <ostream>

// As the stream's own inserters do: a failed stream takes nothing more, and what a buffer throws becomes its bad bit.

void QsdPSWriter::write(const char* text, std::size_t size)
{
    if (_stream == nullptr || !_stream->good()) {
        return;
    }
    bool written = false;
    try {
        written =
            _stream->rdbuf()->sputn(text, static_cast<std::streamsize>(size)) == static_cast<std::streamsize>(size);
    } catch (...) {
        written = false;
    }
    if (!written) {
        _stream->setstate(std::ios_base::badbit);
    }
}

void QsdPSWriter::flush()
{
    if (_stream == nullptr || !_stream->good()) {
        return;
    }
    bool flushed = false;
    try {
        flushed = _stream->rdbuf()->pubsync() != -1;
    } catch (...) {
        flushed = false;
    }
    if (!flushed) {
        _stream->setstate(std::ios_base::badbit);
    }
}
