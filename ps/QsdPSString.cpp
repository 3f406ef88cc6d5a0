#include "ps/QsdPSString.h"

#include "ps/QsdPSStringBody_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
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

constexpr bool isControl(unsigned char byte)
{
    return byte < ' ';
}

/// The bytes of Latin texts that stand for themselves, from `first` on.
constexpr std::array<bool, 256> plainBytes(unsigned first)
{
    std::array<bool, 256> plain{};
    for (unsigned byte = first; byte < 0x7F; ++byte) {
        plain[byte] = !needsBackslash(static_cast<unsigned char>(byte));
    }
    return plain;
}

constexpr std::array<bool, 256> PlainBytes = plainBytes(0);
constexpr std::array<bool, 256> PrintableBytes = plainBytes(' ');

/// The lines of a literal.
class Lines {
public:
    Lines(QsdPSWriter& out, const QsdPSLineLength& length) : _out(out), _length(length.literal) {}

    [[nodiscard]] bool areShort() const { return _length != QsdPSAnyLength.literal; }
    /// How many more characters the line takes.
    [[nodiscard]] std::size_t room() const { return _out.column() < _length ? _length - _out.column() : 0; }
    /// Goes on on a new line when the one under way is full. A percent sign that would begin the line is written in
    /// octal; whether it was.
    bool makeRoom(unsigned char next)
    {
        if (room() != 0) {
            return false;
        }
        _out << "\\" << EOL;
        if (next == '%') {
            putOctal(next, _out);
        }
        return next == '%';
    }

private:
    QsdPSWriter& _out;
    std::size_t _length;
};

/// A control character in a line that stays one. The interpreter takes each kind of line end for a line feed.
void putControl(const unsigned char* text, std::size_t i, std::size_t length, QsdPSWriter& out)
{
    if (text[i] == '\n' || (text[i] == '\r' && !(i + 1 < length && text[i + 1] == '\n'))) {
        out << "\\n";
    } else if (text[i] != '\r') {
        putOctal(text[i], out);
    }
}

void writeOctal(const unsigned char* text, std::size_t length, QsdPSWriter& out, Lines lines)
{
    for (std::size_t i = 0; i < length; ++i) {
        lines.makeRoom(0);
        putOctal(text[i], out);
    }
}

void writeSingleByte(const unsigned char* text, std::size_t length, QsdPSWriter& out, Lines lines)
{
    const std::array<bool, 256>& plain = lines.areShort() ? PrintableBytes : PlainBytes;
    for (std::size_t i = 0; i < length;) {
        if (lines.makeRoom(text[i])) {
            ++i;
            continue;
        }
        const std::size_t first = i;
        const std::size_t end = first + std::min(length - first, lines.room());
        while (i < end && plain[text[i]]) {
            ++i;
        }
        out << std::string_view(reinterpret_cast<const char*>(text) + first, i - first);
        if (i == end) {
            continue;
        }
        if (needsBackslash(text[i])) {
            out << "\\";
            putByte(text[i], out);
        } else if (isControl(text[i])) {
            putControl(text, i, length, out);
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

void writeEUC(const unsigned char* text, std::size_t length, QsdPSWriter& out, Lines lines)
{
    Run run = Run::SingleByte;
    bool shifted = false;
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned char byte = text[i];
        if (lines.makeRoom(run == Run::SingleByte ? byte : 0)) {
            shifted = false;
            continue;
        }
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
            if (lines.areShort() && isControl(byte)) {
                putControl(text, i, length, out);
            } else {
                putByte(byte, out);
            }
            break;
        }
        shifted = false;
    }
}

} // namespace

void QsdPSWriteStringBody(QsdPSWriter& out, const char* text, int length, const QsdPSLineLength& lines)
{
    if (length == 0 || text == nullptr || *text == '\0') {
        return;
    }
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text);
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    switch (CurrentEncoding) {
    case QsEncodingShiftJIS:
        writeOctal(bytes, count, out, Lines(out, lines));
        break;
    case QsEncodingEUCJP:
        writeEUC(bytes, count, out, Lines(out, lines));
        break;
    default:
        writeSingleByte(bytes, count, out, Lines(out, lines));
        break;
    }
}

void WriteOutPSString(const char* text, std::ostream* out, int length)
{
    QsdPSWriter writer(out);
    QsdPSWriteStringBody(writer, text, length, QsdPSAnyLength);
    // A stream that is told to throw when it fails does so here, not where the writer goes.
    writer.commit();
}
