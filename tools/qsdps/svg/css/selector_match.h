// Whether a selector matches an element.
#pragma once

#include "svg/css/css_selector.h"
#include "svg/css/sibling_places.h"

#include <cstddef>
#include <string_view>

#include <pugixml.hpp>

namespace qsdps::svg {

/// True when `word` is one of the words of a list apart by white space.
[[nodiscard]] bool hasWord(std::string_view list, std::string_view word);

class SelectorMatcher {
public:
    /// Takes one from `work` for each comparison of an element, more where texts are long; nothing matches any more
    /// when it is used up.
    SelectorMatcher(const pugi::xml_node& root, SiblingPlaces& places, std::size_t& work)
        : _root(root), _places(places), _work(work)
    {
    }

    [[nodiscard]] bool matches(const Selector& selector, const pugi::xml_node& element);

private:
    /// Why a selector fails tells where else it needs no trying.
    enum class Outcome : unsigned char { Match, FailsHere, FailsForSiblings, Fails };

    [[nodiscard]] Outcome match(const Selector& selector, std::size_t last, const pugi::xml_node& element);
    [[nodiscard]] Outcome matchBefore(const Selector& selector, std::size_t last, const pugi::xml_node& element);
    [[nodiscard]] bool matches(const Compound& compound, const pugi::xml_node& element);
    [[nodiscard]] bool matches(const AttributeTest& test, const pugi::xml_node& element);
    [[nodiscard]] bool matches(const PseudoTest& test, const pugi::xml_node& element);
    [[nodiscard]] bool matchesPlace(const PseudoTest& test, const pugi::xml_node& element);

    void spend(std::size_t cost);

    pugi::xml_node _root;
    SiblingPlaces& _places;
    std::size_t& _work;
};

} // namespace qsdps::svg
