// Fonts of drawings as fonts of the toolkit.
#pragma once

#include "drawing/text.h"
#include "toolkit/base/QsEncoding.h"
#include "toolkit/graphics/QsdFont.h"
#include "toolkit/port/QsdDisplay.h"

#include <cstdint>
#include <map>
#include <string>
#include <tuple>

namespace qsdps {

/// The toolkit family for a list of families: the first that is known, else by what its name sounds like, else
/// Helvetica.
[[nodiscard]] const char* toolkitFamily(const std::vector<std::string>& families);

/// One toolkit font for each font used, so that the port sees the same object again and writes nothing twice.
class FontTable {
public:
    /// Fonts for texts in `encoding`: Japanese EUC texts have two families of their own, one upright and one plain.
    FontTable(const QsdDisplay& display, QsEncoding encoding) : _display(display), _encoding(encoding) {}

    /// The font of this size in units (1 to 65,535), owned by the table.
    [[nodiscard]] const QsdFont* get(const FontRequest& request, bool underlined, std::uint16_t size);

private:
    static constexpr std::size_t MostFonts = 1024;

    const QsdDisplay& _display;
    QsEncoding _encoding;
    std::map<std::tuple<std::string, std::uint16_t, std::uint16_t>, QsdHandle<const QsdFont>> _fonts;
};

} // namespace qsdps
