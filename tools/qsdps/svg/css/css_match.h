// Which rules of the style sheets apply to an element.
#pragma once

#include "svg/css/css_parser.h"
#include "svg/css/sibling_places.h"

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
    /// The element that :root stands for.
    void setRoot(const pugi::xml_node& root) { _root = root; }
    /// Keeps a text that rules point into.
    [[nodiscard]] std::string_view keep(std::string text) { return _texts.emplace_back(std::move(text)); }
    /// Adds rules behind the ones already there.
    void add(std::vector<RuleSet> rules);
    [[nodiscard]] bool empty() const { return _rules.empty(); }
    /// Appends the declarations that apply to the element, weakest first. What that costs is taken from `work`; when it
    /// comes to 0, some are missing.
    void collect(const pugi::xml_node& element, std::vector<const Declaration*>& out, std::size_t& work) const;

private:
    struct Rule {
        Selector selector;
        std::size_t set;
    };
    using Index = std::unordered_map<std::string_view, std::vector<std::size_t>>;

    void file(std::size_t rule);

    pugi::xml_node _root;
    std::deque<std::string> _texts;
    std::vector<RuleSet> _sets;
    std::vector<Rule> _rules;
    Index _byId;
    Index _byClass;
    Index _byTag;
    std::vector<std::size_t> _others;
    mutable SiblingPlaces _places; ///< counted when first asked for
};

} // namespace qsdps::svg
