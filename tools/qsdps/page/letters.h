// Letters of the fonts that are installed, as outlines.
#pragma once

#include "drawing/text.h"

#include <memory>
#include <string>

namespace qsdps {

/// What one character looks like, in ems, y downwards, its origin on the baseline.
struct Letter {
    Path outline;
    double advance = 0;
};

/// A font of outlines, with others behind it for the characters that it lacks.
class LetterFont {
public:
    virtual ~LetterFont() = default;

    /// The letter of a character; null when no installed font has it.
    [[nodiscard]] virtual std::shared_ptr<const Letter> letter(char32_t character) = 0;
    /// What stands for characters that no installed font has; null where the fonts have nothing for them.
    [[nodiscard]] virtual std::shared_ptr<const Letter> substitute() = 0;
    /// What two characters that follow each other are moved apart, in ems.
    [[nodiscard]] virtual double kerning(char32_t first, char32_t second) = 0;
};

/// The installed fonts. They are looked at when they are first asked for.
class LetterFonts {
public:
    LetterFonts();
    ~LetterFonts();
    LetterFonts(const LetterFonts&) = delete;
    LetterFonts& operator=(const LetterFonts&) = delete;

    /// Whether a font of just that family is installed.
    [[nodiscard]] bool has(const std::string& family);
    /// The font that comes closest to a request, whatever its size; null where none is installed. It is not to be used
    /// when the fonts are gone.
    [[nodiscard]] std::shared_ptr<LetterFont> find(const FontRequest& request);

private:
    class Table;

    std::unique_ptr<Table> _table;
};

} // namespace qsdps
