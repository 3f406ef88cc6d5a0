#include "ps/text/QsdPSWriter_p.h"

#include <ostream>

namespace {

bool written(std::streambuf& buffer, const char* text, std::size_t size)
{
    const auto count = static_cast<std::streamsize>(size);
    return buffer.sputn(text, count) == count;
}

/// Does what `output` does with the stream's buffer, as the stream's own inserters would: a failed stream takes nothing
/// more, and what a buffer throws becomes its bad bit.
template <class Output>
void put(std::ostream* stream, Output output)
{
    if (stream == nullptr || !stream->good()) {
        return;
    }
    bool done = false;
    try {
        done = output(*stream->rdbuf());
    } catch (...) {
        done = false;
    }
    if (!done) {
        stream->setstate(std::ios_base::badbit);
    }
}

} // namespace

void QsdPSWriter::write(const char* text, std::size_t size)
{
    put(_stream, [=](std::streambuf& buffer) { return written(buffer, text, size); });
}

void QsdPSWriter::writeLine(const char* text, std::size_t size)
{
    put(_stream, [=](std::streambuf& buffer) { return written(buffer, text, size) && buffer.pubsync() != -1; });
}
