// The table of properties: what each is called and how its value becomes part of a Style.
#pragma once

#include "svg/css/style.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace qsdps::svg {

struct Property {
    std::string_view name;
    bool attribute; ///< may also be written as an attribute of the same name
    /// Sets the property from its text; false when the text is no value of it.
    bool (*apply)(Style& style, std::string_view value, const StyleBase& base);
    /// Copies the property, for "inherit" and "initial".
    void (*copy)(Style& to, const Style& from);
};

inline constexpr std::size_t PropertyCount = 58;

/// The property at an index below PropertyCount; geometry comes first, in the order of Geometry.
[[nodiscard]] const Property& property(std::size_t index);
/// The index of a name; nothing for names that mean nothing here.
[[nodiscard]] std::optional<std::size_t> propertyIndex(std::string_view name);

} // namespace qsdps::svg
