#include "page/faces.h"

#include "page/wide_advances.h"
#include "values/lower_case.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qsdps {

namespace {

enum class Width : unsigned char { Own, WideSans, WideSerif };

struct FamilyName {
    std::string_view part; ///< what the name contains, in lower case
    const char* family;
    Width width = Width::Own;
};

/// Names whose letters measure what these say. Looked through in order: the first part that a name contains decides.
constexpr FamilyName KnownNames[] = {
    {"symbol", "symbol"},
    {"courier", "courier"},
    {"nimbus mono", "courier"},
    {"liberation mono", "courier"},
    {"monospace", "courier"},
    {"dejavu sans mono", "courier"},
    {"vera sans mono", "courier"},
    {"helvetica neue", "helvetica", Width::WideSans},
    {"helvetica", "helvetica"},
    {"arial black", "helvetica", Width::WideSans},
    {"arial", "helvetica"},
    {"nimbus sans", "helvetica"},
    {"liberation sans", "helvetica"},
    {"freesans", "helvetica"},
    {"arimo", "helvetica"},
    {"dejavu sans", "helvetica", Width::WideSans},
    {"vera sans", "helvetica", Width::WideSans},
    {"verdana", "helvetica", Width::WideSans},
    {"times", "times"},
    {"nimbus rom", "times"},
    {"liberation serif", "times"},
    {"freeserif", "times"},
    {"tinos", "times"},
    {"dejavu serif", "times", Width::WideSerif},
    {"vera serif", "times", Width::WideSerif},
    {"georgia", "times", Width::WideSerif},
};

/// Names of kinds, which are taken where they are the whole name.
constexpr FamilyName GenericNames[] = {
    {"serif", "times", Width::WideSerif},
    {"sans-serif", "helvetica", Width::WideSans},
    {"sans", "helvetica", Width::WideSans},
    {"mono", "courier"},
};

/// What other names sound like.
constexpr FamilyName Sounds[] = {
    {"mono", "courier"},   {"typewriter", "courier"}, {"consol", "courier"},
    {"fixed", "courier"},  {"terminal", "courier"},   {"cousine", "courier"},
    {"menlo", "courier"},  {"monaco", "courier"},     {"sans", "helvetica", Width::WideSans},
    {"serif", "times"},    {"roman", "times"},        {"garamond", "times"},
    {"palatino", "times"}, {"bookman", "times"},      {"schoolbook", "times"},
    {"cambria", "times"},  {"minion", "times"},       {"libertine", "times"},
    {"charter", "times"},  {"baskerville", "times"},  {"bodoni", "times"},
    {"caslon", "times"},   {"didot", "times"},        {"antiqua", "times"},
    {"cmr", "times"},      {"mincho", "times"},
};

/// The families of the toolkit whose metrics are those of the printer's fonts.
constexpr std::string_view MeasuredFamilies[] = {"helvetica", "times", "courier", "symbol"};

Face faceOf(const FamilyName& found, std::string_view name, bool bold, Face::Likeness likeness)
{
    constexpr double SansTallness = 1.02;
    constexpr double SerifTallness = 1.1;
    constexpr double Narrow = 0.82;
    constexpr double Condensed = 0.9;
    Face face;
    face.likeness = likeness;
    face.family = found.family;
    if (found.width == Width::WideSans) {
        face.advances = bold ? &WideSansBold : &WideSans;
        face.tallness = SansTallness;
    } else if (found.width == Width::WideSerif) {
        face.advances = bold ? &WideSerifBold : &WideSerif;
        face.tallness = SerifTallness;
    }
    if (name.find("narrow") != std::string_view::npos) {
        face.narrowing = Narrow;
    } else if (name.find("condensed") != std::string_view::npos) {
        face.narrowing = Condensed;
    }
    return face;
}

/// A face of other letters that looks as the names sound.
Face soundOf(const std::vector<std::string>& families, bool bold)
{
    for (const std::string& family : families) {
        const std::string name = lowerCase(family);
        for (const FamilyName& sound : Sounds) {
            if (name.find(sound.part) != std::string::npos) {
                return faceOf(sound, name, bold, Face::Likeness::Another);
            }
        }
    }
    return faceOf({"", "helvetica", Width::WideSans}, "", bold, Face::Likeness::Another);
}

} // namespace

Face faceFor(const std::vector<std::string>& families, bool bold, const IsInstalled& isInstalled,
             const FindMapped& findMapped)
{
    for (const std::string& family : families) {
        if (const char* const mapped = findMapped ? findMapped(family) : nullptr) {
            Face face;
            face.family = mapped;
            face.isMeasured = std::find(std::begin(MeasuredFamilies), std::end(MeasuredFamilies), lowerCase(mapped)) !=
                              std::end(MeasuredFamilies);
            return face;
        }
        const std::string name = lowerCase(family);
        for (const FamilyName& generic : GenericNames) {
            if (name == generic.part) {
                return faceOf(generic, name, bold, Face::Likeness::Kind);
            }
        }
        for (const FamilyName& known : KnownNames) {
            if (name.find(known.part) != std::string::npos) {
                Face face = faceOf(known, name, bold, Face::Likeness::Same);
                if (face.advances != nullptr || face.narrowing != 1) {
                    face.likeness = Face::Likeness::Another;
                }
                return face;
            }
        }
        if (isInstalled(family)) {
            return soundOf({family}, bold);
        }
    }
    return soundOf(families, bold);
}

} // namespace qsdps
