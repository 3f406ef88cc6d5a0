#include "svg/css/sheet_loader.h"

#include "svg/css/css_media.h"
#include "svg/css/css_parser.h"
#include "svg/xml/encoding.h"
#include "svg/xml/linked_file.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

constexpr std::size_t MaxFiles = 100;
constexpr std::size_t MaxDepth = 16;
constexpr std::size_t MaxBytes = std::size_t{16} << 20; ///< of all files of a drawing
/// Different messages kept; a hostile sheet must not make them grow without end.
constexpr std::size_t MaxMessages = 100;

bool isCss(std::string_view type)
{
    type = trim(type.substr(0, type.find(';')));
    return type.empty() || equalsNoCase(type, "text/css");
}

/// The value of name="value" in the content of a processing instruction.
std::string_view pseudoAttribute(std::string_view content, std::string_view name)
{
    Scanner scanner(content);
    scanner.skipSpace();
    while (!scanner.atEnd()) {
        const std::string_view found = scanner.word();
        scanner.skipSpace();
        if (!scanner.take('=')) {
            return {};
        }
        scanner.skipSpace();
        const char quote = scanner.peek();
        if (quote != '"' && quote != '\'') {
            return {};
        }
        scanner.advance();
        const std::string_view value = scanner.upTo(quote);
        if (found == name) {
            return trim(value);
        }
        scanner.skipSpace();
    }
    return {};
}

bool isRelative(std::string_view href)
{
    const std::size_t mark = href.find_first_of(":/?#");
    return mark == href.npos || href[mark] != ':';
}

} // namespace

void SheetLoader::addElement(const std::string& text, std::string_view type, std::string_view media, int line)
{
    _line = line;
    if (!isCss(type)) {
        tell("style element skipped: its type is " + quotedForMessage(type), {});
    } else if (mediaApplies(media, [&](const std::string& what) { tell(what, {}); })) {
        addText(text, {});
    }
}

void SheetLoader::addInstruction(std::string_view content, int line)
{
    _line = line;
    const std::string_view type = pseudoAttribute(content, "type");
    const std::string_view href = pseudoAttribute(content, "href");
    // Alternate sheets are for readers who choose them.
    if (pseudoAttribute(content, "alternate") == "yes") {
        return;
    }
    if (!isCss(type)) {
        tell("style sheet " + quotedForMessage(href) + " skipped: its type is " + quotedForMessage(type), {});
    } else if (mediaApplies(pseudoAttribute(content, "media"), [&](const std::string& what) { tell(what, {}); })) {
        addFile(href, {});
    }
}

void SheetLoader::addFile(std::string_view href, const Source& from)
{
    const bool relative = !href.starts_with('/') && isRelative(href);
    const auto skip = [&](const std::string& why) {
        tell("style sheet " + quotedForMessage(href) + " not read: " + why, from);
    };
    if (relative && !from.folder) {
        return skip("a data URI has nothing beside it");
    }
    const std::string target = (relative ? *from.folder : std::string()) + std::string(href);
    if (_open.size() == MaxDepth) {
        return skip("imports nest too deep");
    }
    if (_files == MaxFiles) {
        return skip("there are more than " + std::to_string(MaxFiles));
    }
    ++_files;
    auto file = readLinked(target, _baseFolder, MaxBytes - _bytesRead);
    if (!file) {
        return skip("no such file beside the drawing or below, or too large");
    }
    const std::string name = std::filesystem::path(file->name).lexically_normal().string();
    const bool isData = equalsNoCase(std::string_view(target).substr(0, 5), "data:");
    Source source{name, target.substr(0, target.rfind('/') + 1)};
    if (isData) {
        source.folder.reset();
    }
    if (!isData && std::find(_open.begin(), _open.end(), name) != _open.end()) {
        return skip("it imports itself");
    }
    _bytesRead += file->data.size();
    _open.push_back(name);
    addText(toUtf8(std::move(file->data)), source);
    _open.pop_back();
}

void SheetLoader::addText(std::string_view text, const Source& source)
{
    StyleSheet sheet =
        parseStyleSheet(_sheets.keep(withoutComments(text)), [&](const std::string& what) { tell(what, source); });
    for (const std::string_view href : sheet.imports) {
        addFile(href, source);
    }
    _sheets.add(std::move(sheet.rules));
}

void SheetLoader::tell(const std::string& what, const Source& from)
{
    const std::string whole = from.name.empty() ? what : what + ", in " + quotedForMessage(from.name);
    const bool known = std::any_of(_messages.begin(), _messages.end(),
                                   [&](const SheetMessage& message) { return message.what == whole; });
    if (known || _messages.size() > MaxMessages) {
        return;
    }
    const bool full = _messages.size() == MaxMessages;
    _messages.push_back({full ? "further parts of style sheets skipped" : whole, _line});
}

} // namespace qsdps::svg
