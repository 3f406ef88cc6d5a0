#include "svg/style.h"

#include "drawing/report.h"
#include "svg/css_parser.h"
#include "svg/properties.h"
#include "svg/scanner.h"

#include <vector>

namespace qsdps::svg {
namespace {

using Values = std::array<std::string_view, kPropertyCount>;

void set(Values& values, const Declaration& declaration)
{
    if (const auto index = propertyIndex(declaration.name))
        values[*index] = declaration.value;
}

/// The text that wins for each property.
Values cascade(const Document& document, const pugi::xml_node& node)
{
    Values values;
    std::vector<Declaration> inlined;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::string_view name = attribute.name();
        if (name == "style") {
            parseDeclarations(attribute.value(), inlined);
            continue;
        }
        const auto index = propertyIndex(name);
        if (index && property(*index).attribute)
            values[*index] = trim(attribute.value());
    }
    std::vector<const Declaration*> sheet;
    if (!document.styleSheets().empty())
        document.styleSheets().collect(node, sheet);
    for (const bool important : {false, true}) {
        for (const Declaration* declaration : sheet) {
            if (declaration->important == important)
                set(values, *declaration);
        }
        for (const Declaration& declaration : inlined) {
            if (declaration.important == important)
                set(values, declaration);
        }
    }
    return values;
}

} // namespace

Element resolveElement(const Document& document, const pugi::xml_node& node, const StyleBase& base,
                       const std::function<void(std::string_view)>& fault)
{
    static const Style kInitial;
    Element element{node, document.tag(node), base.parent, {}};
    element.style.own = {};
    const Values values = cascade(document, node);
    for (std::size_t i = 0; i < kPropertyCount; ++i) {
        if (values[i].empty())
            continue;
        if (i < element.geometry.size())
            element.geometry[i] = values[i];
        else if (equalsNoCase(values[i], "inherit"))
            property(i).copy(element.style, base.parent);
        else if (equalsNoCase(values[i], "initial"))
            property(i).copy(element.style, kInitial);
        else if (!property(i).apply(element.style, values[i], base))
            fault(badValue(values[i], property(i).name));
    }
    return element;
}

std::string_view parseUrl(std::string_view text)
{
    text = trim(text);
    if (!text.starts_with("url("))
        return {};
    text = trim(text.substr(4, text.find(')') - 4));
    if (text.size() >= 2 && (text.front() == '"' || text.front() == '\''))
        text = trim(text.substr(1, text.size() - 2));
    return text.starts_with('#') ? text.substr(1) : std::string_view();
}

} // namespace qsdps::svg
