// Pictures of windows on an X screen.
#pragma once

#include "command/input.h"

#include <memory>
#include <string>

namespace qsdps {

/// Starts the program qsdps-window, which lies beside this one or is found like other programs, to read a window (its
/// number, its name, or "root"), and gives the PNM picture that it writes. So this program needs no X. Unless `quiet`,
/// that program warns of what it leaves out. An error when there is no such program or it tells,
/// itself, why there is no picture.
[[nodiscard]] Result<std::unique_ptr<Input>> openWindow(const std::string& window, bool quiet);

} // namespace qsdps
