// Windows of the screen by number and by name.
#pragma once

#include "window/x_errors.h"

#include <optional>
#include <string>

namespace qsdps {

/// The window that `what` stands for: "root"; a number, decimal or 0x and hexadecimal; or else a name, the whole of one
/// or, where no window has it, how just one begins. By name only windows that are shown are found, and of a window and
/// those inside it the outermost. None, with a reason in `error`, when there is no such window or several.
[[nodiscard]] std::optional<unsigned long> findWindow(const QsdXDisplay& display, XErrors& errors,
                                                      const std::string& what, std::string& error);

/// The name that a window shows, in UTF-8, on one line; empty when it has none.
[[nodiscard]] std::string nameOfWindow(const QsdXDisplay& display, unsigned long window);

} // namespace qsdps
