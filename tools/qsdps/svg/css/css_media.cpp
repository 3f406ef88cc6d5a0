#include "svg/css/css_media.h"

#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// Conditions inside of conditions; each level takes stack.
constexpr int MaxNesting = 16;

/// In the order of how much they hold, so that "and" is the least of two and "or" the most.
enum class Truth : unsigned char { No, Unknown, Yes };

Truth inverse(Truth truth)
{
    return truth == Truth::Unknown ? truth : truth == Truth::Yes ? Truth::No : Truth::Yes;
}

Truth feature(std::string_view text)
{
    const std::size_t colon = std::min(text.find(':'), text.size());
    if (!equalsNoCase(trim(text.substr(0, colon)), "prefers-color-scheme")) {
        return Truth::Unknown;
    }
    const std::string_view value = trim(text.substr(std::min(colon + 1, text.size())));
    if (equalsNoCase(value, "dark")) {
        return Truth::No;
    }
    return colon == text.size() || equalsNoCase(value, "light") ? Truth::Yes : Truth::Unknown;
}

class QueryReader {
public:
    explicit QueryReader(std::string_view text, int nesting = 0) : _scanner(trim(text)), _nesting(nesting) {}

    Truth query()
    {
        const Scanner start = _scanner;
        std::string_view word = nextWord();
        const bool negative = equalsNoCase(word, "not");
        if (negative || equalsNoCase(word, "only")) {
            word = nextWord();
        }
        if (word.empty()) {
            _scanner = start;
            return condition();
        }
        Truth truth = equalsNoCase(word, "all") || equalsNoCase(word, "print") ? Truth::Yes : Truth::No;
        while (!_scanner.atEnd()) {
            if (!equalsNoCase(nextWord(), "and")) {
                return Truth::Unknown;
            }
            truth = std::min(truth, part());
        }
        return negative ? inverse(truth) : truth;
    }

    Truth condition()
    {
        Truth truth = part();
        while (!_scanner.atEnd()) {
            const std::string_view word = nextWord();
            if (equalsNoCase(word, "and")) {
                truth = std::min(truth, part());
            } else if (equalsNoCase(word, "or")) {
                truth = std::max(truth, part());
            } else {
                return Truth::Unknown;
            }
        }
        return truth;
    }

private:
    std::string_view nextWord()
    {
        const std::string_view word = _scanner.word();
        _scanner.skipSpace();
        return word;
    }

    /// "(feature)", "(condition)" or either behind "not".
    Truth part()
    {
        const bool negative = equalsNoCase(nextWord(), "not");
        const std::string_view rest = _scanner.rest();
        if (!rest.starts_with('(') || _nesting == MaxNesting) {
            return Truth::Unknown;
        }
        const std::size_t size = bracketSize(rest);
        _scanner.advance(size);
        _scanner.skipSpace();
        const std::string_view inside = trim(rest.substr(1, size - 2));
        const bool nested = inside.starts_with('(') || equalsNoCase(inside.substr(0, 4), "not ");
        const Truth truth = nested ? QueryReader(inside, _nesting + 1).condition() : feature(inside);
        return negative ? inverse(truth) : truth;
    }

    Scanner _scanner;
    int _nesting;
};

} // namespace

bool mediaApplies(std::string_view queries, const SheetFault& tell)
{
    if (trim(queries).empty()) {
        return true;
    }
    std::string_view unknown;
    while (!queries.empty()) {
        const std::size_t comma = findOutside(queries, ",");
        const std::string_view query = trim(queries.substr(0, comma));
        queries.remove_prefix(std::min(queries.size(), comma + 1));
        const Truth truth = QueryReader(query).query();
        if (truth == Truth::Yes) {
            return true;
        }
        if (truth == Truth::Unknown && unknown.empty()) {
            unknown = query;
        }
    }
    if (!unknown.empty()) {
        tell("style sheet part skipped: media query " + quotedForMessage(unknown) + " is not known");
    }
    return false;
}

} // namespace qsdps::svg
