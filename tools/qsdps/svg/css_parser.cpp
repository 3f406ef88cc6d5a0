#include "svg/css_parser.h"

#include "svg/scanner.h"

#include <algorithm>
#include <optional>

namespace qsdps::svg {
namespace {

/// A selector longer than this is not something a person wrote; matching relies on the bound.
constexpr std::size_t kMaxCompounds = 32;

/// Where `stop` comes first outside of quotes and parentheses; the size where it does not.
std::size_t findOutside(std::string_view text, char stop)
{
    char quote = '\0';
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != '\0') {
            if (c == quote)
                quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            depth = std::max(0, depth - 1);
        } else if (c == stop && depth == 0) {
            return i;
        }
    }
    return text.size();
}

bool isNameChar(char c)
{
    return isLetter(c) || isDigit(c) || c == '-' || c == '_' || (c & 0x80) != 0;
}

class SelectorParser {
public:
    explicit SelectorParser(std::string_view text) : _text(trim(text)) {}

    std::optional<Selector> run()
    {
        Selector selector;
        Combinator before = Combinator::Descendant;
        while (!_text.empty()) {
            auto compound = parseCompound(selector.specificity);
            if (!compound || selector.compounds.size() == kMaxCompounds)
                return {};
            compound->before = before;
            selector.compounds.push_back(std::move(*compound));
            _text = trim(_text);
            before = Combinator::Descendant;
            if (_text.starts_with('>')) {
                before = Combinator::Child;
                _text = trim(_text.substr(1));
                if (_text.empty())
                    return {};
            }
        }
        if (selector.compounds.empty())
            return {};
        return selector;
    }

private:
    static constexpr std::uint32_t kTagWeight = 1;
    static constexpr std::uint32_t kClassWeight = 1 << 10;
    static constexpr std::uint32_t kIdWeight = 1 << 20;

    std::string_view name()
    {
        std::size_t n = 0;
        while (n < _text.size() && isNameChar(_text[n]))
            ++n;
        const std::string_view result = _text.substr(0, n);
        _text.remove_prefix(n);
        return result;
    }

    std::optional<Compound> parseCompound(std::uint32_t& specificity)
    {
        Compound compound;
        const std::size_t before = _text.size();
        if (_text.starts_with('*')) {
            _text.remove_prefix(1);
        } else if (isNameChar(_text.front())) {
            compound.tag = name();
            specificity += kTagWeight;
        }
        while (!_text.empty() && std::string_view(".#[:").find(_text.front()) != std::string_view::npos) {
            const char mark = _text.front();
            _text.remove_prefix(1);
            if (!parsePart(mark, compound))
                return {};
            specificity += mark == '#' ? kIdWeight : kClassWeight;
        }
        if (_text.size() == before)
            return {};
        return compound;
    }

    bool parsePart(char mark, Compound& compound)
    {
        if (mark == '[')
            return parseAttribute(compound);
        const std::string_view part = name();
        if (part.empty())
            return false;
        if (mark == '.')
            compound.classes.push_back(part);
        else if (mark == '#')
            compound.id = part;
        else
            compound.firstChild = part == "first-child";
        return mark != ':' || compound.firstChild;
    }

    bool parseAttribute(Compound& compound)
    {
        const std::size_t end = findOutside(_text, ']');
        if (end == _text.size())
            return false;
        std::string_view body = _text.substr(0, end);
        _text.remove_prefix(end + 1);
        AttributeTest test;
        const std::size_t equals = body.find('=');
        if (equals == body.npos) {
            test.name = trim(body);
            compound.attributes.push_back(test);
            return !test.name.empty();
        }
        test.value = trim(body.substr(equals + 1));
        if (test.value.size() >= 2 && (test.value.front() == '"' || test.value.front() == '\''))
            test.value = test.value.substr(1, test.value.size() - 2);
        body = body.substr(0, equals);
        test.kind = AttributeTest::Kind::Equals;
        constexpr std::string_view kMarks = "~|^$*";
        const std::size_t mark = body.empty() ? kMarks.npos : kMarks.find(body.back());
        if (mark != kMarks.npos) {
            constexpr AttributeTest::Kind kKinds[] = {AttributeTest::Kind::Word, AttributeTest::Kind::Language,
                                                      AttributeTest::Kind::Prefix, AttributeTest::Kind::Suffix,
                                                      AttributeTest::Kind::Contains};
            test.kind = kKinds[mark];
            body.remove_suffix(1);
        }
        test.name = trim(body);
        compound.attributes.push_back(test);
        return !test.name.empty();
    }

    std::string_view _text;
};

/// Behind the block that begins at the first '{'; nested blocks are passed over with it.
std::size_t blockEnd(std::string_view text)
{
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '{')
            ++depth;
        else if (text[i] == '}' && --depth <= 0)
            return i + 1;
    }
    return text.size();
}

/// Behind an at-rule, which ends with a semicolon or with its block.
std::size_t atRuleEnd(std::string_view text)
{
    const std::size_t stop = text.find_first_of("{;");
    if (stop == text.npos)
        return text.size();
    return text[stop] == ';' ? stop + 1 : blockEnd(text);
}

std::vector<Selector> parseSelectors(std::string_view text)
{
    std::vector<Selector> selectors;
    while (!text.empty()) {
        const std::size_t comma = findOutside(text, ',');
        if (auto selector = SelectorParser(text.substr(0, comma)).run())
            selectors.push_back(std::move(*selector));
        text.remove_prefix(std::min(text.size(), comma + 1));
    }
    return selectors;
}

} // namespace

void parseDeclarations(std::string_view text, std::vector<Declaration>& out)
{
    while (!text.empty()) {
        const std::size_t end = findOutside(text, ';');
        const std::string_view item = text.substr(0, end);
        text.remove_prefix(std::min(text.size(), end + 1));
        const std::size_t colon = item.find(':');
        if (colon == item.npos)
            continue;
        Declaration declaration{trim(item.substr(0, colon)), trim(item.substr(colon + 1))};
        const std::size_t mark = declaration.value.rfind('!');
        if (mark != item.npos && equalsNoCase(trim(declaration.value.substr(mark + 1)), "important")) {
            declaration.value = trim(declaration.value.substr(0, mark));
            declaration.important = true;
        }
        out.push_back(declaration);
    }
}

std::vector<RuleSet> parseStyleSheet(std::string_view text)
{
    std::vector<RuleSet> rules;
    for (text = trim(text); !text.empty(); text = trim(text)) {
        if (text.front() == '@') {
            text.remove_prefix(atRuleEnd(text));
            continue;
        }
        const std::size_t open = text.find('{');
        if (open == text.npos)
            break;
        const std::size_t close = std::min(text.find('}', open), text.size());
        RuleSet rule;
        rule.selectors = parseSelectors(text.substr(0, open));
        parseDeclarations(text.substr(open + 1, close - open - 1), rule.declarations);
        if (!rule.selectors.empty())
            rules.push_back(std::move(rule));
        text.remove_prefix(std::min(text.size(), close + 1));
    }
    return rules;
}

std::string withoutComments(std::string_view text)
{
    text = trim(text);
    if (text.starts_with("<!--"))
        text.remove_prefix(4);
    if (text.ends_with("-->"))
        text.remove_suffix(3);
    std::string out;
    while (true) {
        const std::size_t open = text.find("/*");
        out.append(text.substr(0, open));
        if (open == text.npos)
            return out;
        const std::size_t close = text.find("*/", open + 2);
        if (close == text.npos)
            return out;
        text.remove_prefix(close + 2);
    }
}

} // namespace qsdps::svg
