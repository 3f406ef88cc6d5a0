// Entities that a file declares for itself in its DOCTYPE.
#pragma once

#include <string>

namespace qsdps::svg {

/// Replaces references to entities of the internal subset by their text. Entities in other files are never read.
/// Gives false and says why in `error` when the text would grow by more than `limit` bytes or entities nest too deep.
[[nodiscard]] bool expandEntities(std::string& text, std::size_t limit, std::string& error);

} // namespace qsdps::svg
