#include "svg/css/style.h"

#include "drawing/report.h"
#include "svg/css/css_parser.h"
#include "svg/css/properties.h"
#include "values/calc.h"
#include "values/scanner.h"

#include <algorithm>
#include <vector>

namespace qsdps::svg {
namespace {

struct Setting {
    std::size_t property; ///< index
    std::string_view value;
};

/// Everything that an element is told to be.
struct Cascade {
    std::vector<Setting> settings; ///< weakest first
    CustomDeclarations custom;
};

class CascadeReader {
public:
    CascadeReader(const StyleSheets& sheets, const StyleTools& tools, const SheetFault& fault)
        : _sheets(sheets), _tools(tools), _fault(fault)
    {
    }

    Cascade read(const pugi::xml_node& node)
    {
        readAttributes(node);
        std::vector<const Declaration*> sheet;
        if (!_sheets.empty()) {
            _sheets.collect(node, sheet, _tools.work);
        }
        for (const bool important : {false, true}) {
            for (const Declaration* declaration : sheet) {
                if (declaration->important == important) {
                    add(*declaration);
                }
            }
            for (const Declaration& declaration : _inlined) {
                if (declaration.important == important) {
                    add(declaration);
                }
            }
        }
        return std::move(_cascade);
    }

private:
    /// Attributes have no order among themselves: that of the properties stands in for it.
    void readAttributes(const pugi::xml_node& node)
    {
        std::array<std::string_view, PropertyCount> values;
        for (const pugi::xml_attribute& attribute : node.attributes()) {
            const std::string_view name = attribute.name();
            if (name == "style") {
                readInlined(attribute.value());
                continue;
            }
            const auto index = propertyIndex(name);
            if (index && property(*index).attribute) {
                values[*index] = trim(attribute.value());
            }
        }
        for (std::size_t i = 0; i < PropertyCount; ++i) {
            if (!values[i].empty()) {
                _cascade.settings.push_back({i, values[i]});
            }
        }
    }

    void readInlined(std::string_view text)
    {
        const bool commented = text.find("/*") != text.npos;
        parseDeclarations(commented ? _tools.texts.keep(withoutComments(text)) : text, _inlined, _fault);
    }

    void add(const Declaration& declaration)
    {
        if (declaration.name.starts_with("--")) {
            _cascade.custom[declaration.name] = declaration.value;
        } else if (const auto index = propertyIndex(declaration.name); index && !declaration.value.empty()) {
            _cascade.settings.push_back({*index, declaration.value});
        }
    }

    const StyleSheets& _sheets;
    const StyleTools& _tools;
    const SheetFault& _fault;
    std::vector<Declaration> _inlined;
    Cascade _cascade;
};

bool isGeometry(std::size_t property)
{
    return property < static_cast<std::size_t>(Geometry::Count);
}

/// Properties whose negative values are faults, but of calc() count as 0.
bool isNeverNegative(std::size_t index)
{
    if (isGeometry(index)) {
        const auto which = static_cast<Geometry>(index);
        return which != Geometry::X && which != Geometry::Y && which != Geometry::Cx && which != Geometry::Cy;
    }
    return property(index).name == "stroke-width" || property(index).name == "font-size";
}

/// Gives an element its properties, one after the other.
class Setter {
public:
    Setter(Element& element, const StyleBase& base, const StyleTools& tools, const SheetFault& fault)
        : _element(element), _base(base), _tools(tools), _fault(fault)
    {
    }

    void set(const Setting& setting)
    {
        const std::size_t index = setting.property;
        std::string_view value = setting.value;
        bool variable = false;
        if (value.find('(') != value.npos) {
            variable = hasVariables(value);
            std::string why;
            const auto found =
                variable ? withoutVariables(value, _element.style.variables.get(), _tools.texts, why) : value;
            if (!found) {
                unset(index);
                _fault(std::string(property(index).name) + " left as if not given: " + why);
                return;
            }
            const auto plain = withoutCalc(*found, isNeverNegative(index));
            value = !plain ? std::string_view() : *plain == *found ? *found : _tools.texts.keep(*plain);
        }
        if (!value.empty() && apply(index, value)) {
            return;
        }
        // Without its variables nobody could tell that the value is none, so that no weaker one comes in.
        if (variable) {
            unset(index);
        }
        _fault(badValue(setting.value, property(index).name));
    }

private:
    bool apply(std::size_t index, std::string_view value)
    {
        static const Style Initial;
        const auto is = [value](std::string_view word) { return equalsNoCase(value, word); };
        if (is("unset") || is("revert") || is("revert-layer")) {
            unset(index);
        } else if (isGeometry(index)) {
            return place(index, value);
        } else if (is("inherit")) {
            property(index).copy(_element.style, _base.parent);
        } else if (is("initial")) {
            property(index).copy(_element.style, Initial);
        } else {
            return property(index).apply(_element.style, value, _base);
        }
        return true;
    }

    bool place(std::size_t index, std::string_view value)
    {
        const bool none = equalsNoCase(value, "auto") || equalsNoCase(value, "initial");
        // Texts have lists of positions, and tell of them themselves.
        const bool list = _element.tag == Tag::Text || _element.tag == Tag::Tspan;
        if (!none && !list && !parseLength(value)) {
            return false;
        }
        _element.geometry[index] = none ? std::string_view() : value;
        return true;
    }

    /// As if the property were not given: inherited ones go on, the others are as they begin.
    void unset(std::size_t index)
    {
        if (isGeometry(index)) {
            _element.geometry[index] = {};
            return;
        }
        Style outside = _base.parent;
        outside.own = {};
        property(index).copy(_element.style, outside);
    }

    Element& _element;
    const StyleBase& _base;
    const StyleTools& _tools;
    const SheetFault& _fault;
};

} // namespace

Element resolveElement(const StyledDocument& document, const pugi::xml_node& node, const StyleBase& base,
                       const StyleTools& tools, const SheetFault& fault)
{
    Element element{node, document.elements().tag(node), base.parent, {}};
    element.style.own = {};
    const Cascade cascade = CascadeReader(document.sheets(), tools, fault).read(node);
    if (!cascade.custom.empty()) {
        element.style.variables = resolveCustom(cascade.custom, base.parent.variables, tools.texts);
    }
    Setter setter(element, base, tools, fault);
    for (const Setting& setting : cascade.settings) {
        setter.set(setting);
    }
    return element;
}

std::string_view parseUrl(std::string_view text)
{
    text = trim(text);
    text = takeUrl(text);
    return text.starts_with('#') ? text.substr(1) : std::string_view();
}

} // namespace qsdps::svg
