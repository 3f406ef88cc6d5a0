// Characters of UTF-8 texts.
#pragma once

#include <string_view>

namespace qsdps {

/// Takes the first character off `text`, which is not empty, and gives its bytes; bytes that are no UTF-8 count one by
/// one as the replacement character.
[[nodiscard]] char32_t takeCharacter(std::string_view& text, std::string_view& bytes);
/// Whether a character, a control or a mark of direction say, leaves nothing on paper and takes no room.
[[nodiscard]] bool isInvisibleCharacter(char32_t c);
/// Whether a character is read from right to left.
[[nodiscard]] bool isRightToLeft(char32_t c);
/// Whether what a character looks like, or where it stands, follows from those beside it: marks on letters, and scripts
/// whose letters join, stack or change places.
[[nodiscard]] bool isShaped(char32_t c);

} // namespace qsdps
