#include "page/fonts.h"

#include <string_view>

namespace qsdps {

namespace {

struct FamilyName {
    std::string_view part; ///< what the name contains, in lower case
    const char* family;
};

/// Looked through in order: the first part that a name contains decides.
constexpr FamilyName FamilyNames[] = {
    {"symbol", "symbol"},       {"mono", "courier"},    {"courier", "courier"},   {"typewriter", "courier"},
    {"consol", "courier"},      {"fixed", "courier"},   {"terminal", "courier"},  {"cousine", "courier"},
    {"inconsolata", "courier"}, {"menlo", "courier"},   {"monaco", "courier"},    {"sans", "helvetica"},
    {"helvetica", "helvetica"}, {"arial", "helvetica"}, {"verdana", "helvetica"}, {"times", "times"},
    {"serif", "times"},         {"roman", "times"},     {"georgia", "times"},     {"garamond", "times"},
    {"palatino", "times"},      {"bookman", "times"},   {"schoolbook", "times"},  {"cambria", "times"},
    {"minion", "times"},        {"libertine", "times"}, {"charter", "times"},     {"baskerville", "times"},
    {"bodoni", "times"},        {"caslon", "times"},    {"didot", "times"},       {"tinos", "times"},
    {"antiqua", "times"},       {"cmr", "times"},       {"nimbus rom", "times"},  {"mincho", "times"},
};

std::string lowerCase(std::string_view text)
{
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return result;
}

} // namespace

const char* toolkitFamily(const std::vector<std::string>& families)
{
    for (const std::string& family : families) {
        const std::string name = lowerCase(family);
        for (const FamilyName& known : FamilyNames) {
            if (name.find(known.part) != std::string::npos) {
                return known.family;
            }
        }
    }
    return "helvetica";
}

const QsdFont* FontTable::get(const FontRequest& request, bool underlined, std::uint16_t size)
{
    constexpr int BoldFrom = 600;
    const auto style =
        static_cast<std::uint16_t>((request.weight >= BoldFrom ? QsdFontBold : 0) |
                                   (request.italic ? QsdFontItalic : 0) | (underlined ? QsdFontUnderlined : 0));
    const char* family = toolkitFamily(request.families);
    if (_encoding == QsEncodingEUCJP) {
        family = std::string_view(family) == "times" ? "fixed" : "gothic medium bbb";
    }
    if (_fonts.size() >= MostFonts) {
        _fonts.clear();
    }
    QsdHandle<const QsdFont>& entry = _fonts[{family, style, size}];
    if (!entry) {
        entry = QsdHandle<const QsdFont>::Adopt(_display.createFont(family, style, size));
    }
    return entry.get();
}

} // namespace qsdps
