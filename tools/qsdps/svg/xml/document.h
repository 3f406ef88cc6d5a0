// A parsed file: its elements, what they are called, and where they stand.
#pragma once

#include "svg/xml/tags.h"
#include "values/result.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <pugixml.hpp>

namespace qsdps::svg {

/// The element's name without its prefix.
[[nodiscard]] std::string_view localName(const pugi::xml_node& element);
/// The text directly inside the element, whatever comments part it.
[[nodiscard]] std::string textOf(const pugi::xml_node& element);
/// The attribute's value; empty where there is none.
[[nodiscard]] std::string_view attribute(const pugi::xml_node& element, const char* name);
/// The target of href, or of xlink:href under whatever prefix; empty where there is none.
[[nodiscard]] std::string_view href(const pugi::xml_node& element);

/// The next node in document order, without recursion: files nest as deep as they like. Null behind the last.
[[nodiscard]] pugi::xml_node following(pugi::xml_node node);

class Document {
public:
    /// Parses a file, compressed or not.
    [[nodiscard]] static Result<std::unique_ptr<Document>> load(std::string bytes);

    /// The svg element.
    [[nodiscard]] const pugi::xml_node& root() const { return _root; }
    /// The outermost element, which is another where the drawing lies inside of something else.
    [[nodiscard]] pugi::xml_node outermost() const { return _xml.document_element(); }
    /// How many bytes the text has.
    [[nodiscard]] std::size_t size() const { return _text.size(); }
    /// The first element with this id; null where there is none.
    [[nodiscard]] pugi::xml_node byId(std::string_view id) const;
    /// The element that href names inside this file; null for other files and missing ids.
    [[nodiscard]] pugi::xml_node target(const pugi::xml_node& element) const;
    /// What the element is; Unknown for everything outside the SVG namespace.
    [[nodiscard]] Tag tag(const pugi::xml_node& element) const;
    /// The line the element begins on, 0 where unknown.
    [[nodiscard]] int line(const pugi::xml_node& element) const;

private:
    Status parse();
    void index();
    [[nodiscard]] int lineAt(std::ptrdiff_t offset) const;

    std::string _text;
    pugi::xml_document _xml;
    pugi::xml_node _root;
    std::vector<std::size_t> _lineStarts;
    std::unordered_map<std::string_view, pugi::xml_node> _ids;
    std::unordered_set<std::string_view> _prefixes; ///< bound to the SVG namespace
};

} // namespace qsdps::svg
