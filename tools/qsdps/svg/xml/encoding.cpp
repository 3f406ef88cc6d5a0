#include "svg/xml/encoding.h"

#include "values/scanner.h"

#include <algorithm>
#include <array>

namespace qsdps::svg {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// What Windows-1252 has at 0x80 to 0x9F, where Latin-1 has control characters.
constexpr std::array<char16_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

unsigned byteAt(std::string_view s, std::size_t i)
{
    return static_cast<unsigned char>(s[i]);
}

std::string fromUtf16(std::string_view bytes, bool bigEndian)
{
    const auto unit = [&](std::size_t i) -> char32_t {
        const unsigned first = byteAt(bytes, i);
        const unsigned second = byteAt(bytes, i + 1);
        return bigEndian ? first << 8 | second : second << 8 | first;
    };
    std::string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t c = unit(i);
        if (c >= 0xD800 && c < 0xDC00 && i + 3 < bytes.size()) {
            const char32_t low = unit(i + 2);
            if (low >= 0xDC00 && low < 0xE000) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                i += 2;
            }
        }
        if (c != 0xFEFF) {
            appendUtf8(out, c);
        }
    }
    return out;
}

std::string fromWindows1252(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned c = byteAt(bytes, i);
        appendUtf8(out, c >= 0x80 && c < 0xA0 ? Windows1252[c - 0x80] : char32_t{c});
    }
    return out;
}

/// The encoding named in the XML declaration, in lower case.
std::string declaredEncoding(std::string_view bytes)
{
    if (!bytes.starts_with("<?xml")) {
        return {};
    }
    std::string_view declaration = bytes.substr(0, std::min<std::size_t>(bytes.find("?>"), 1000));
    const std::size_t at = declaration.find("encoding");
    if (at == declaration.npos) {
        return {};
    }
    Scanner scanner(declaration.substr(at + 8));
    scanner.skipSpace();
    if (!scanner.take('=')) {
        return {};
    }
    scanner.skipSpace();
    const char quote = scanner.peek();
    scanner.advance();
    std::string name(scanner.upTo(quote));
    std::transform(name.begin(), name.end(), name.begin(), toLower);
    return name;
}

} // namespace

void appendUtf8(std::string& out, char32_t c)
{
    if (c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
        c = Replacement;
    }
    const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

std::string toUtf8(std::string bytes)
{
    const std::string_view view = bytes;
    if (view.starts_with("\xEF\xBB\xBF")) {
        return bytes.substr(3);
    }
    using namespace std::string_view_literals;
    if (view.starts_with("\xFE\xFF"sv) || view.starts_with("\0<"sv)) {
        return fromUtf16(view, true);
    }
    if (view.starts_with("\xFF\xFE"sv) || view.starts_with("<\0"sv)) {
        return fromUtf16(view, false);
    }
    const std::string declared = declaredEncoding(view);
    if (declared == "iso-8859-1" || declared == "latin1" || declared == "iso8859-1" || declared == "windows-1252") {
        return fromWindows1252(view);
    }
    return bytes;
}

} // namespace qsdps::svg
