// Fontconfig finds the fonts, FreeType reads them.
#include "page/letters.h"

#include "page/font_file.h"

#include <fontconfig/fontconfig.h>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qsdps {

namespace {

using Config = std::unique_ptr<FcConfig, Destroyer<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroyer<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroyer<FcFontSetDestroy>>;
using Library = std::unique_ptr<FT_LibraryRec_, Destroyer<FT_Done_FreeType>>;

const FcChar8* bytesOf(const char* text)
{
    return reinterpret_cast<const FcChar8*>(text);
}

/// Keeps a table that is filled as inputs ask for more from growing without end.
template <class Map>
void makeRoom(Map& map, std::size_t most)
{
    if (map.size() >= most) {
        map.clear();
    }
}

/// What a description that was prepared for a request says.
FontSource sourceOf(const FcPattern* description)
{
    FontSource source;
    FcChar8* name = nullptr;
    if (FcPatternGetString(description, FC_FILE, 0, &name) == FcResultMatch) {
        source.file = reinterpret_cast<const char*>(name);
    }
    static_cast<void>(FcPatternGetInteger(description, FC_INDEX, 0, &source.number));
    FcMatrix* shape = nullptr;
    if (FcPatternGetMatrix(description, FC_MATRIX, 0, &shape) == FcResultMatch) {
        source.shape = {shape->xx, shape->yx, shape->xy, shape->yy, 0, 0};
    }
    FcBool bolder = FcFalse;
    source.bolder = FcPatternGetBool(description, FC_EMBOLDEN, 0, &bolder) == FcResultMatch && bolder == FcTrue;
    return source;
}

bool claims(const FcPattern* description, char32_t character)
{
    FcCharSet* characters = nullptr;
    return FcPatternGetCharSet(description, FC_CHARSET, 0, &characters) == FcResultMatch &&
           FcCharSetHasChar(characters, character) == FcTrue;
}

class InstalledFont : public LetterFont {
public:
    InstalledFont(FcConfig* config, FT_Library library, Pattern wanted, FontSet fonts)
        : _config(config), _wanted(std::move(wanted)), _fonts(std::move(fonts)), _library(library)
    {
        _files.resize(static_cast<std::size_t>(_fonts->nfont));
    }

    [[nodiscard]] std::shared_ptr<const Letter> letter(char32_t character) override
    {
        return entryOf(character).letter;
    }

    [[nodiscard]] std::shared_ptr<const Letter> substitute() override
    {
        for (std::size_t i = 0; _substitute == nullptr && i < _files.size(); ++i) {
            if (std::optional<Letter> letter = fileAt(i).substitute()) {
                _substitute = std::make_shared<const Letter>(*std::move(letter));
            }
        }
        return _substitute;
    }

    [[nodiscard]] double kerning(char32_t first, char32_t second) override
    {
        const std::size_t file = entryOf(first).file;
        const Entry entry = entryOf(second);
        return entry.letter != nullptr && entry.file == file ? fileAt(file).kerning(first, second) : 0;
    }

private:
    struct Entry {
        std::shared_ptr<const Letter> letter;
        std::size_t file = 0; ///< that has it
    };

    FontFile& fileAt(std::size_t index)
    {
        std::unique_ptr<FontFile>& file = _files[index];
        if (file == nullptr) {
            const Pattern prepared(FcFontRenderPrepare(_config, _wanted.get(), _fonts->fonts[index]));
            file = std::make_unique<FontFile>(_library, prepared == nullptr ? FontSource{} : sourceOf(prepared.get()));
        }
        return *file;
    }

    Entry entryOf(char32_t character)
    {
        constexpr std::size_t MostLetters = 4096;
        makeRoom(_letters, MostLetters);
        const auto [entry, isNew] = _letters.try_emplace(character);
        if (isNew) {
            entry->second = read(character);
        }
        return entry->second;
    }

    Entry read(char32_t character)
    {
        for (std::size_t i = 0; i < _files.size(); ++i) {
            if (!claims(_fonts->fonts[i], character)) {
                continue;
            }
            if (std::optional<Letter> letter = fileAt(i).letter(character)) {
                return {std::make_shared<const Letter>(*std::move(letter)), i};
            }
        }
        return {};
    }

    FcConfig* _config;
    Pattern _wanted;
    FontSet _fonts;
    FT_Library _library;
    std::vector<std::unique_ptr<FontFile>> _files;
    std::unordered_map<char32_t, Entry> _letters;
    std::shared_ptr<const Letter> _substitute;
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
        constexpr std::size_t MostFamilies = 1024;
        makeRoom(_families, MostFamilies);
        const auto [entry, isNew] = _families.try_emplace(family, false);
        if (isNew) {
            entry->second = isInstalled(family);
        }
        return entry->second;
    }

    std::shared_ptr<LetterFont> find(const FontRequest& request)
    {
        constexpr std::size_t MostFonts = 64;
        if (_config == nullptr || _library == nullptr) {
            return nullptr;
        }
        makeRoom(_fonts, MostFonts);
        const auto [entry, isNew] =
            _fonts.try_emplace(std::tuple(request.families, request.weight, request.italic), nullptr);
        if (isNew) {
            entry->second = make(request);
        }
        return entry->second;
    }

private:
    [[nodiscard]] bool isInstalled(const std::string& family) const
    {
        if (_config == nullptr) {
            return false;
        }
        const Pattern pattern(FcPatternCreate());
        FcPatternAddString(pattern.get(), FC_FAMILY, bytesOf(family.c_str()));
        FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
        const std::unique_ptr<FcObjectSet, Destroyer<FcObjectSetDestroy>> none(FcObjectSetCreate());
        const FontSet found(FcFontList(_config.get(), pattern.get(), none.get()));
        return found != nullptr && found->nfont > 0;
    }

    [[nodiscard]] std::shared_ptr<LetterFont> make(const FontRequest& request)
    {
        Pattern wanted(FcPatternCreate());
        for (const std::string& family : request.families) {
            FcPatternAddString(wanted.get(), FC_FAMILY, bytesOf(family.c_str()));
        }
        FcPatternAddInteger(wanted.get(), FC_WEIGHT, FcWeightFromOpenType(request.weight));
        FcPatternAddInteger(wanted.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
        FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
        FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
        // Else the languages of the process's locale would be added, but for "und" even behind those given here.
        for (const char* const language : {"en", "und"}) {
            FcPatternAddString(wanted.get(), FC_LANG, bytesOf(language));
        }
        FcPatternAddString(wanted.get(), FC_NAMELANG, bytesOf("en"));
        FcConfigSubstitute(_config.get(), wanted.get(), FcMatchPattern);
        FcDefaultSubstitute(wanted.get());
        FcResult result = FcResultMatch;
        FontSet fonts(FcFontSort(_config.get(), wanted.get(), FcTrue, nullptr, &result));
        if (fonts == nullptr || fonts->nfont == 0) {
            return nullptr;
        }
        return std::make_shared<InstalledFont>(_config.get(), _library.get(), std::move(wanted), std::move(fonts));
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
