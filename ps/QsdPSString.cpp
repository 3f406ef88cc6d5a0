#include "ps/QsdPSString.h"

#include <cstddef>
#include <cstring>
#include <ostream>

QsEncoding CurrentEncoding = QsEncodingUnknown;

namespace {

constexpr unsigned char SingleShift2 = 0x8E; ///< a half-width kana follows
constexpr unsigned char SingleShift3 = 0x8F; ///< a character of the supplementary set follows

/// Puts characters straight into the stream's buffer, so that a text of any length needs no memory of its own.
class LiteralBody {
public:
    explicit LiteralBody(std::ostream& out) : _out(out), _buffer(out.good() ? out.rdbuf() : nullptr) {}
    LiteralBody(const LiteralBody&) = delete;
    LiteralBody& operator=(const LiteralBody&) = delete;

    void put(char c)
    {
        if (_buffer != nullptr && !taken(c)) {
            _buffer = nullptr;
            _out.setstate(std::ios_base::badbit);
        }
    }
    void put(unsigned char byte) { put(static_cast<char>(byte)); }
    template <std::size_t N>
    void put(const char (&text)[N])
    {
        for (std::size_t i = 0; i + 1 < N; ++i) {
            put(text[i]);
        }
    }
    void putOctal(unsigned char byte)
    {
        put('\\');
        put(static_cast<char>('0' + (byte >> 6)));
        put(static_cast<char>('0' + ((byte >> 3) & 7)));
        put(static_cast<char>('0' + (byte & 7)));
    }

private:
    /// Whether the buffer took the character; what it throws means that it did not.
    bool taken(char c)
    {
        try {
            return _buffer->sputc(c) != std::ostream::traits_type::eof();
        } catch (...) {
            return false;
        }
    }

    std::ostream& _out;
    std::streambuf* _buffer;
};

bool needsBackslash(unsigned char byte)
{
    return byte == '(' || byte == ')' || byte == '\\' || byte == '{' || byte == '}' || byte == '$';
}

void writeOctal(const unsigned char* text, std::size_t length, LiteralBody& body)
{
    for (std::size_t i = 0; i < length; ++i) {
        body.putOctal(text[i]);
    }
}

void writeSingleByte(const unsigned char* text, std::size_t length, LiteralBody& body)
{
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned char byte = text[i];
        if (byte >= 0x7F) {
            body.putOctal(byte);
            continue;
        }
        if (needsBackslash(byte)) {
            body.put('\\');
        }
        body.put(byte);
    }
}

/// The fonts of the composite font of the prolog, by their numbers there.
enum class Run { SingleByte, Kanji, Kana };

/// Seven bits of a kanji byte, without leading zeros.
void putKanjiByte(unsigned char byte, LiteralBody& body)
{
    const unsigned code = byte & 0x7FU;
    body.put('\\');
    if (code >= 0100) {
        body.put('1');
    }
    if (code >= 010) {
        body.put(static_cast<char>('0' + ((code >> 3) & 7)));
    }
    body.put(static_cast<char>('0' + (code & 7)));
}

void writeEUC(const unsigned char* text, std::size_t length, LiteralBody& body)
{
    Run run = Run::SingleByte;
    bool shifted = false;
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned char byte = text[i];
        if (byte == SingleShift2 && run != Run::Kana) {
            body.put("\\377\\002");
            run = Run::Kana;
            shifted = true;
        } else if (byte == SingleShift2 || byte == SingleShift3) {
            shifted = true;
        } else if (byte <= 0x9F && run != Run::SingleByte) {
            body.put("\\377\\000");
            run = Run::SingleByte;
        } else if (byte > 0x9F && !shifted && run != Run::Kanji) {
            body.put("\\377\\001");
            run = Run::Kanji;
        }
        if (byte == SingleShift2 || byte == SingleShift3) {
            continue;
        }
        if (needsBackslash(byte)) {
            body.put('\\');
        }
        switch (run) {
        case Run::Kanji:
            putKanjiByte(byte, body);
            break;
        case Run::Kana:
            // The scanner drops the backslash and keeps the byte, high bit included.
            body.put('\\');
            body.put(byte);
            break;
        case Run::SingleByte:
            body.put(byte);
            break;
        }
        shifted = false;
    }
}

} // namespace

void WriteOutPSString(const char* text, std::ostream* out, int length)
{
    if (length == 0 || text == nullptr || out == nullptr || *text == '\0') {
        return;
    }
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text);
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    LiteralBody body(*out);
    switch (CurrentEncoding) {
    case QsEncodingShiftJIS:
        writeOctal(bytes, count, body);
        break;
    case QsEncodingEUCJP:
        writeEUC(bytes, count, body);
        break;
    default:
        writeSingleByte(bytes, count, body);
        break;
    }
}
