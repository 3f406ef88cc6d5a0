// Where elements stand among their siblings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include <pugixml.hpp>

namespace qsdps::svg {

/// An element's place among the elements of its parent, and among those of its own name; the first is 1.
struct SiblingPlace {
    std::uint32_t place = 0;
    std::uint32_t placeFromEnd = 0;
    std::uint32_t placeOfType = 0;
    std::uint32_t placeOfTypeFromEnd = 0;
};

/// Counts the elements of a parent once, when the first of them is asked for.
class SiblingPlaces {
public:
    [[nodiscard]] const SiblingPlace& of(const pugi::xml_node& element);

private:
    void count(const pugi::xml_node& parent);

    std::unordered_map<std::size_t, SiblingPlace> _places; ///< by the element's hash
};

} // namespace qsdps::svg
