// One installed file of outlines.
#pragma once

#include "page/letters.h"

#include <ft2build.h>
#include <optional>
#include <string>
#include FT_FREETYPE_H

namespace qsdps {

template <auto Destroy>
struct Destroyer {
    template <class T>
    void operator()(T* object) const
    {
        Destroy(object);
    }
};

/// Where a font is, and what has to be made of it.
struct FontSource {
    std::string file;
    int number = 0;      ///< of the font in its file
    Matrix shape;        ///< of the letters, y upwards: an italic that is made of an upright font
    bool bolder = false; ///< a bold that is made of a lighter font
};

/// A font that is opened when a character is first wanted of it; one that cannot be read has no characters.
class FontFile {
public:
    /// The library has to live longer.
    FontFile(FT_Library library, FontSource source) : _library(library), _source(std::move(source)) {}

    /// The letter of a character; none when the font lacks it.
    [[nodiscard]] std::optional<Letter> letter(char32_t character);
    /// What the font shows for characters that it lacks; none when it has nothing for them.
    [[nodiscard]] std::optional<Letter> substitute();
    /// What two characters that follow each other are moved apart, in ems. It is what the table "kern" says; pairs that
    /// are in other tables alone stand as far apart as other letters.
    [[nodiscard]] double kerning(char32_t first, char32_t second);

private:
    bool open();
    FT_UInt index(char32_t character) { return open() ? FT_Get_Char_Index(_face.get(), character) : 0; }
    std::optional<Letter> glyph(FT_UInt index);

    FT_Library _library;
    FontSource _source;
    std::unique_ptr<FT_FaceRec_, Destroyer<FT_Done_Face>> _face;
    bool _tried = false;
};

} // namespace qsdps
