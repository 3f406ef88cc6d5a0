// Entities that a file declares for itself in its DOCTYPE.
#pragma once

#include "values/result.h"

#include <string>

namespace qsdps::svg {

/// The text with references to entities of the internal subset replaced by what they stand for. Entities in other files
/// are never read. An error when the text would grow by more than `limit` bytes or entities nest too deep.
[[nodiscard]] Result<std::string> expandEntities(std::string text, std::size_t limit);

} // namespace qsdps::svg
