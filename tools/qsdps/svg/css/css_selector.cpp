#include "svg/css/css_selector.h"

#include "values/css_text.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// A selector longer than this is not something a person wrote; matching takes stack for each compound.
constexpr std::size_t MaxCompounds = 32;
/// What a compound may ask for; each costs time wherever it is compared.
constexpr std::size_t MaxParts = 64;
/// Selectors inside of :not() and :is(), each level of which takes stack too.
constexpr int MaxNesting = 8;

std::optional<std::vector<Selector>> parseList(std::string_view text, int nesting, std::string& fault, bool forgiving);

/// The whole number at the front, which the text loses; large ones are cut, since no element has that many siblings.
std::int64_t takeWhole(std::string_view& text)
{
    constexpr std::int64_t Largest = 1'000'000'000;
    std::int64_t value = 0;
    while (!text.empty() && isDigit(text.front())) {
        value = std::min(Largest, value * 10 + (text.front() - '0'));
        text.remove_prefix(1);
    }
    return value;
}

/// The sign at the front, which the text loses; 0 where there is none.
int takeSign(std::string_view& text)
{
    if (text.empty() || (text.front() != '+' && text.front() != '-')) {
        return 0;
    }
    const int sign = text.front() == '-' ? -1 : 1;
    text.remove_prefix(1);
    return sign;
}

bool startsWithDigit(std::string_view text)
{
    return !text.empty() && isDigit(text.front());
}

/// "odd", "even", "3" or "an+b".
bool parseNth(std::string_view text, PseudoTest& test)
{
    text = trim(text);
    if (equalsNoCase(text, "odd") || equalsNoCase(text, "even")) {
        test.step = 2;
        test.offset = toLower(text.front()) == 'o' ? 1 : 0;
        return true;
    }
    const int sign = takeSign(text);
    const bool counted = startsWithDigit(text);
    const std::int64_t first = (sign < 0 ? -1 : 1) * (counted ? takeWhole(text) : 1);
    if (text.empty() || toLower(text.front()) != 'n') {
        test.step = 0;
        test.offset = first;
        return counted && text.empty();
    }
    text = trim(text.substr(1));
    test.step = first;
    test.offset = 0;
    if (text.empty()) {
        return true;
    }
    const int offsetSign = takeSign(text);
    text = trim(text);
    if (offsetSign == 0 || !startsWithDigit(text)) {
        return false;
    }
    test.offset = offsetSign * takeWhole(text);
    return text.empty();
}

struct SimplePseudo {
    std::string_view name;
    PseudoTest::Kind kind;
    bool ofType = false;
    bool first = false; ///< of Nth: nothing of the kind stands before
    bool last = false;  ///< of Nth: nothing of the kind stands behind
};

constexpr SimplePseudo SimplePseudos[] = {
    {"root", PseudoTest::Kind::Root},
    {"empty", PseudoTest::Kind::Empty},
    {"first-child", PseudoTest::Kind::Nth, false, true, false},
    {"last-child", PseudoTest::Kind::Nth, false, false, true},
    {"only-child", PseudoTest::Kind::Nth, false, true, true},
    {"first-of-type", PseudoTest::Kind::Nth, true, true, false},
    {"last-of-type", PseudoTest::Kind::Nth, true, false, true},
    {"only-of-type", PseudoTest::Kind::Nth, true, true, true},
};

struct CountingPseudo {
    std::string_view name;
    bool ofType = false;
    bool fromEnd = false;
};

constexpr CountingPseudo CountingPseudos[] = {
    {"nth-child"},
    {"nth-last-child", false, true},
    {"nth-of-type", true, false},
    {"nth-last-of-type", true, true},
};

void add(Specificity& to, const Specificity& more)
{
    for (std::size_t i = 0; i < to.size(); ++i) {
        to[i] += more[i];
    }
}

class SelectorParser {
public:
    SelectorParser(std::string_view text, int nesting, std::string& fault)
        : _whole(trim(text)), _text(_whole), _nesting(nesting), _fault(fault)
    {
    }

    std::optional<Selector> run()
    {
        Combinator before = Combinator::Descendant;
        while (!_text.empty()) {
            auto compound = parseCompound();
            if (!compound) {
                return {};
            }
            if (_selector.compounds.size() == MaxCompounds) {
                return fail("is too long", _whole);
            }
            compound->before = before;
            _selector.compounds.push_back(std::move(*compound));
            before = takeCombinator();
        }
        if (_selector.compounds.empty() || before != Combinator::Descendant) {
            return fail("is not understood", _whole);
        }
        return std::move(_selector);
    }

private:
    /// Keeps the first reason.
    std::nullopt_t fail(std::string_view reason, std::string_view part)
    {
        if (_fault.empty()) {
            _fault = "selector " + quotedForMessage(part) + " " + std::string(reason);
        }
        return std::nullopt;
    }

    std::string_view name()
    {
        std::size_t n = 0;
        while (n < _text.size() && isNameChar(_text[n])) {
            ++n;
        }
        const std::string_view result = _text.substr(0, n);
        _text.remove_prefix(n);
        return result;
    }

    Combinator takeCombinator()
    {
        _text = trim(_text);
        const char mark = _text.empty() ? '\0' : _text.front();
        if (mark != '>' && mark != '+' && mark != '~') {
            return Combinator::Descendant;
        }
        _text = trim(_text.substr(1));
        return mark == '>' ? Combinator::Child : mark == '+' ? Combinator::NextSibling : Combinator::LaterSibling;
    }

    std::optional<Compound> parseCompound()
    {
        Compound compound;
        const std::size_t before = _text.size();
        if (_text.starts_with('*')) {
            _text.remove_prefix(1);
        } else if (isNameChar(_text.front())) {
            compound.tag = name();
            add(_selector.specificity, {0, 0, 1});
        }
        while (!_text.empty() && std::string_view(".#[:").find(_text.front()) != std::string_view::npos) {
            const char mark = _text.front();
            if (compound.classes.size() + compound.attributes.size() + compound.pseudos.size() >= MaxParts) {
                return fail("is too long", _whole);
            }
            _text.remove_prefix(1);
            if (!parsePart(mark, compound)) {
                return fail("is not understood", _whole);
            }
        }
        constexpr std::string_view Ends = " \t\r\n\f>+~";
        if (_text.size() == before || (!_text.empty() && Ends.find(_text.front()) == Ends.npos)) {
            return fail("is not understood", _whole);
        }
        return compound;
    }

    bool parsePart(char mark, Compound& compound)
    {
        if (mark == ':') {
            return parsePseudo(compound);
        }
        add(_selector.specificity, mark == '#' ? Specificity{1, 0, 0} : Specificity{0, 1, 0});
        if (mark == '[') {
            return parseAttribute(compound);
        }
        const std::string_view part = name();
        if (mark == '.') {
            compound.classes.push_back(part);
        } else if (compound.id.empty()) {
            compound.id = part;
        } else {
            compound.attributes.push_back({AttributeTest::Kind::Equals, "id", part});
        }
        return !part.empty();
    }

    bool parsePseudo(Compound& compound)
    {
        const std::string_view start = _text;
        if (_text.starts_with(':')) {
            _text.remove_prefix(1);
        }
        const std::string_view pseudo = name();
        const bool element = start.starts_with(':');
        std::string_view arguments;
        const bool call = _text.starts_with('(');
        if (call) {
            const std::size_t size = bracketSize(_text);
            if (_text[size - 1] != ')') {
                return false;
            }
            arguments = _text.substr(1, size - 2);
            _text.remove_prefix(size);
        }
        const bool known = !element && (call ? parseCall(pseudo, arguments, compound) : parseSimple(pseudo, compound));
        if (known) {
            return true;
        }
        fail("is not known", {start.data() - 1, static_cast<std::size_t>(_text.data() - start.data()) + 1});
        return false;
    }

    bool parseSimple(std::string_view pseudo, Compound& compound)
    {
        const auto* found = std::find_if(std::begin(SimplePseudos), std::end(SimplePseudos),
                                         [&](const SimplePseudo& known) { return equalsNoCase(pseudo, known.name); });
        if (found == std::end(SimplePseudos)) {
            return false;
        }
        add(_selector.specificity, {0, 1, 0});
        PseudoTest test;
        test.kind = found->kind;
        test.ofType = found->ofType;
        if (test.kind != PseudoTest::Kind::Nth || found->first) {
            compound.pseudos.push_back(test);
        }
        test.fromEnd = true;
        if (found->last) {
            compound.pseudos.push_back(test);
        }
        return true;
    }

    bool parseCall(std::string_view pseudo, std::string_view arguments, Compound& compound)
    {
        PseudoTest test;
        for (const CountingPseudo& counting : CountingPseudos) {
            if (!equalsNoCase(pseudo, counting.name)) {
                continue;
            }
            test.kind = PseudoTest::Kind::Nth;
            test.ofType = counting.ofType;
            test.fromEnd = counting.fromEnd;
            add(_selector.specificity, {0, 1, 0});
            compound.pseudos.push_back(test);
            return parseNth(arguments, compound.pseudos.back());
        }
        const bool negative = equalsNoCase(pseudo, "not");
        const bool weightless = equalsNoCase(pseudo, "where");
        if (!negative && !weightless && !equalsNoCase(pseudo, "is")) {
            return false;
        }
        auto list = parseList(arguments, _nesting + 1, _fault, !negative);
        if (!list) {
            return false;
        }
        test.kind = negative ? PseudoTest::Kind::Not : PseudoTest::Kind::Is;
        Specificity most{};
        for (const Selector& selector : *list) {
            most = std::max(most, selector.specificity);
        }
        if (!weightless) {
            add(_selector.specificity, most);
        }
        test.list = std::move(*list);
        compound.pseudos.push_back(std::move(test));
        return true;
    }

    bool parseAttribute(Compound& compound)
    {
        const std::size_t end = findOutside(_text, "]");
        if (end == _text.size()) {
            return false;
        }
        std::string_view body = trim(_text.substr(0, end));
        _text.remove_prefix(end + 1);
        AttributeTest test;
        const auto isName = [](std::string_view text) {
            return !text.empty() && std::all_of(text.begin(), text.end(), isNameChar);
        };
        if (const std::size_t equals = body.find('='); equals != body.npos) {
            const std::string_view written = trim(body.substr(equals + 1));
            const bool quoted = written.starts_with('"') || written.starts_with('\'');
            if (quoted ? written.size() < 2 || written.back() != written.front() : !isName(written)) {
                return false;
            }
            test.value = quoted ? written.substr(1, written.size() - 2) : written;
            body = body.substr(0, equals);
            test.kind = AttributeTest::Kind::Equals;
            constexpr std::string_view Marks = "~|^$*";
            const std::size_t mark = body.empty() ? Marks.npos : Marks.find(body.back());
            if (mark != Marks.npos) {
                constexpr AttributeTest::Kind Kinds[] = {AttributeTest::Kind::Word, AttributeTest::Kind::Language,
                                                         AttributeTest::Kind::Prefix, AttributeTest::Kind::Suffix,
                                                         AttributeTest::Kind::Contains};
                test.kind = Kinds[mark];
                body.remove_suffix(1);
            }
        }
        test.name = trim(body);
        compound.attributes.push_back(test);
        return isName(test.name);
    }

    std::string_view _whole;
    std::string_view _text;
    int _nesting;
    std::string& _fault;
    Selector _selector;
};

/// A forgiving list passes over selectors that it does not understand, and has the first of them in `fault`.
std::optional<std::vector<Selector>> parseList(std::string_view text, int nesting, std::string& fault, bool forgiving)
{
    if (nesting > MaxNesting) {
        fault = "selectors inside of selectors nest too deep";
        return {};
    }
    std::vector<Selector> selectors;
    bool more = true;
    while (more) {
        const std::size_t comma = findOutside(text, ",");
        more = comma < text.size();
        std::string ownFault;
        auto selector = SelectorParser(text.substr(0, comma), nesting, ownFault).run();
        text.remove_prefix(std::min(text.size(), comma + 1));
        if (!ownFault.empty() && fault.empty()) {
            fault = ownFault;
        }
        if (selector) {
            selectors.push_back(std::move(*selector));
        } else if (!forgiving) {
            return {};
        }
    }
    return selectors;
}

} // namespace

std::optional<std::vector<Selector>> parseSelectors(std::string_view text, std::string& fault)
{
    return parseList(text, 0, fault, false);
}

} // namespace qsdps::svg
