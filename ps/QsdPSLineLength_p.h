// How long the lines of a document are.
#pragma once

#include <cstddef>
#include <limits>

/// The columns from which on lines are broken. The document structuring conventions take lines of up to 255 bytes.
struct QsdPSLineLength {
    /// Of a path, a clip or dashes: room is left for the greatest element and for what is done with the path.
    std::size_t elements;
    /// Within a string literal: room is left for what aligns and shows it.
    std::size_t literal;
};

/// Lines as they come.
inline constexpr QsdPSLineLength QsdPSAnyLength{std::numeric_limits<std::size_t>::max(),
                                                std::numeric_limits<std::size_t>::max()};
/// Lines within the conventions.
inline constexpr QsdPSLineLength QsdPSConventionalLength{120, 180};
