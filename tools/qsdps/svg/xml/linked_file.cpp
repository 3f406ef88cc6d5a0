#include "svg/xml/linked_file.h"

#include "values/scanner.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace qsdps::svg {
namespace {

namespace fs = std::filesystem;

int hexValue(char c)
{
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = toLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string percentDecoded(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape =
            text[i] == '%' && i + 2 < text.size() && hexValue(text[i + 1]) >= 0 && hexValue(text[i + 2]) >= 0;
        if (escape) {
            out.push_back(static_cast<char>(hexValue(text[i + 1]) * 16 + hexValue(text[i + 2])));
            i += 2;
        } else {
            out.push_back(text[i]);
        }
    }
    return out;
}

int base64Value(char c)
{
    if (c >= 'A' && c <= 'Z') {
        return c - 'A';
    }
    if (c >= 'a' && c <= 'z') {
        return c - 'a' + 26;
    }
    if (isDigit(c)) {
        return c - '0' + 52;
    }
    if (c == '+' || c == '-') {
        return 62;
    }
    if (c == '/' || c == '_') {
        return 63;
    }
    return -1;
}

/// Line breaks and other characters that do not belong are passed over.
std::string base64Decoded(std::string_view text)
{
    std::string out;
    out.reserve(text.size() / 4 * 3);
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        if (c == '=') {
            break;
        }
        const int value = base64Value(c);
        if (value < 0) {
            continue;
        }
        bits = bits << 6 | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            out.push_back(static_cast<char>(bits >> count & 0xFF));
        }
    }
    return out;
}

std::optional<LinkedFile> fromDataUri(std::string_view uri)
{
    const std::size_t comma = uri.find(',');
    if (comma == uri.npos) {
        return {};
    }
    const std::string_view type = trim(uri.substr(0, comma));
    const std::string_view body = uri.substr(comma + 1);
    if (type.ends_with("base64")) {
        return LinkedFile{base64Decoded(body.find('%') == body.npos ? body : percentDecoded(body)), "data URI"};
    }
    return LinkedFile{percentDecoded(body), "data URI"};
}

bool isInside(const fs::path& file, const fs::path& folder)
{
    const auto [inFolder, inFile] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
    return inFolder == folder.end() && inFile != file.end();
}

std::optional<LinkedFile> fromFile(const std::string& name, const fs::path& baseFolder, std::size_t limit)
{
    std::error_code error;
    const fs::path folder = fs::canonical(baseFolder, error);
    if (error) {
        return {};
    }
    // Links are followed before the comparison, so that none leads outside.
    const fs::path file = fs::canonical(folder / name, error);
    if (error || !isInside(file, folder) || !fs::is_regular_file(file, error)) {
        return {};
    }
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > limit) {
        return {};
    }
    LinkedFile linked{std::string(static_cast<std::size_t>(size), '\0'), name};
    std::ifstream in(file, std::ios::binary);
    in.read(linked.data.data(), static_cast<std::streamsize>(size));
    linked.data.resize(static_cast<std::size_t>(in.gcount()));
    return linked;
}

} // namespace

std::optional<LinkedFile> readLinked(std::string_view href, const fs::path& baseFolder, std::size_t limit)
{
    if (equalsNoCase(href.substr(0, 5), "data:")) {
        if (href.size() > limit) {
            return {};
        }
        return fromDataUri(href.substr(5));
    }
    if (baseFolder.empty() || href.empty()) {
        return {};
    }
    constexpr std::string_view FileScheme = "file://";
    if (href.starts_with(FileScheme)) {
        href.remove_prefix(FileScheme.size());
    } else if (href.find("://") != href.npos) {
        return {};
    }
    const std::string name = percentDecoded(href.substr(0, href.find('#')));
    // A NUL would end the name early for the file system.
    if (name.empty() || name.find('\0') != name.npos) {
        return {};
    }
    return fromFile(name, baseFolder, limit);
}

} // namespace qsdps::svg
