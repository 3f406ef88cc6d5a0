// Characters of UTF-8 texts.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstddef>
#include <string_view>

/// What stands for bytes that are no UTF-8.
inline constexpr char32_t QsdReplacementCharacter = 0xFFFD;

/// Reads the character of `text` that begins at `at`, which is less than the text's size, and moves `at` behind it. A
/// byte that belongs to no character, because a sequence is broken off, longer than it needs to be, a surrogate or
/// beyond U+10FFFF, gives QsdReplacementCharacter and is passed alone.
[[nodiscard]] QSD_API char32_t QsdNextUtf8(std::string_view text, std::size_t& at);
