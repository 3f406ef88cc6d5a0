// The toolkit's string value.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

/// A string of bytes owned by value. A QsString made of a null pointer is empty.
class QSD_API QsString {
public:
    QsString() = default;
    /// Copies the zero-terminated `text`; null gives an empty string.
    QsString(const char* text);
    /// Copies `text`.
    QsString(std::string_view text);

    /// The bytes, zero-terminated; valid until the string changes. Never null.
    [[nodiscard]] const char* c_str() const { return _text.c_str(); }
    /// The bytes without the terminating zero; valid until the string changes.
    [[nodiscard]] std::string_view view() const { return _text; }
    /// Number of bytes before the terminating zero.
    [[nodiscard]] std::size_t length() const { return _text.size(); }
    /// Whether there are no bytes.
    [[nodiscard]] bool isEmpty() const { return _text.empty(); }

    /// Appends `text`.
    QsString& operator+=(std::string_view text);

    /// Equality of the bytes.
    friend bool operator==(const QsString&, const QsString&) = default;

private:
    std::string _text;
};

/// Writes the bytes of `text` as they are.
QSD_API std::ostream& operator<<(std::ostream& out, const QsString& text);
