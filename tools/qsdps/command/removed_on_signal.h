// Temporary files that a signal must not leave behind.
#pragma once

#include <string>

namespace qsdps {

/// Creates an empty file that only the user may open. `path` ends in XXXXXX, which is replaced to make a name that
/// nothing has. Until keepOnSignal is called, a signal that ends the program removes the file first; a signal that the
/// program was started to ignore stays ignored. One such file at a time. Returns a descriptor for writing, which
/// belongs to the caller, or -1 with the reason in errno.
[[nodiscard]] int createRemovedOnSignal(std::string& path);

/// Signals leave the file that was created last alone from now on.
void keepOnSignal();

} // namespace qsdps
