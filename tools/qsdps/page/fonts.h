// Fonts of drawings as fonts of the toolkit.
#pragma once

#include "drawing/text.h"
#include "page/faces.h"
#include "page/letters.h"
#include "toolkit/base/QsEncoding.h"
#include "toolkit/graphics/QsdFont.h"
#include "toolkit/port/QsdDisplay.h"

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace qsdps {

[[nodiscard]] constexpr bool isBold(const FontRequest& request)
{
    constexpr int BoldFrom = 600;
    return request.weight >= BoldFrom;
}

/// One toolkit font for each font used, so that the port sees the same object again and writes nothing twice.
class FontTable {
public:
    /// Fonts for texts in `encoding`: Japanese EUC texts have two families of their own, one upright and one plain.
    /// `letters` tells what is installed, `findMapped` what the port has beside the families of the toolkit; it may be
    /// empty.
    FontTable(const QsdDisplay& display, QsEncoding encoding, LetterFonts& letters, FindMapped findMapped)
        : _display(display), _encoding(encoding), _letters(letters), _findMapped(std::move(findMapped))
    {
    }

    /// The font of this size in units (1 to 65,535), owned by the table.
    [[nodiscard]] const QsdFont* get(const FontRequest& request, bool underlined, std::uint16_t size);

    /// What stands for such a font: the first family of the request that the port has; else, in Japanese documents, one
    /// of their own.
    [[nodiscard]] Face face(const FontRequest& request) const;

private:
    static constexpr std::size_t MostFonts = 1024;

    const QsdDisplay& _display;
    QsEncoding _encoding;
    LetterFonts& _letters;
    FindMapped _findMapped;
    std::map<std::tuple<std::string, std::uint16_t, std::uint16_t>, QsdHandle<const QsdFont>> _fonts;
};

} // namespace qsdps
