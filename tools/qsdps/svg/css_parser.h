// Style sheets and style attributes as written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qsdps::svg {

struct Declaration {
    std::string_view name;
    std::string_view value; ///< trimmed, without "!important"
    bool important = false;
};

/// What [name], [name=value] and the like ask of an attribute.
struct AttributeTest {
    enum class Kind : unsigned char { Present, Equals, Word, Language, Prefix, Suffix, Contains };
    Kind kind = Kind::Present;
    std::string_view name;
    std::string_view value;
};

enum class Combinator : unsigned char { Descendant, Child };

/// A selector between two combinators, e.g. "rect.wide#first".
struct Compound {
    std::string_view tag; ///< empty: any
    std::string_view id;
    std::vector<std::string_view> classes;
    std::vector<AttributeTest> attributes;
    bool firstChild = false;
    Combinator before = Combinator::Descendant; ///< towards the compound on the left
};

struct Selector {
    std::vector<Compound> compounds;
    std::uint32_t specificity = 0;
};

/// Selectors with the declarations they share.
struct RuleSet {
    std::vector<Selector> selectors;
    std::vector<Declaration> declarations;
};

/// Appends the declarations of a style attribute or rule body; the views point into `text`.
void parseDeclarations(std::string_view text, std::vector<Declaration>& out);
/// Reads a style sheet without comments; at-rules and selectors that are not understood are passed over.
[[nodiscard]] std::vector<RuleSet> parseStyleSheet(std::string_view text);
/// The text without its comments and without the marks that hide it from old browsers.
[[nodiscard]] std::string withoutComments(std::string_view text);

} // namespace qsdps::svg
