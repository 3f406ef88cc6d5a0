// The one place where the device's numbers, separators and line ends are formatted.
#pragma once

#include "ps/QsdPSDigits_p.h"
#include "toolkit/base/QsdNumbers.h"
#include "toolkit/geometry/QsdPoint.h"

#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <string_view>

/// Ends a line and flushes the stream, as every line of a document does.
struct QsdPSLineEnd {};
inline constexpr QsdPSLineEnd EOL;

/// Collects text in a buffer of its own and hands it to the stream when it is full, at a line end, and when it goes.
/// Numbers do not pass through the stream's formatting, so its locale and flags do not matter. Let it go, or commit,
/// before anything else writes to the stream. A null stream discards everything.
class QsdPSWriter {
public:
    explicit QsdPSWriter(std::ostream* stream) : _stream(stream) {}
    QsdPSWriter(const QsdPSWriter&) = delete;
    QsdPSWriter& operator=(const QsdPSWriter&) = delete;
    ~QsdPSWriter()
    {
        // A stream may be told to throw when it fails; a destructor must not. The stream stays failed and says so
        // later.
        try {
            commit();
        } catch (...) {
        }
    }

    QsdPSWriter& operator<<(std::string_view text)
    {
        if (text.size() >= Size) {
            commit();
            write(text.data(), text.size());
            return *this;
        }
        reserve(text.size());
        // Of memcpy the compiler makes string instructions here, which take long to start.
        std::memmove(_buffer + _used, text.data(), text.size());
        _used += text.size();
        return *this;
    }

    /// An integer in plain decimal.
    template <class Integer>
    requires(std::integral<Integer> && sizeof(Integer) >= 2) QsdPSWriter& operator<<(Integer value)
    {
        reserve(NumberSize);
        _used = static_cast<std::size_t>(QsdPSPutInteger(_buffer + _used, value) - _buffer);
        return *this;
    }

    /// Six significant digits, in the shorter of the fixed and the exponent form, without trailing zeros. What is no
    /// finite number becomes 0, since interpreters know no word for it.
    QsdPSWriter& operator<<(double value)
    {
        if (!std::isfinite(value)) {
            value = 0;
        }
        reserve(NumberSize);
        _used = static_cast<std::size_t>(
            std::to_chars(_buffer + _used, _buffer + Size, value, std::chars_format::general, 6).ptr - _buffer);
        return *this;
    }

    /// Two integers with a separator between them.
    QsdPSWriter& operator<<(const QsdPoint& point)
    {
        reserve(2 * NumberSize);
        char* const second = QsdPSPutInteger(_buffer + _used, point.x);
        *second = *QsdSpc();
        _used = static_cast<std::size_t>(QsdPSPutInteger(second + 1, point.y) - _buffer);
        return *this;
    }

    QsdPSWriter& operator<<(QsdPSLineEnd)
    {
        *this << std::string_view("\n", 1);
        const std::size_t length = _used;
        _used = 0;
        writeLine(_buffer, length);
        return *this;
    }

    /// Characters of the line that this writer has begun; of a line longer than the buffer, those still in it.
    [[nodiscard]] std::size_t column() const { return _used; }
    /// Ends the line when it has reached a column.
    void breakLine(std::size_t column)
    {
        if (_used >= column) {
            *this << EOL;
        }
    }

    /// Hands everything collected to the stream.
    void commit()
    {
        if (_used != 0) {
            write(_buffer, _used);
            _used = 0;
        }
    }

private:
    static constexpr std::size_t Size = 512;
    static constexpr std::size_t NumberSize = QsdPSIntegerRoom;

    void reserve(std::size_t size)
    {
        if (Size - _used < size) {
            commit();
        }
    }
    void write(const char* text, std::size_t size);
    /// Writes and flushes.
    void writeLine(const char* text, std::size_t size);

    std::ostream* _stream;
    std::size_t _used = 0;
    char _buffer[Size];
};
