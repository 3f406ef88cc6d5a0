// Texts as outlines, for what a device's strings cannot show.
#pragma once

#include "page/letters.h"

#include <optional>
#include <vector>

namespace qsdps {

/// What one span looks like in the chunk's user space, for the non-zero rule.
struct LetteredSpan {
    const TextSpan* span = nullptr; ///< of the chunk
    Path letters;
    Path rules; ///< lines under, over and through the letters
};

/// The spans of a chunk laid out one after the other, aligned together. None when some characters are in no installed
/// font.
[[nodiscard]] std::optional<std::vector<LetteredSpan>> letteringOf(const TextChunk& chunk, LetterFonts& fonts);

} // namespace qsdps
