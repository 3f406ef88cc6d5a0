// Fontconfig finds the fonts, FreeType reads them.
#include "page/letters.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace qsdps {

namespace {

template <auto Destroy>
struct Destroyer {
    template <class T>
    void operator()(T* object) const
    {
        Destroy(object);
    }
};

using Config = std::unique_ptr<FcConfig, Destroyer<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSetDestroy>>;
using Face = std::unique_ptr<FT_FaceRec_, Destroyer<FT_Done_Face>>;
using Library = std::unique_ptr<FT_LibraryRec_, Destroyer<FT_Done_FreeType>>;

const FcChar8* bytesOf(const std::string& text)
{
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

/// Takes the pieces of an outline from the reader of fonts.
class OutlineTaker {
public:
    OutlineTaker(Path& path, double unitsPerEm, const FT_Matrix& shape)
        : _path(path), _unitsPerEm(unitsPerEm), _shape(shape)
    {
    }

    bool take(FT_Outline& outline)
    {
        FT_Outline_Funcs calls{};
        calls.move_to = [](const FT_Vector* to, void* self) { return of(self).move(*to); };
        calls.line_to = [](const FT_Vector* to, void* self) { return of(self).line(*to); };
        calls.conic_to = [](const FT_Vector* c, const FT_Vector* to, void* self) { return of(self).conic(*c, *to); };
        calls.cubic_to = [](const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* self) {
            return of(self).cubic(*c1, *c2, *to);
        };
        const bool whole = FT_Outline_Decompose(&outline, &calls, this) == 0;
        close();
        return whole;
    }

private:
    static OutlineTaker& of(void* self) { return *static_cast<OutlineTaker*>(self); }

    [[nodiscard]] Point point(FT_Vector v) const
    {
        FT_Vector_Transform(&v, &_shape);
        return {static_cast<double>(v.x) / _unitsPerEm, -static_cast<double>(v.y) / _unitsPerEm};
    }
    void close()
    {
        if (_open) {
            _path.close();
        }
    }
    int move(const FT_Vector& to)
    {
        close();
        _open = true;
        _at = point(to);
        _path.moveTo(_at);
        return 0;
    }
    int line(const FT_Vector& to)
    {
        _at = point(to);
        _path.lineTo(_at);
        return 0;
    }
    int conic(const FT_Vector& c, const FT_Vector& to)
    {
        const Point control = point(c);
        const Point end = point(to);
        const auto towards = [&](Point p) {
            return Point{p.x + (control.x - p.x) * 2 / 3, p.y + (control.y - p.y) * 2 / 3};
        };
        _path.cubicTo(towards(_at), towards(end), end);
        _at = end;
        return 0;
    }
    int cubic(const FT_Vector& c1, const FT_Vector& c2, const FT_Vector& to)
    {
        _at = point(to);
        _path.cubicTo(point(c1), point(c2), _at);
        return 0;
    }

    Path& _path;
    double _unitsPerEm;
    FT_Matrix _shape;
    Point _at;
    bool _open = false;
};

/// One font file, opened when a character is first wanted of it.
class FontFile {
public:
    FontFile(FT_Library library, FcPattern* description) : _library(library), _description(description) {}

    [[nodiscard]] bool has(char32_t character) const
    {
        FcCharSet* characters = nullptr;
        return FcPatternGetCharSet(_description, FC_CHARSET, 0, &characters) == FcResultMatch &&
               FcCharSetHasChar(characters, character) == FcTrue;
    }

    [[nodiscard]] std::optional<Letter> read(char32_t character)
    {
        const FT_UInt glyph = index(character);
        if (glyph == 0 || FT_Load_Glyph(_face.get(), glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0 ||
            _face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
            return std::nullopt;
        }
        Letter letter;
        letter.advance = static_cast<double>(_face->glyph->metrics.horiAdvance) / _face->units_per_EM;
        if (!OutlineTaker(letter.outline, _face->units_per_EM, _shape).take(_face->glyph->outline)) {
            return std::nullopt;
        }
        return letter;
    }

    [[nodiscard]] double kerning(char32_t first, char32_t second)
    {
        FT_Vector distance{};
        if (!open() || !FT_HAS_KERNING(_face.get()) ||
            FT_Get_Kerning(_face.get(), index(first), index(second), FT_KERNING_UNSCALED, &distance) != 0) {
            return 0;
        }
        return static_cast<double>(distance.x) / _face->units_per_EM;
    }

private:
    bool open()
    {
        if (std::exchange(_tried, true)) {
            return _face != nullptr;
        }
        FcChar8* name = nullptr;
        int number = 0;
        if (FcPatternGetString(_description, FC_FILE, 0, &name) != FcResultMatch) {
            return false;
        }
        static_cast<void>(FcPatternGetInteger(_description, FC_INDEX, 0, &number));
        FT_Face face = nullptr;
        if (FT_New_Face(_library, reinterpret_cast<const char*>(name), number, &face) != 0) {
            return false;
        }
        _face.reset(face);
        if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
            _face.reset();
            return false;
        }
        // An italic that is made of an upright font.
        FcMatrix* shape = nullptr;
        if (FcPatternGetMatrix(_description, FC_MATRIX, 0, &shape) == FcResultMatch) {
            const auto fixed = [](double v) { return static_cast<FT_Fixed>(v * 65536); };
            _shape = {fixed(shape->xx), fixed(shape->xy), fixed(shape->yx), fixed(shape->yy)};
        }
        return true;
    }
    FT_UInt index(char32_t character) { return open() ? FT_Get_Char_Index(_face.get(), character) : 0; }

    FT_Library _library;
    FcPattern* _description;
    Face _face;
    FT_Matrix _shape{0x10000, 0, 0, 0x10000};
    bool _tried = false;
};

class InstalledFont : public LetterFont {
public:
    InstalledFont(FcConfig* config, FT_Library library, const Pattern& wanted, FontSet fonts)
        : _config(config), _wanted(FcPatternDuplicate(wanted.get())), _fonts(std::move(fonts)), _library(library)
    {
        _files.resize(static_cast<std::size_t>(_fonts->nfont));
    }

    [[nodiscard]] const Letter* letter(char32_t character) override
    {
        const auto [entry, isNew] = _letters.try_emplace(character);
        if (isNew) {
            entry->second = read(character);
        }
        return entry->second ? &*entry->second : nullptr;
    }

    [[nodiscard]] double kerning(char32_t first, char32_t second) override
    {
        OpenFile& file = fileAt(0);
        return file.font->kerning(first, second);
    }

private:
    struct OpenFile {
        Pattern description;
        std::unique_ptr<FontFile> font;
    };

    OpenFile& fileAt(std::size_t index)
    {
        OpenFile& file = _files[index];
        if (file.font == nullptr) {
            file.description.reset(FcFontRenderPrepare(_config, _wanted.get(), _fonts->fonts[index]));
            file.font = std::make_unique<FontFile>(_library, file.description.get());
        }
        return file;
    }

    std::optional<Letter> read(char32_t character)
    {
        for (std::size_t i = 0; i < _files.size(); ++i) {
            if (_files[i].font == nullptr && !FontFile(_library, _fonts->fonts[i]).has(character)) {
                continue;
            }
            if (std::optional<Letter> letter = fileAt(i).font->read(character)) {
                return letter;
            }
        }
        return std::nullopt;
    }

    FcConfig* _config;
    Pattern _wanted;
    FontSet _fonts;
    FT_Library _library;
    std::vector<OpenFile> _files;
    std::unordered_map<char32_t, std::optional<Letter>> _letters;
};

} // namespace

class LetterFonts::Table {
public:
    Table() : _config(FcInitLoadConfigAndFonts())
    {
        FT_Library library = nullptr;
        if (FT_Init_FreeType(&library) == 0) {
            _library.reset(library);
        }
    }

    bool has(const std::string& family)
    {
        makeRoom(_families);
        const auto [entry, isNew] = _families.try_emplace(family, false);
        if (isNew) {
            entry->second = isInstalled(family);
        }
        return entry->second;
    }

    std::shared_ptr<LetterFont> find(const FontRequest& request)
    {
        if (_config == nullptr || _library == nullptr) {
            return nullptr;
        }
        makeRoom(_fonts);
        const auto [entry, isNew] =
            _fonts.try_emplace(std::tuple(request.families, request.weight, request.italic), nullptr);
        if (isNew) {
            entry->second = make(request);
        }
        return entry->second;
    }

private:
    template <class Map>
    static void makeRoom(Map& map)
    {
        constexpr std::size_t Most = 256;
        if (map.size() >= Most) {
            map.clear();
        }
    }

    [[nodiscard]] bool isInstalled(const std::string& family) const
    {
        if (_config == nullptr) {
            return false;
        }
        const Pattern pattern(FcPatternCreate());
        FcPatternAddString(pattern.get(), FC_FAMILY, bytesOf(family));
        FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
        const std::unique_ptr<FcObjectSet, Destroyer<FcObjectSetDestroy>> none(FcObjectSetCreate());
        const FontSet found(FcFontList(_config.get(), pattern.get(), none.get()));
        return found != nullptr && found->nfont > 0;
    }

    [[nodiscard]] std::shared_ptr<LetterFont> make(const FontRequest& request)
    {
        const Pattern wanted(FcPatternCreate());
        for (const std::string& family : request.families) {
            FcPatternAddString(wanted.get(), FC_FAMILY, bytesOf(family));
        }
        FcPatternAddInteger(wanted.get(), FC_WEIGHT, FcWeightFromOpenType(request.weight));
        FcPatternAddInteger(wanted.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
        FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
        FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
        // Else those of the process's locale would be taken.
        const std::string language = "en";
        FcPatternAddString(wanted.get(), FC_LANG, bytesOf(language));
        FcPatternAddString(wanted.get(), FC_NAMELANG, bytesOf(language));
        FcConfigSubstitute(_config.get(), wanted.get(), FcMatchPattern);
        FcDefaultSubstitute(wanted.get());
        FcResult result = FcResultMatch;
        FontSet fonts(FcFontSort(_config.get(), wanted.get(), FcTrue, nullptr, &result));
        if (fonts == nullptr || fonts->nfont == 0) {
            return nullptr;
        }
        return std::make_shared<InstalledFont>(_config.get(), _library.get(), wanted, std::move(fonts));
    }

    Config _config;
    Library _library;
    std::map<std::tuple<std::vector<std::string>, int, bool>, std::shared_ptr<LetterFont>> _fonts;
    std::map<std::string, bool> _families;
};

LetterFonts::LetterFonts() = default;
LetterFonts::~LetterFonts() = default;

bool LetterFonts::has(const std::string& family)
{
    if (_table == nullptr) {
        _table = std::make_unique<Table>();
    }
    return _table->has(family);
}

std::shared_ptr<LetterFont> LetterFonts::find(const FontRequest& request)
{
    if (_table == nullptr) {
        _table = std::make_unique<Table>();
    }
    return _table->find(request);
}

} // namespace qsdps
