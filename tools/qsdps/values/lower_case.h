// Names that mean the same in capitals.
#pragma once

#include "values/scanner.h"

#include <string>
#include <string_view>

namespace qsdps {

/// A text with its Latin letters in lower case, whatever the locale; other characters stay as they are.
[[nodiscard]] inline std::string lowerCase(std::string_view text)
{
    std::string result(text);
    for (char& c : result) {
        c = toLower(c);
    }
    return result;
}

} // namespace qsdps
