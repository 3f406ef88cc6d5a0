// The fonts and patterns of a document in which each is defined once.
#pragma once

#include "ps/QsdPSGlyphs.h"
#include "ps/QsdPSSpool_p.h"

#include <compare>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What tells patterns apart: how they are painted, and what.
struct QsdPSPatternKey {
    enum Kind : std::uint8_t { Mask, Bits, Grey, Color };

    Kind kind = Mask;
    bool upright = false;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint64_t hashes[2] = {}; ///< of the samples
    // The check takes what the compiler makes of this for a comparison with a null pointer.
    auto operator<=>(const QsdPSPatternKey&) const = default; // NOLINT(modernize-use-nullptr)
};

/// Collects definitions while the pages are drawn. Fonts are called F1, F2, ..., patterns P1, P2, ... in the document.
class QsdPSPrintResources {
public:
    struct Font {
        std::string name;
        QsdPSGlyphs glyphs = QsdPSGlyphs::Latin;
    };

    /// Forgets everything.
    void reset();

    /// The number of a font, from 0; one not asked for before is defined.
    unsigned font(std::string_view name, QsdPSGlyphs glyphs);
    [[nodiscard]] const std::vector<Font>& fonts() const { return _fonts; }
    /// Notes that the document brings the file of a font.
    void supplyFont(std::string_view name);
    /// The names of fonts that the document needs from the interpreter, and those of which it brings the files.
    [[nodiscard]] std::vector<std::string> neededFonts() const;
    [[nodiscard]] const std::vector<std::string>& suppliedFonts() const { return _supplied; }

    /// The number of a pattern, from 1; `isNew` tells whether its definition is to be written.
    unsigned pattern(const QsdPSPatternKey& key, bool& isNew);
    /// Takes back a definition that could not be written.
    void forgetPattern(const QsdPSPatternKey& key) { _patterns.erase(key); }
    /// Entries that the definitions make in the document's dictionary.
    [[nodiscard]] std::size_t definitionCount() const { return _fonts.size() + 2 * _patterns.size(); }

    /// The fonts of the interpreter or of font files that a font consists of.
    [[nodiscard]] static std::vector<std::string> partsOf(const Font& font);

    /// Where font files go, and where the definitions of patterns go.
    [[nodiscard]] QsdPSSpool& fontFiles() { return _fontFiles; }
    [[nodiscard]] QsdPSSpool& patternDefinitions() { return _patternDefinitions; }
    [[nodiscard]] bool failed() const { return _fontFiles.fail() || _patternDefinitions.fail(); }

private:
    std::vector<Font> _fonts;
    std::vector<std::string> _supplied;
    std::map<QsdPSPatternKey, unsigned> _patterns;
    unsigned _lastPattern = 0;
    QsdPSSpool _fontFiles;
    QsdPSSpool _patternDefinitions;
};

/// Whether a font is one of the composite fonts that the document defines itself; `base` is set to the name of the
/// Japanese font in it.
[[nodiscard]] bool QsdPSIsOwnComposite(std::string_view name, std::string_view& base);
