// Kinds of characters.
#pragma once

namespace qsdps {

/// Whether a character, a control or a mark of direction say, leaves nothing on paper and takes no room.
[[nodiscard]] bool isInvisibleCharacter(char32_t c);
/// Whether a character is read from right to left.
[[nodiscard]] bool isRightToLeft(char32_t c);
/// Whether what a character looks like, or where it stands, follows from those beside it: marks on letters, and scripts
/// whose letters join, stack or change places.
[[nodiscard]] bool isShaped(char32_t c);

} // namespace qsdps
