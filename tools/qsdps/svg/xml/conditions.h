// Attributes that make an element depend on its reader.
#pragma once

#include <string>
#include <vector>

#include <pugixml.hpp>

namespace qsdps::svg {

/// True when systemLanguage and requiredExtensions, where present, are met. No extension is known here.
[[nodiscard]] bool conditionsHold(const pugi::xml_node& element, const std::vector<std::string>& languages);

} // namespace qsdps::svg
