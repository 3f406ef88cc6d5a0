// How encoders hand their characters to a stream.
#pragma once

#include <cstddef>
#include <ostream>

/// Puts characters into the stream's buffer, past its formatting. A null or failed stream takes nothing; characters
/// that the buffer does not take make the stream fail.
inline void QsdPutEncoded(std::ostream* stream, const char* text, std::size_t size)
{
    if (stream == nullptr || !stream->good()) {
        return;
    }
    const auto count = static_cast<std::streamsize>(size);
    bool written = false;
    try {
        written = stream->rdbuf()->sputn(text, count) == count;
    } catch (...) {
        written = false;
    }
    if (!written) {
        stream->setstate(std::ios_base::badbit);
    }
}
