// Gradients and patterns that take what they lack from others by href.
#pragma once

#include "svg/xml/document.h"

#include <string_view>
#include <vector>

namespace qsdps::svg {

class ReferenceChain {
public:
    /// The element and those it refers to in turn, up to the first that is no `accepts`ed element or comes again.
    template <typename Accepts>
    ReferenceChain(const Document& document, pugi::xml_node node, Accepts accepts)
    {
        while (node && _nodes.size() < MaxLength && accepts(document.tag(node)) && !contains(node)) {
            _nodes.push_back(node);
            node = document.target(node);
        }
        _endsEarly = node && accepts(document.tag(node));
    }

    /// True when there would be more, as in a circle, or behind more elements than anyone writes.
    [[nodiscard]] bool endsEarly() const { return _endsEarly; }

    /// The attribute of the first element that has it; empty where none has.
    [[nodiscard]] std::string_view get(const char* name) const
    {
        for (const pugi::xml_node& node : _nodes) {
            if (const pugi::xml_attribute found = node.attribute(name)) {
                return found.value();
            }
        }
        return {};
    }
    [[nodiscard]] const std::vector<pugi::xml_node>& nodes() const { return _nodes; }

private:
    static constexpr std::size_t MaxLength = 32;

    [[nodiscard]] bool contains(const pugi::xml_node& node) const
    {
        for (const pugi::xml_node& known : _nodes) {
            if (known == node) {
                return true;
            }
        }
        return false;
    }

    std::vector<pugi::xml_node> _nodes;
    bool _endsEarly = false;
};

} // namespace qsdps::svg
