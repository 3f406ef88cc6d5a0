// The font map that the user gives, and what families it has.
#pragma once

#include "toolkit/base/QsEncoding.h"
#include "values/result.h"

#include <string>

namespace qsdps {

/// A font map file in memory, so that one that comes through a pipe can be entered twice.
class FontMap {
public:
    /// An empty map.
    FontMap() = default;
    /// Reads the file at `path` and enters its families into the registry of the process. An error
    /// when it cannot be read or is not right to its end.
    [[nodiscard]] static Result<FontMap> enter(const std::string& path);

    /// Enters the families again. A document that is begun reads the map on the data path, which replaces families of
    /// the same name; after that call those of this map count once more.
    void enterAgain() const;

private:
    std::string _text;
};

/// The name of the family in the registry, case aside, for texts in `encoding`; null when it has none of that name. The
/// registry owns the name.
[[nodiscard]] const char* mappedFamily(const std::string& family, QsEncoding encoding);

} // namespace qsdps
