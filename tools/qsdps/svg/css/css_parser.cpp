#include "svg/css/css_parser.h"

#include "svg/css/css_media.h"
#include "values/scanner.h"

#include <algorithm>
#include <optional>
#include <string>

namespace qsdps::svg {
namespace {

/// @media inside of @media; each level takes stack.
constexpr int MaxNesting = 16;

std::optional<Declaration> parseDeclaration(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == text.npos) {
        return {};
    }
    Declaration declaration{trim(text.substr(0, colon)), trim(text.substr(colon + 1))};
    const std::size_t mark = declaration.value.rfind('!');
    if (mark != text.npos && equalsNoCase(trim(declaration.value.substr(mark + 1)), "important")) {
        declaration.value = trim(declaration.value.substr(0, mark));
        declaration.important = true;
    }
    return declaration;
}

class SheetParser {
public:
    explicit SheetParser(const SheetFault& tell) : _tell(tell) {}

    void parse(std::string_view text, int nesting)
    {
        for (text = trim(text); !text.empty(); text = trim(text)) {
            const bool at = text.front() == '@';
            const std::size_t open = findOutside(text, at ? "{;" : "{");
            const std::string_view prelude = trim(text.substr(0, open));
            text.remove_prefix(open);
            std::string_view block;
            if (text.starts_with('{')) {
                const std::size_t size = bracketSize(text);
                block = text.substr(1, size - (text[size - 1] == '}' && size > 1 ? 2 : 1));
                text.remove_prefix(size);
            } else if (!text.empty()) {
                text.remove_prefix(1);
            } else if (!at) {
                _tell("end of a style sheet skipped: no block follows " + quotedForMessage(prelude));
                return;
            }
            if (at) {
                atRule(prelude, block, nesting);
            } else {
                rule(prelude, block);
            }
        }
    }

    [[nodiscard]] StyleSheet finish() { return std::move(_sheet); }

private:
    void rule(std::string_view prelude, std::string_view block)
    {
        _atBeginning = false;
        std::string fault;
        RuleSet set;
        auto selectors = parseSelectors(prelude, fault);
        if (!selectors) {
            _tell("style sheet rule skipped: " + fault);
            return;
        }
        if (!fault.empty()) {
            _tell("part of :is() or :where() skipped: " + fault);
        }
        set.selectors = std::move(*selectors);
        parseDeclarations(block, set.declarations, _tell);
        _sheet.rules.push_back(std::move(set));
    }

    void atRule(std::string_view prelude, std::string_view block, int nesting)
    {
        std::size_t n = 1;
        while (n < prelude.size() && isNameChar(prelude[n])) {
            ++n;
        }
        const std::string_view name = prelude.substr(1, n - 1);
        const std::string_view rest = trim(prelude.substr(n));
        if (equalsNoCase(name, "import")) {
            import(rest);
        } else if (equalsNoCase(name, "media")) {
            _atBeginning = false;
            if (nesting == MaxNesting) {
                _tell("style sheet part skipped: '@media' nests too deep");
            } else if (mediaApplies(rest, _tell)) {
                parse(block, nesting + 1);
            }
        } else if (!equalsNoCase(name, "charset") && !namesSvg(name, rest)) {
            _tell("style sheet rule skipped: " + quotedForMessage(prelude.substr(0, n)) + " is not known");
        }
    }

    /// "@namespace url(http://www.w3.org/2000/svg)", which says what holds anyway.
    static bool namesSvg(std::string_view name, std::string_view rest)
    {
        if (!equalsNoCase(name, "namespace")) {
            return false;
        }
        const std::string_view url = takeUrl(rest);
        return (url.empty() ? unquoted(rest) : url) == "http://www.w3.org/2000/svg";
    }

    void import(std::string_view rest)
    {
        if (!_atBeginning) {
            _tell("'@import' skipped: it stands behind other rules");
            return;
        }
        const std::string_view written = rest;
        std::string_view target = takeUrl(rest);
        if (target.empty() && (rest.starts_with('"') || rest.starts_with('\''))) {
            const std::size_t end = rest.find(rest.front(), 1);
            target = trim(rest.substr(1, end - 1));
            rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
        }
        if (target.empty()) {
            _tell("'@import' skipped: " + quotedForMessage(written) + " is not understood");
        } else if (mediaApplies(rest, _tell)) {
            _sheet.imports.push_back(target);
        }
    }

    const SheetFault& _tell;
    StyleSheet _sheet;
    bool _atBeginning = true; ///< nothing but @import and @charset so far
};

} // namespace

void parseDeclarations(std::string_view text, std::vector<Declaration>& out, const SheetFault& tell)
{
    while (!text.empty()) {
        const bool custom = trim(text).starts_with("--");
        const std::size_t end = findOutside(text, custom ? ";" : ";{");
        const std::string_view item = text.substr(0, end);
        text.remove_prefix(end);
        if (text.starts_with('{')) {
            tell("style sheet rule skipped: " + quotedForMessage(item) + " stands inside of another rule");
            text.remove_prefix(bracketSize(text));
            continue;
        }
        text.remove_prefix(std::min<std::size_t>(text.size(), 1));
        if (const auto declaration = parseDeclaration(item)) {
            out.push_back(*declaration);
        }
    }
}

StyleSheet parseStyleSheet(std::string_view text, const SheetFault& tell)
{
    SheetParser parser(tell);
    parser.parse(text, 0);
    return parser.finish();
}

} // namespace qsdps::svg
