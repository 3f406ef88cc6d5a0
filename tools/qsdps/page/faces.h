// The typefaces that drawings name, and the toolkit's families that stand in for them.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qsdps {

/// How far the characters of a face reach, in thousandths of its size; Latin-1 from the blank on.
using Advances = std::array<std::uint16_t, 224>;

struct Face {
    enum class Likeness : unsigned char {
        Same,   ///< the family has the letters that were asked for
        Kind,   ///< a kind was asked for, and the family is of that kind
        Another ///< other letters were asked for
    };
    Likeness likeness = Likeness::Same;
    const char* family = nullptr; ///< of the toolkit
    /// What the characters have to measure, the letters stretched to it; null: what they measure in that family.
    const Advances* advances = nullptr;
    bool isMeasured = true; ///< whether the toolkit knows what the characters of the family measure
    double narrowing = 1;   ///< times that
    double tallness = 1;    ///< of the letters, in those of the family
};

/// Tells whether a family is installed, whatever the toolkit has.
using IsInstalled = std::function<bool(const std::string&)>;

/// Gives the name by which the fonts of the printer know a family, or null where they do not.
using FindMapped = std::function<const char*(const std::string&)>;

/// The face for a list of families: the first that is mapped (with `findMapped`, which may be empty), whose letters are
/// known or that is installed, else what a name sounds like. Those of other letters get the widths of the face that
/// programs on free systems fall back to, so that lines end where their author saw them end. The name of a mapped
/// family is that of `findMapped`, not a copy.
[[nodiscard]] Face faceFor(const std::vector<std::string>& families, bool bold, const IsInstalled& isInstalled,
                           const FindMapped& findMapped = {});

} // namespace qsdps
