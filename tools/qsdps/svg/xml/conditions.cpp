#include "svg/xml/conditions.h"

#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

/// "en" asks for the same as "en-GB" as far as it goes, in both directions.
bool sameLanguage(std::string_view a, std::string_view b)
{
    if (a.size() > b.size()) {
        std::swap(a, b);
    }
    const bool prefix = !a.empty() && std::equal(a.begin(), a.end(), b.begin(),
                                                 [](char x, char y) { return toLower(x) == toLower(y); });
    return prefix && (a.size() == b.size() || b[a.size()] == '-' || b[a.size()] == '_');
}

bool languageMatches(std::string_view list, const std::vector<std::string>& languages)
{
    Scanner scanner(list);
    while (!scanner.atEnd()) {
        const std::string_view wanted = trim(scanner.upTo(','));
        if (std::any_of(languages.begin(), languages.end(),
                        [&](const std::string& language) { return sameLanguage(wanted, language); })) {
            return true;
        }
    }
    return false;
}

} // namespace

bool conditionsHold(const pugi::xml_node& element, const std::vector<std::string>& languages)
{
    if (element.attribute("requiredExtensions")) {
        return false;
    }
    const pugi::xml_attribute language = element.attribute("systemLanguage");
    return !language || languageMatches(language.value(), languages);
}

} // namespace qsdps::svg
