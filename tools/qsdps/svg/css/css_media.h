// Which parts of style sheets are meant for paper.
#pragma once

#include "values/css_text.h"

#include <string_view>

namespace qsdps::svg {

/// True when one of the media queries, apart by commas, holds for print, or when there is none. Of the features only
/// prefers-color-scheme is known, and is light; queries that hang on another one do not hold, and are told.
[[nodiscard]] bool mediaApplies(std::string_view queries, const SheetFault& tell);

} // namespace qsdps::svg
