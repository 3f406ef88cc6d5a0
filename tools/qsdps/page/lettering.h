// Texts as outlines, for what a device's strings cannot show.
#pragma once

#include "page/letters.h"

#include <optional>
#include <vector>

namespace qsdps {

/// What one span looks like in the chunk's user space, for the non-zero rule.
struct LetteredSpan {
    const TextSpan* span = nullptr; ///< of the chunk
    std::vector<Path> rules;        ///< pieces of lines under, over and through the letters
    std::vector<Path> letters;      ///< as they are seen, from left to right; blanks leave none
};

struct Lettering {
    std::vector<LetteredSpan> spans;
    std::size_t letters = 0;      ///< in all
    std::size_t missing = 0;      ///< characters that no installed font has, for which something else stands
    bool isApproximation = false; ///< letters stand side by side that should join, stack or go from right to left
};

/// The spans of a chunk laid out one after the other, aligned together. None when there are no fonts.
///
/// A span is brought into the order in which it is seen; the spans themselves follow each other from left to right, and
/// letters take no other shape beside others.
[[nodiscard]] std::optional<Lettering> letteringOf(const TextChunk& chunk, LetterFonts& fonts);

/// Joins outlines to areas that are painted one by one: those that overlap the one in front of them are in one area
/// with it, up to as many as are little work to paint.
[[nodiscard]] std::vector<Path> areasOf(std::vector<Path> outlines);

} // namespace qsdps
