#include "svg/css/styled_document.h"

#include <string_view>
#include <utility>

namespace qsdps::svg {

Result<std::unique_ptr<StyledDocument>> StyledDocument::load(std::string bytes, const std::filesystem::path& baseFolder)
{
    Result<std::unique_ptr<Document>> elements = Document::load(std::move(bytes));
    if (!elements) {
        return elements.error();
    }
    std::unique_ptr<StyledDocument> document(new StyledDocument(*std::move(elements)));
    document->loadSheets(baseFolder);
    return document;
}

void StyledDocument::loadSheets(const std::filesystem::path& baseFolder)
{
    _sheets.setRoot(_elements->root());
    SheetLoader loader(_sheets, baseFolder, _sheetMessages);
    const pugi::xml_node outermost = _elements->outermost();
    for (pugi::xml_node node = outermost.parent().first_child(); node && node != outermost;
         node = node.next_sibling()) {
        if (node.type() == pugi::node_pi && node.name() == std::string_view("xml-stylesheet")) {
            loader.addInstruction(node.value(), _elements->line(node));
        }
    }
    for (pugi::xml_node node = _elements->root(); node; node = following(node)) {
        if (_elements->tag(node) == Tag::Style) {
            loader.addElement(textOf(node), attribute(node, "type"), attribute(node, "media"), _elements->line(node));
        }
    }
    _sheetBytes = loader.bytesRead();
}

} // namespace qsdps::svg
