#include "svg/css/sibling_places.h"

#include <string_view>

namespace qsdps::svg {
namespace {

pugi::xml_node nextElement(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element) {
        node = node.next_sibling();
    }
    return node;
}

} // namespace

const SiblingPlace& SiblingPlaces::of(const pugi::xml_node& element)
{
    const auto known = _places.find(element.hash_value());
    if (known != _places.end()) {
        return known->second;
    }
    count(element.parent());
    return _places[element.hash_value()];
}

void SiblingPlaces::count(const pugi::xml_node& parent)
{
    std::uint32_t all = 0;
    std::unordered_map<std::string_view, std::uint32_t> ofType;
    const pugi::xml_node first = nextElement(parent.first_child());
    for (pugi::xml_node at = first; at; at = nextElement(at.next_sibling())) {
        SiblingPlace& place = _places[at.hash_value()];
        place.place = ++all;
        place.placeOfType = ++ofType[at.name()];
    }
    for (pugi::xml_node at = first; at; at = nextElement(at.next_sibling())) {
        SiblingPlace& place = _places[at.hash_value()];
        place.placeFromEnd = all + 1 - place.place;
        place.placeOfTypeFromEnd = ofType[at.name()] + 1 - place.placeOfType;
    }
}

} // namespace qsdps::svg
