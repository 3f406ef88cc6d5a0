// Which rules of the style sheets apply to an element.
#pragma once

#include "svg/css_parser.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace qsdps::svg {

/// All style sheets of a document, looked up by what an element must have for a rule to apply.
class StyleSheets {
public:
    /// Adds a sheet behind the ones already there; keeps a copy of the text.
    void add(std::string_view text);
    [[nodiscard]] bool empty() const { return _rules.empty(); }
    /// Appends the declarations that apply to the element, weakest first.
    void collect(const pugi::xml_node& element, std::vector<const Declaration*>& out) const;

private:
    struct Rule {
        Selector selector;
        std::size_t set;
    };
    using Index = std::unordered_map<std::string_view, std::vector<std::size_t>>;

    void file(std::size_t rule);

    std::deque<std::string> _texts;
    std::vector<RuleSet> _sets;
    std::vector<Rule> _rules;
    Index _byId;
    Index _byClass;
    Index _byTag;
    std::vector<std::size_t> _others;
};

} // namespace qsdps::svg
