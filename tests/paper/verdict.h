// Whether a page on paper is as alike that on the screen as it is to be.
#pragma once

#include "operation.h"
#include "picture.h"

#include <string>

/// Of pages of many calls: lines lie half a pixel off beside areas that do not, and one call may leave a thin rest of
/// another to be seen.
inline constexpr Match OfManyCalls{Look::Pixels, 2, 0.45, 0.025};

/// What is wrong with `page`, in words; empty when it matches.
[[nodiscard]] std::string mismatch(const Picture& screen, const Picture& page, const Match& match);
