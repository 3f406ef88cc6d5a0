#include "svg/xml/encoding.h"

#include "toolkit/base/QsdUtf8.h"
#include "values/iconv.h"
#include "values/scanner.h"
#include "values/utf8.h"

#include <algorithm>
#include <optional>

namespace qsdps::svg {
namespace {

/// The text in UTF-8, each unit that makes no character as U+FFFD, without byte order marks. Nothing where the C
/// library does not know the character set.
std::optional<std::string> fromUtf16(std::string_view bytes, const char* name)
{
    constexpr std::size_t UnitSize = 2;
    constexpr std::string_view Mark = "\xEF\xBB\xBF";
    const Iconv iconv(name, "UTF-8");
    if (!iconv.isOpen()) {
        return std::nullopt;
    }
    bytes = bytes.substr(0, bytes.size() / UnitSize * UnitSize);
    std::string text;
    while (!bytes.empty()) {
        bytes.remove_prefix(iconv.convert(bytes, text));
        if (!bytes.empty()) {
            appendUtf8(text, QsdReplacementCharacter);
            bytes.remove_prefix(UnitSize);
        }
    }
    std::string out;
    std::string_view rest = text;
    for (std::size_t at = rest.find(Mark); at != rest.npos; at = rest.find(Mark)) {
        out.append(rest.substr(0, at));
        rest.remove_prefix(at + Mark.size());
    }
    return out.append(rest);
}

/// The text in UTF-8; bytes that Windows-1252 lacks are the control characters of Latin-1. Nothing where the C library
/// does not know the character set.
std::optional<std::string> fromWindows1252(std::string_view bytes)
{
    const Iconv iconv("CP1252", "UTF-8");
    if (!iconv.isOpen()) {
        return std::nullopt;
    }
    std::string text;
    while (!bytes.empty()) {
        bytes.remove_prefix(iconv.convert(bytes, text));
        if (!bytes.empty()) {
            appendUtf8(text, static_cast<unsigned char>(bytes.front()));
            bytes.remove_prefix(1);
        }
    }
    return text;
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

std::string toUtf8(std::string bytes)
{
    const std::string_view view = bytes;
    if (view.starts_with("\xEF\xBB\xBF")) {
        return bytes.substr(3);
    }
    using namespace std::string_view_literals;
    if (view.starts_with("\xFE\xFF"sv) || view.starts_with("\0<"sv)) {
        return fromUtf16(view, "UTF-16BE").value_or(bytes);
    }
    if (view.starts_with("\xFF\xFE"sv) || view.starts_with("<\0"sv)) {
        return fromUtf16(view, "UTF-16LE").value_or(bytes);
    }
    const std::string declared = declaredEncoding(view);
    if (declared == "iso-8859-1" || declared == "latin1" || declared == "iso8859-1" || declared == "windows-1252") {
        return fromWindows1252(view).value_or(bytes);
    }
    return bytes;
}

} // namespace qsdps::svg
