// What keys ask for.
#pragma once

#include <string_view>

namespace qsdview {

enum class Command {
    None,
    Quit,
    NextPage,
    PreviousPage,
    FirstPage,
    LastPage,
    ZoomIn,
    ZoomOut,
    Fit,
    ActualSize,
    Left,
    Right,
    Up,
    Down,
    Print
};

/// The command of a key with this name in X; None for all others.
[[nodiscard]] Command commandOf(std::string_view key);

} // namespace qsdview
