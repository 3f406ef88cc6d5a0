#include "svg/css_match.h"

#include "svg/document.h"
#include "svg/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// Rules looked at for one element, and ancestors looked at for one rule; hostile sheets stop costing time here.
constexpr std::size_t kMaxCandidates = 2000;
constexpr std::size_t kMaxAncestors = 256;

/// Calls `visit` with every word of a list apart by white space until it gives true; true when one did.
template <typename Visitor>
bool anyWord(std::string_view list, Visitor visit)
{
    list = trim(list);
    while (!list.empty()) {
        std::size_t n = 0;
        while (n < list.size() && !isSpace(list[n]))
            ++n;
        if (visit(list.substr(0, n)))
            return true;
        list = trim(list.substr(n));
    }
    return false;
}

bool hasWord(std::string_view list, std::string_view word)
{
    return anyWord(list, [&](std::string_view w) { return w == word; });
}

bool matches(const AttributeTest& test, const pugi::xml_node& element)
{
    const pugi::xml_attribute attribute = element.attribute(std::string(test.name).c_str());
    if (!attribute)
        return false;
    const std::string_view value = attribute.value();
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

bool isFirstChild(pugi::xml_node element)
{
    while ((element = element.previous_sibling())) {
        if (element.type() == pugi::node_element)
            return false;
    }
    return true;
}

bool matches(const Compound& compound, const pugi::xml_node& element)
{
    if (!compound.tag.empty() && compound.tag != localName(element))
        return false;
    if (!compound.id.empty() && compound.id != attribute(element, "id"))
        return false;
    if (!compound.classes.empty()) {
        const std::string_view classes = attribute(element, "class");
        for (const std::string_view name : compound.classes) {
            if (!hasWord(classes, name))
                return false;
        }
    }
    for (const AttributeTest& test : compound.attributes) {
        if (!matches(test, element))
            return false;
    }
    return !compound.firstChild || isFirstChild(element);
}

/// Walks from the outermost ancestor inwards and keeps, as sets of bits, how far the selector has matched.
bool matches(const Selector& selector, const pugi::xml_node& element)
{
    const auto& compounds = selector.compounds;
    if (!matches(compounds.back(), element))
        return false;
    if (compounds.size() == 1)
        return true;
    std::vector<pugi::xml_node> line;
    for (pugi::xml_node node = element.parent(); node.type() == pugi::node_element && line.size() < kMaxAncestors;
         node = node.parent())
        line.push_back(node);
    const std::size_t inner = compounds.size() - 1;
    std::uint64_t onParent = 0;
    std::uint64_t onAncestor = 0;
    const auto reached = [&](std::size_t i) {
        if (i == 0)
            return true;
        const std::uint64_t before = compounds[i].before == Combinator::Child ? onParent : onAncestor;
        return (before >> (i - 1) & 1) != 0;
    };
    for (auto node = line.rbegin(); node != line.rend(); ++node) {
        std::uint64_t here = 0;
        for (std::size_t i = 0; i < inner; ++i) {
            if (reached(i) && matches(compounds[i], *node))
                here |= std::uint64_t{1} << i;
        }
        onAncestor |= here;
        onParent = here;
    }
    return reached(inner);
}

void append(const std::vector<std::size_t>& from, std::vector<std::size_t>& to)
{
    const std::size_t room = kMaxCandidates - std::min(kMaxCandidates, to.size());
    to.insert(to.end(), from.begin(), from.begin() + static_cast<std::ptrdiff_t>(std::min(room, from.size())));
}

} // namespace

void StyleSheets::add(std::string_view text)
{
    _texts.push_back(withoutComments(text));
    for (RuleSet& set : parseStyleSheet(_texts.back())) {
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
    if (!last.id.empty())
        _byId[last.id].push_back(rule);
    else if (!last.classes.empty())
        _byClass[last.classes.front()].push_back(rule);
    else if (!last.tag.empty())
        _byTag[last.tag].push_back(rule);
    else
        _others.push_back(rule);
}

void StyleSheets::collect(const pugi::xml_node& element, std::vector<const Declaration*>& out) const
{
    std::vector<std::size_t> candidates;
    const auto look = [&](const Index& index, std::string_view key) {
        const auto found = index.find(key);
        if (found != index.end())
            append(found->second, candidates);
    };
    append(_others, candidates);
    look(_byTag, localName(element));
    anyWord(attribute(element, "class"), [&](std::string_view word) {
        look(_byClass, word);
        return candidates.size() >= kMaxCandidates;
    });
    look(_byId, attribute(element, "id"));
    std::erase_if(candidates, [&](std::size_t rule) { return !matches(_rules[rule].selector, element); });
    std::sort(candidates.begin(), candidates.end(), [&](std::size_t a, std::size_t b) {
        const std::uint32_t sa = _rules[a].selector.specificity;
        const std::uint32_t sb = _rules[b].selector.specificity;
        return sa != sb ? sa < sb : a < b;
    });
    for (const std::size_t rule : candidates) {
        for (const Declaration& declaration : _sets[_rules[rule].set].declarations)
            out.push_back(&declaration);
    }
}

} // namespace qsdps::svg
