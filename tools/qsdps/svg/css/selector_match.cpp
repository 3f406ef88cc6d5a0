#include "svg/css/selector_match.h"

#include "svg/xml/document.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// Longer texts cost more than looking at an element.
constexpr std::size_t ShortText = 64;

pugi::xml_node previousElement(pugi::xml_node node)
{
    do {
        node = node.previous_sibling();
    } while (node && node.type() != pugi::node_element);
    return node;
}

/// The element around another; null for the outermost one.
pugi::xml_node parentElement(const pugi::xml_node& node)
{
    const pugi::xml_node parent = node.parent();
    return parent.type() == pugi::node_element ? parent : pugi::xml_node();
}

bool isEmpty(const pugi::xml_node& element)
{
    return std::none_of(element.children().begin(), element.children().end(), [](const pugi::xml_node& child) {
        return child.type() == pugi::node_element || child.type() == pugi::node_pcdata ||
               child.type() == pugi::node_cdata;
    });
}

} // namespace

bool hasWord(std::string_view list, std::string_view word)
{
    for (list = trim(list); !list.empty(); list = trim(list)) {
        const auto* end = std::find_if(list.begin(), list.end(), isSpace);
        const auto size = static_cast<std::size_t>(end - list.begin());
        if (list.substr(0, size) == word) {
            return true;
        }
        list.remove_prefix(size);
    }
    return false;
}

bool SelectorMatcher::matches(const Selector& selector, const pugi::xml_node& element)
{
    return match(selector, selector.compounds.size() - 1, element) == Outcome::Match;
}

SelectorMatcher::Outcome SelectorMatcher::match(const Selector& selector, std::size_t last,
                                                const pugi::xml_node& element)
{
    spend(1);
    if (_work == 0) {
        return Outcome::Fails;
    }
    if (!matches(selector.compounds[last], element)) {
        return Outcome::FailsHere;
    }
    return last == 0 ? Outcome::Match : matchBefore(selector, last, element);
}

SelectorMatcher::Outcome SelectorMatcher::matchBefore(const Selector& selector, std::size_t last,
                                                      const pugi::xml_node& element)
{
    switch (selector.compounds[last].before) {
    case Combinator::Descendant:
        for (auto outer = parentElement(element); outer; outer = parentElement(outer)) {
            const Outcome outcome = match(selector, last - 1, outer);
            if (outcome == Outcome::Match || outcome == Outcome::Fails) {
                return outcome;
            }
        }
        return Outcome::Fails;
    case Combinator::Child: {
        const pugi::xml_node parent = parentElement(element);
        if (!parent) {
            return Outcome::Fails;
        }
        const Outcome outcome = match(selector, last - 1, parent);
        return outcome == Outcome::Match || outcome == Outcome::Fails ? outcome : Outcome::FailsForSiblings;
    }
    case Combinator::NextSibling: {
        const pugi::xml_node sibling = previousElement(element);
        return sibling ? match(selector, last - 1, sibling) : Outcome::FailsForSiblings;
    }
    case Combinator::LaterSibling:
        for (auto sibling = previousElement(element); sibling; sibling = previousElement(sibling)) {
            const Outcome outcome = match(selector, last - 1, sibling);
            if (outcome != Outcome::FailsHere) {
                return outcome;
            }
        }
        return Outcome::FailsForSiblings;
    }
    return Outcome::Fails;
}

void SelectorMatcher::spend(std::size_t cost)
{
    _work -= std::min(_work, cost);
}

bool SelectorMatcher::matches(const Compound& compound, const pugi::xml_node& element)
{
    if (!compound.tag.empty() && compound.tag != localName(element)) {
        return false;
    }
    if (!compound.id.empty() && compound.id != element.attribute("id").value()) {
        return false;
    }
    const std::string_view classes = compound.classes.empty() ? "" : element.attribute("class").value();
    spend(compound.classes.size() * classes.size() / ShortText);
    return std::all_of(compound.classes.begin(), compound.classes.end(),
                       [&](std::string_view name) { return hasWord(classes, name); }) &&
           std::all_of(compound.attributes.begin(), compound.attributes.end(),
                       [&](const AttributeTest& test) { return matches(test, element); }) &&
           std::all_of(compound.pseudos.begin(), compound.pseudos.end(),
                       [&](const PseudoTest& test) { return matches(test, element); });
}

bool SelectorMatcher::matches(const AttributeTest& test, const pugi::xml_node& element)
{
    const pugi::xml_attribute attribute = element.attribute(std::string(test.name).c_str());
    if (!attribute) {
        return false;
    }
    const std::string_view value = attribute.value();
    spend((value.size() + 1) * (test.value.size() + 1) / ShortText);
    switch (test.kind) {
    case AttributeTest::Kind::Present:
        return true;
    case AttributeTest::Kind::Equals:
        return value == test.value;
    case AttributeTest::Kind::Word:
        return hasWord(value, test.value);
    case AttributeTest::Kind::Language:
        return value.starts_with(test.value) && (value.size() == test.value.size() || value[test.value.size()] == '-');
    case AttributeTest::Kind::Prefix:
        return !test.value.empty() && value.starts_with(test.value);
    case AttributeTest::Kind::Suffix:
        return !test.value.empty() && value.ends_with(test.value);
    case AttributeTest::Kind::Contains:
        return !test.value.empty() && value.find(test.value) != value.npos;
    }
    return false;
}

bool SelectorMatcher::matches(const PseudoTest& test, const pugi::xml_node& element)
{
    switch (test.kind) {
    case PseudoTest::Kind::Root:
        return element == _root;
    case PseudoTest::Kind::Empty:
        return isEmpty(element);
    case PseudoTest::Kind::Nth:
        return matchesPlace(test, element);
    case PseudoTest::Kind::Is:
    case PseudoTest::Kind::Not:
        break;
    }
    const bool any = std::any_of(test.list.begin(), test.list.end(),
                                 [&](const Selector& selector) { return matches(selector, element); });
    return any == (test.kind == PseudoTest::Kind::Is);
}

bool SelectorMatcher::matchesPlace(const PseudoTest& test, const pugi::xml_node& element)
{
    const SiblingPlace& found = _places.of(element);
    const std::int64_t place = test.ofType ? (test.fromEnd ? found.placeOfTypeFromEnd : found.placeOfType)
                                           : (test.fromEnd ? found.placeFromEnd : found.place);
    const std::int64_t distance = place - test.offset;
    if (test.step == 0) {
        return distance == 0;
    }
    return distance % test.step == 0 && distance / test.step >= 0;
}

} // namespace qsdps::svg
