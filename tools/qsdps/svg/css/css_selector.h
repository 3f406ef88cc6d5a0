// Selectors of style sheets as written.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qsdps::svg {

struct Selector;

/// What [name], [name=value] and the like ask of an attribute.
struct AttributeTest {
    enum class Kind : unsigned char { Present, Equals, Word, Language, Prefix, Suffix, Contains };
    Kind kind = Kind::Present;
    std::string_view name;
    std::string_view value;
};

/// What a pseudo-class asks of an element.
struct PseudoTest {
    enum class Kind : unsigned char { Root, Empty, Nth, Is, Not };
    Kind kind = Kind::Root;
    bool ofType = false;        ///< of Nth: counts the siblings of the same name only
    bool fromEnd = false;       ///< of Nth: counts from the last sibling
    std::int64_t step = 0;      ///< of Nth: the a of an+b
    std::int64_t offset = 1;    ///< of Nth: the b of an+b
    std::vector<Selector> list; ///< of Is and Not
};

enum class Combinator : unsigned char { Descendant, Child, NextSibling, LaterSibling };

/// A selector between two combinators, e.g. "rect.wide#first".
struct Compound {
    std::string_view tag; ///< empty: any
    std::string_view id;
    std::vector<std::string_view> classes;
    std::vector<AttributeTest> attributes;
    std::vector<PseudoTest> pseudos;
    Combinator before = Combinator::Descendant; ///< towards the compound on the left
};

/// How many ids, classes (with attributes and pseudo-classes) and names a selector has; the larger one wins.
using Specificity = std::array<std::uint32_t, 3>;

struct Selector {
    std::vector<Compound> compounds;
    Specificity specificity{};
};

/// Reads selectors apart by commas, whose views point into `text`. Nothing, with a reason in `fault`, when there is a
/// fault in any of them. A fault inside of :is() or :where() is told too, but takes only its own part away.
[[nodiscard]] std::optional<std::vector<Selector>> parseSelectors(std::string_view text, std::string& fault);

} // namespace qsdps::svg
