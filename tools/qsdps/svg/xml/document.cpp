#include "svg/xml/document.h"

#include "svg/xml/encoding.h"
#include "svg/xml/entities.h"
#include "svg/xml/inflate.h"
#include "values/scanner.h"

#include <algorithm>

namespace qsdps::svg {
namespace {

constexpr std::size_t MaxInflated = std::size_t{512} << 20;
constexpr std::size_t MaxEntityText = std::size_t{64} << 20;
constexpr std::string_view SvgNamespace = "http://www.w3.org/2000/svg";

} // namespace

std::string_view localName(const pugi::xml_node& element)
{
    const std::string_view name = element.name();
    const std::size_t colon = name.find(':');
    return colon == name.npos ? name : name.substr(colon + 1);
}

std::string textOf(const pugi::xml_node& element)
{
    std::string text;
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
        }
    }
    return text;
}

std::string_view attribute(const pugi::xml_node& element, const char* name)
{
    return element.attribute(name).value();
}

std::string_view href(const pugi::xml_node& element)
{
    std::string_view found;
    for (const pugi::xml_attribute& candidate : element.attributes()) {
        const std::string_view name = candidate.name();
        if (name == "href") {
            return trim(candidate.value());
        }
        if (name.ends_with(":href")) {
            found = trim(candidate.value());
        }
    }
    return found;
}

pugi::xml_node following(pugi::xml_node node)
{
    if (node.first_child()) {
        return node.first_child();
    }
    while (node && !node.next_sibling()) {
        node = node.parent();
    }
    return node ? node.next_sibling() : node;
}

Result<std::unique_ptr<Document>> Document::load(std::string bytes)
{
    if (isGzip(bytes)) {
        Result<std::string> content = gunzip(std::move(bytes), MaxInflated);
        if (!content) {
            return content.error();
        }
        bytes = *std::move(content);
    }
    if (bytes.empty()) {
        return Error{"the file is empty"};
    }
    Result<std::string> text = expandEntities(toUtf8(std::move(bytes)), MaxEntityText);
    if (!text) {
        return text.error();
    }
    auto document = std::make_unique<Document>();
    document->_text = *std::move(text);
    if (const Status parsed = document->parse(); !parsed) {
        return parsed.error();
    }
    document->index();
    return document;
}

Status Document::parse()
{
    for (std::size_t at = _text.find('\n'); at != _text.npos; at = _text.find('\n', at + 1)) {
        _lineStarts.push_back(at + 1);
    }
    constexpr unsigned Options = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_pi;
    const pugi::xml_parse_result result =
        _xml.load_buffer_inplace(_text.data(), _text.size(), Options, pugi::encoding_utf8);
    if (!result) {
        return Error{result.description(), {}, lineAt(result.offset)};
    }
    _root = _xml.document_element();
    if (localName(_root) == "svg") {
        return {};
    }
    // A drawing inside of something else, a web page for instance.
    while (_root && localName(_root) != "svg") {
        _root = following(_root);
    }
    if (!_root) {
        return Error{"there is no svg element"};
    }
    return {};
}

void Document::index()
{
    for (pugi::xml_node node = _xml.first_child(); node; node = following(node)) {
        if (node.type() != pugi::node_element) {
            continue;
        }
        for (const pugi::xml_attribute& candidate : node.attributes()) {
            const std::string_view name = candidate.name();
            if (name == "id") {
                _ids.try_emplace(candidate.value(), node);
            } else if (name.starts_with("xmlns:") && candidate.value() == SvgNamespace) {
                _prefixes.insert(name.substr(6));
            }
        }
    }
}

pugi::xml_node Document::byId(std::string_view id) const
{
    const auto found = _ids.find(id);
    return found == _ids.end() ? pugi::xml_node() : found->second;
}

pugi::xml_node Document::target(const pugi::xml_node& element) const
{
    const std::string_view reference = href(element);
    return reference.starts_with('#') ? byId(reference.substr(1)) : pugi::xml_node();
}

Tag Document::tag(const pugi::xml_node& element) const
{
    if (element.type() != pugi::node_element) {
        return Tag::Unknown;
    }
    const std::string_view name = element.name();
    const std::size_t colon = name.find(':');
    if (colon == name.npos) {
        return tagByName(name);
    }
    return _prefixes.contains(name.substr(0, colon)) ? tagByName(name.substr(colon + 1)) : Tag::Unknown;
}

int Document::line(const pugi::xml_node& element) const
{
    return lineAt(element.offset_debug());
}

int Document::lineAt(std::ptrdiff_t offset) const
{
    if (offset < 0) {
        return 0;
    }
    const auto after = std::upper_bound(_lineStarts.begin(), _lineStarts.end(), static_cast<std::size_t>(offset));
    return static_cast<int>(after - _lineStarts.begin()) + 1;
}

} // namespace qsdps::svg
