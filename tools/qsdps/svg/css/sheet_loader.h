// Brings together the style sheets of a drawing: its own, and the files that it names.
#pragma once

#include "svg/css/css_match.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qsdps::svg {

/// Something of a style sheet that is left out.
struct SheetMessage {
    std::string what;
    int line = 0; ///< of the drawing: where the sheet begins or is named
};

/// Adds sheets to those of a document in the order in which they weigh. Files are read inside the drawing's folder
/// only, as images are, and within bounds of number, size and depth.
class SheetLoader {
public:
    /// `baseFolder` is the drawing's; empty where no files may be read.
    SheetLoader(StyleSheets& sheets, const std::filesystem::path& baseFolder, std::vector<SheetMessage>& messages)
        : _sheets(sheets), _baseFolder(baseFolder), _messages(messages)
    {
    }

    /// The content of a style element, with its attributes type and media.
    void addElement(const std::string& text, std::string_view type, std::string_view media, int line);
    /// The content of a processing instruction xml-stylesheet: href="..." type="..." media="...".
    void addInstruction(std::string_view content, int line);
    /// How many bytes the files had.
    [[nodiscard]] std::size_t bytesRead() const { return _bytesRead; }

private:
    /// Where a sheet stands: what its imports are relative to, and what messages call it.
    struct Source {
        std::string name;                                  ///< empty: the drawing itself
        std::optional<std::string> folder = std::string(); ///< as in an href, with the slash; empty: the drawing's;
                                                           ///< nothing: that of a data URI, which has none
    };

    void addFile(std::string_view href, const Source& from);
    void addText(std::string_view text, const Source& source);
    void tell(const std::string& what, const Source& from);

    StyleSheets& _sheets;
    const std::filesystem::path& _baseFolder;
    std::vector<SheetMessage>& _messages;
    std::vector<std::string> _open; ///< names of the files that are being read, outermost first
    std::size_t _files = 0;
    std::size_t _bytesRead = 0;
    int _line = 0;
};

} // namespace qsdps::svg
