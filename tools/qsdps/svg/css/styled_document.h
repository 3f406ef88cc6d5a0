// A parsed file with the style sheets that apply to it.
#pragma once

#include "svg/css/css_match.h"
#include "svg/css/sheet_loader.h"
#include "svg/xml/document.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace qsdps::svg {

class StyledDocument {
public:
    /// Parses a file, compressed or not, and the style sheets that it names inside `baseFolder` (empty: none).
    [[nodiscard]] static Result<std::unique_ptr<StyledDocument>> load(std::string bytes,
                                                                      const std::filesystem::path& baseFolder);

    [[nodiscard]] const Document& elements() const { return *_elements; }
    [[nodiscard]] const StyleSheets& sheets() const { return _sheets; }
    /// What of the style sheets was left out.
    [[nodiscard]] const std::vector<SheetMessage>& sheetMessages() const { return _sheetMessages; }
    /// How many bytes of style sheets were read from files.
    [[nodiscard]] std::size_t sheetBytes() const { return _sheetBytes; }

private:
    explicit StyledDocument(std::unique_ptr<Document> elements) : _elements(std::move(elements)) {}
    void loadSheets(const std::filesystem::path& baseFolder);

    std::unique_ptr<Document> _elements;
    StyleSheets _sheets;
    std::vector<SheetMessage> _sheetMessages;
    std::size_t _sheetBytes = 0;
};

} // namespace qsdps::svg
