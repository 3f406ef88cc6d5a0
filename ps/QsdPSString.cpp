#include "ps/QsdPSString.h"

#include "ps/QsdPSStringBody_p.h"
#include "ps/QsdPSWriter_p.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

QsEncoding CurrentEncoding = QsEncodingUnknown;

namespace {

constexpr unsigned char SingleShift2 = 0x8E; ///< a half-width kana follows
constexpr unsigned char SingleShift3 = 0x8F; ///< a character of the supplementary set follows

void putOctal(unsigned char byte, QsdPSWriter& out)
{
    const char text[] = {'\\', static_cast<char>('0' + (byte >> 6)), static_cast<char>('0' + ((byte >> 3) & 7)),
                         static_cast<char>('0' + (byte & 7))};
    out << std::string_view(text, sizeof text);
}

void putByte(unsigned char byte, QsdPSWriter& out)
{
    const auto character = static_cast<char>(byte);
    out << std::string_view(&character, 1);
}

constexpr bool needsBackslash(unsigned char byte)
{
    return byte == '(' || byte == ')' || byte == '\\' || byte == '{' || byte == '}' || byte == '$';
}

/// The bytes of Latin texts that stand for themselves.
constexpr auto PlainBytes = [] {
    std::array<bool, 256> plain{};
    for (unsigned byte = 0; byte < 0x7F; ++byte) {
        plain[byte] = !needsBackslash(static_cast<unsigned char>(byte));
    }
    return plain;
}();

void writeOctal(const unsigned char* text, std::size_t length, QsdPSWriter& out)
{
    for (std::size_t i = 0; i < length; ++i) {
        putOctal(text[i], out);
    }
}

void writeSingleByte(const unsigned char* text, std::size_t length, QsdPSWriter& out)
{
    for (std::size_t i = 0; i < length;) {
        const std::size_t first = i;
        while (i < length && PlainBytes[text[i]]) {
            ++i;
        }
        out << std::string_view(reinterpret_cast<const char*>(text) + first, i - first);
        if (i == length) {
            break;
        }
        if (needsBackslash(text[i])) {
            out << "\\";
            putByte(text[i], out);
        } else {
            putOctal(text[i], out);
        }
        ++i;
    }
}

/// The fonts of the composite font of the prolog, by their numbers there.
enum class Run { SingleByte, Kanji, Kana };

/// Seven bits of a kanji byte, without leading zeros.
void putKanjiByte(unsigned char byte, QsdPSWriter& out)
{
    const unsigned code = byte & 0x7FU;
    out << "\\";
    if (code >= 0100) {
        out << "1";
    }
    if (code >= 010) {
        putByte(static_cast<unsigned char>('0' + ((code >> 3) & 7)), out);
    }
    putByte(static_cast<unsigned char>('0' + (code & 7)), out);
}

void writeEUC(const unsigned char* text, std::size_t length, QsdPSWriter& out)
{
    Run run = Run::SingleByte;
    bool shifted = false;
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned char byte = text[i];
        if (byte == SingleShift2 && run != Run::Kana) {
            out << "\\377\\002";
            run = Run::Kana;
            shifted = true;
        } else if (byte == SingleShift2 || byte == SingleShift3) {
            shifted = true;
        } else if (byte <= 0x9F && run != Run::SingleByte) {
            out << "\\377\\000";
            run = Run::SingleByte;
        } else if (byte > 0x9F && !shifted && run != Run::Kanji) {
            out << "\\377\\001";
            run = Run::Kanji;
        }
        if (byte == SingleShift2 || byte == SingleShift3) {
            continue;
        }
        if (needsBackslash(byte)) {
            out << "\\";
        }
        switch (run) {
        case Run::Kanji:
            putKanjiByte(byte, out);
            break;
        case Run::Kana:
            // The scanner drops the backslash and keeps the byte, high bit included.
            out << "\\";
            putByte(byte, out);
            break;
        case Run::SingleByte:
            putByte(byte, out);
            break;
        }
        shifted = false;
    }
}

} // namespace

void QsdPSWriteStringBody(QsdPSWriter& out, const char* text, int length)
{
    if (length == 0 || text == nullptr || *text == '\0') {
        return;
    }
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text);
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    switch (CurrentEncoding) {
    case QsEncodingShiftJIS:
        writeOctal(bytes, count, out);
        break;
    case QsEncodingEUCJP:
        writeEUC(bytes, count, out);
        break;
    default:
        writeSingleByte(bytes, count, out);
        break;
    }
}

void WriteOutPSString(const char* text, std::ostream* out, int length)
{
    QsdPSWriter writer(out);
    QsdPSWriteStringBody(writer, text, length);
    // A stream that is told to throw when it fails does so here, not where the writer goes.
    writer.commit();
}
