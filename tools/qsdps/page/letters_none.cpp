// For systems without the means to find and read fonts.
#include "page/letters.h"

namespace qsdps {

class LetterFonts::Table {};

LetterFonts::LetterFonts() = default;
LetterFonts::~LetterFonts() = default;

bool LetterFonts::has(const std::string&)
{
    return false;
}

std::shared_ptr<LetterFont> LetterFonts::find(const FontRequest&)
{
    return nullptr;
}

} // namespace qsdps
