#include "drawing/report.h"

#include "values/utf8.h"

#include <algorithm>
#include <iterator>
#include <ostream>

namespace qsdps {
namespace {

/// Different faults kept apart; a hostile file must not make the report grow without end.
constexpr std::size_t MaxFaults = 200;

/// What a message says of a kind, behind the count.
struct Wording {
    std::string_view kind;
    std::string_view one;
    std::string_view several;
};

constexpr Wording NotDrawn[] = {
    {"character that the document's encoding lacks", "character shown as ?: the document's encoding lacks it",
     "characters shown as ?: the document's encoding lacks them"},
    {"character that no installed font has", "character shown as a box: no installed font has it",
     "characters shown as boxes: no installed font has them"},
    {"pattern fill", "area left unpainted: its pattern cannot be drawn",
     "areas left unpainted: their patterns cannot be drawn"},
    {"image", "image left out: it cannot be read", "images left out: they cannot be read"},
    {"further reference (too many in all)", "reference and those after it left out: there are too many",
     "references and those after them left out: there are too many"},
    {"foreignObject", "foreignObject element left out", "foreignObject elements left out"},
    {"flowed text", "flowed text left out", "flowed texts left out"},
    {"filter", "filter left out: it brings in something of its own",
     "filters left out: they bring in something of their own"},
    {"text in a clipPath", "text in a clipPath element left out", "texts in clipPath elements left out"},
    {"mask", "mask left out", "masks left out"},
    {"tref", "tref element left out", "tref elements left out"},
    {"clip path inside a clip path (too many)", "clip path inside another ignored: there are too many",
     "clip paths inside others ignored: there are too many"},
};

constexpr Wording Approximated[] = {
    {"font", "text shown in another font: no printer and no installed font has its letters",
     "texts shown in another font: no printer and no installed font has their letters"},
    {"stroked text", "stroked text drawn with copies of its letters",
     "stroked texts drawn with copies of their letters"},
    {"width of text in a mapped font", "text laid out as wide as in Helvetica: its mapped font is not known here",
     "texts laid out as wide as in Helvetica: their mapped fonts are not known here"},
    {"text of letters that join, stack or change order",
     "text drawn letter by letter: its letters should join, stack or change order",
     "texts drawn letter by letter: their letters should join, stack or change order"},
    {"outlined text", "text kept as a string: it cannot be outlined", "texts kept as strings: they cannot be outlined"},
    {"clipped text", "text cut by the box around its clip", "texts cut by the boxes around their clips"},
    {"clipped image", "image cut by the box around its clip", "images cut by the boxes around their clips"},
    {"gradient", "gradient replaced by its mean colour", "gradients replaced by their mean colours"},
    {"textLength", "textLength attribute ignored: its text has several styles",
     "textLength attributes ignored: their texts have several styles"},
    {"vertical text", "vertical text set horizontally", "vertical texts set horizontally"},
    {"paint fitted to text", "paint fitted to a text whose size is a guess",
     "paints fitted to texts whose sizes are guesses"},
    {"blend mode", "blend mode ignored", "blend modes ignored"},
    {"filter", "object drawn without its filter", "objects drawn without their filters"},
    {"bounding box (too much in it)", "bounding box guessed: too much is in it",
     "bounding boxes guessed: too much is in them"},
    {"line of too many dashes", "line drawn without its dashes: there are too many",
     "lines drawn without their dashes: there are too many"},
};

/// The beginning of a text of the drawing, with blanks for its controls.
std::string shortened(std::string_view text)
{
    constexpr std::size_t Longest = 40;
    std::size_t length = std::min(text.size(), Longest);
    // Not within a character of several bytes.
    while (length < text.size() && length > 0 && continuesCharacter(text[length])) {
        --length;
    }
    std::string shown(text.substr(0, length));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return shown + (length < text.size() ? "..." : "");
}

void printPlace(std::ostream& out, std::string_view inputName, int line)
{
    out << inputName << ':';
    if (line > 0) {
        out << line << ':';
    }
    out << ' ';
}

} // namespace

void Report::count(Kinds& kinds, std::string_view kind, int line, std::string_view name)
{
    const auto known = kinds.find(kind);
    Told& told = known != kinds.end() ? known->second : kinds.emplace(kind, Told{}).first->second;
    told.line = told.line > 0 ? told.line : line;
    if (told.count == 0) {
        told.name = shortened(name);
    }
    ++told.count;
}

void Report::badInput(std::string_view what, int line)
{
    if (_badInput.size() < MaxFaults || _badInput.contains(what)) {
        count(_badInput, what, line);
    }
}

void Report::print(std::ostream& out, std::string_view inputName) const
{
    for (const auto& [what, told] : _badInput) {
        printPlace(out, inputName, told.line);
        out << what;
        if (told.count > 1) {
            out << " (" << told.count << " times)";
        }
        out << '\n';
    }
    const auto printKinds = [&](const Kinds& kinds, const auto& wordings, std::string_view outcome) {
        for (const auto& [kind, told] : kinds) {
            printPlace(out, inputName, told.line);
            out << told.count << ' ';
            const auto wording = std::find_if(std::begin(wordings), std::end(wordings),
                                              [&name = kind](const Wording& known) { return known.kind == name; });
            if (wording == std::end(wordings)) {
                out << "x " << kind << ' ' << outcome;
            } else {
                out << (told.count == 1 ? wording->one : wording->several);
            }
            if (!told.name.empty()) {
                out << (told.count == 1 ? " (" : " (the first is ") << told.name << ')';
            }
            out << '\n';
        }
    };
    printKinds(_notDrawn, NotDrawn, "left out");
    printKinds(_approximated, Approximated, "drawn only nearly as asked");
}

std::string badValue(std::string_view value, std::string_view name)
{
    return "bad value '" + shortened(value) + "' of " + std::string(name) + " ignored";
}

} // namespace qsdps
