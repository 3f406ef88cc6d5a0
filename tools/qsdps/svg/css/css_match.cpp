#include "svg/css/css_match.h"

#include "svg/css/selector_match.h"
#include "svg/xml/document.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// What it costs to read a declaration, in comparisons of an element with a selector.
std::size_t costOf(const Declaration& declaration)
{
    return 8 + declaration.value.size() / 8;
}

} // namespace

void StyleSheets::add(std::vector<RuleSet> rules)
{
    for (RuleSet& set : rules) {
        for (Selector& selector : set.selectors) {
            _rules.push_back({std::move(selector), _sets.size()});
            file(_rules.size() - 1);
        }
        set.selectors.clear();
        _sets.push_back(std::move(set));
    }
}

void StyleSheets::file(std::size_t rule)
{
    const Compound& last = _rules[rule].selector.compounds.back();
    if (!last.id.empty()) {
        _byId[last.id].push_back(rule);
    } else if (!last.classes.empty()) {
        _byClass[last.classes.front()].push_back(rule);
    } else if (!last.tag.empty()) {
        _byTag[last.tag].push_back(rule);
    } else {
        _others.push_back(rule);
    }
}

void StyleSheets::collect(const pugi::xml_node& element, std::vector<const Declaration*>& out, std::size_t& work) const
{
    std::vector<std::size_t> found;
    SelectorMatcher matcher(_root, _places, work);
    const auto choose = [&](const std::vector<std::size_t>& rules) {
        std::copy_if(rules.begin(), rules.end(), std::back_inserter(found),
                     [&](std::size_t rule) { return matcher.matches(_rules[rule].selector, element); });
    };
    const auto look = [&](const Index& index, std::string_view key) {
        const auto at = index.find(key);
        if (at != index.end()) {
            choose(at->second);
        }
    };
    choose(_others);
    look(_byTag, localName(element));
    Scanner classes(trim(attribute(element, "class")));
    while (!_byClass.empty() && !classes.atEnd()) {
        const std::string_view rest = classes.rest();
        const std::string_view word = rest.substr(0, rest.find_first_of(" \t\r\n\f"));
        look(_byClass, word);
        classes.advance(word.size());
        classes.skipSpace();
    }
    look(_byId, attribute(element, "id"));
    std::sort(found.begin(), found.end(), [&](std::size_t a, std::size_t b) {
        const Specificity& first = _rules[a].selector.specificity;
        const Specificity& second = _rules[b].selector.specificity;
        return first != second ? first < second : a < b;
    });
    for (const std::size_t rule : found) {
        for (const Declaration& declaration : _sets[_rules[rule].set].declarations) {
            const std::size_t cost = costOf(declaration);
            if (work <= cost) {
                work = 0;
                return;
            }
            work -= cost;
            out.push_back(&declaration);
        }
    }
}

} // namespace qsdps::svg
