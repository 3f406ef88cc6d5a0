// The pixels of windows, whoever drew them.
#pragma once

#include "window/x_errors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qsdps {

struct WindowPixels {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint8_t> rgb; ///< three bytes a pixel, row by row
    bool isPart = false;           ///< whether the window sticks out of the screen
};

/// Reads a window, without its border, at one moment: the part of it that lies on the screen, as it is shown, with the
/// windows inside it and, unless a compositing manager keeps them apart, those that lie over it. None, with a reason in
/// `error`, when it is not there or not to be seen.
[[nodiscard]] std::optional<WindowPixels> readWindow(const QsdXDisplay& display, XErrors& errors, unsigned long window,
                                                     std::string& error);

} // namespace qsdps
