// Custom properties ("--name: value") and var(), which puts them into other values.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace qsdps::svg {

/// Keeps the texts of values that stand in no file, for as long as styles point into them.
class ValueTexts {
public:
    /// `work` loses what the texts cost.
    explicit ValueTexts(std::size_t& work) : _work(work) {}

    /// A view of the text, which lives as long as this object; equal texts are kept once.
    [[nodiscard]] std::string_view keep(std::string text);
    /// Takes the cost of a text from what all may cost; false when that is used up.
    [[nodiscard]] bool spend(std::size_t bytes);

private:
    std::size_t& _work;
    std::unordered_set<std::string> _texts;
};

/// The custom properties of an element: its own, with var() put in, and those of its parent, which go on through it.
struct CustomProperties {
    std::shared_ptr<const CustomProperties> outer;
    std::size_t levels = 1; ///< how many elements with own ones, this one included
    /// By name, with the two hyphens. Nothing: the name has no value here, whatever it has outside.
    std::unordered_map<std::string_view, std::optional<std::string_view>> own;

    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const;
};

/// What an element declares: the value that wins for each name, as written.
using CustomDeclarations = std::map<std::string_view, std::string_view>;

/// True for a value with var() in it.
[[nodiscard]] bool hasVariables(std::string_view value);
/// Works out what an element declares. Names that refer to each other in a circle have no value; nor have those whose
/// text would become too long.
[[nodiscard]] std::shared_ptr<const CustomProperties>
resolveCustom(const CustomDeclarations& declared, std::shared_ptr<const CustomProperties> outer, ValueTexts& texts);
/// The value with each var() replaced; nothing, with a reason in `fault`, where one has no value and no fallback.
/// `variables` may be null.
[[nodiscard]] std::optional<std::string_view>
withoutVariables(std::string_view value, const CustomProperties* variables, ValueTexts& texts, std::string& fault);

} // namespace qsdps::svg
