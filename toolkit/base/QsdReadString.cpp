#include "toolkit/base/QsdReadString.h"

#include "toolkit/base/QsMalloc.h"

#include <cstring>
#include <istream>
#include <string>

namespace {

constexpr std::size_t LengthLimit = 65535;

/// Hands out the bytes of the current line, one by one.
class LineBytes {
public:
    explicit LineBytes(std::istream& stream) : _stream(stream) {}

    /// The next byte without taking it; -1 at the end of the line or of the stream.
    [[nodiscard]] int peek()
    {
        const int c = _stream.peek();
        return c == '\n' || c == std::istream::traits_type::eof() ? -1 : c;
    }
    void take() { _stream.get(); }

private:
    std::istream& _stream;
};

bool isBlank(int c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

bool isOctal(int c)
{
    return c >= '0' && c <= '7';
}

/// The byte that an escape stands for; the backslash is taken already, and there is a byte behind it.
char readEscape(LineBytes& line)
{
    int c = line.peek();
    if (isOctal(c)) {
        int code = 0;
        for (int digits = 0; digits < 3 && isOctal(c); ++digits, c = line.peek()) {
            code = code * 8 + (c - '0');
            line.take();
        }
        return static_cast<char>(code);
    }
    line.take();
    switch (c) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return static_cast<char>(c);
    }
}

void keep(std::string& text, char c)
{
    if (text.size() < LengthLimit) {
        text.push_back(c);
    }
}

std::string readQuoted(LineBytes& line)
{
    std::string text;
    for (int c = line.peek(); c != -1 && c != '"'; c = line.peek()) {
        line.take();
        if (c == '\\' && line.peek() != -1) {
            keep(text, readEscape(line));
        } else {
            keep(text, static_cast<char>(c));
        }
    }
    if (line.peek() == '"') {
        line.take();
    }
    return text;
}

std::string readWord(LineBytes& line)
{
    std::string text;
    for (int c = line.peek(); c != -1 && !isBlank(c); c = line.peek()) {
        line.take();
        keep(text, static_cast<char>(c));
    }
    return text;
}

} // namespace

char* QsdReadString(std::istream& stream)
{
    LineBytes line(stream);
    while (isBlank(line.peek())) {
        line.take();
    }
    std::string text;
    if (line.peek() == '"') {
        line.take();
        text = readQuoted(line);
    } else {
        text = readWord(line);
    }
    auto* const result = static_cast<char*>(QsMalloc(text.size() + 1));
    std::memcpy(result, text.c_str(), text.size() + 1);
    return result;
}
