// Character encodings of XML files.
#pragma once

#include <string>

namespace qsdps::svg {

/// Turns a file in UTF-16 (by its mark or first characters), Latin-1 or Windows-1252 (as declared) into UTF-8;
/// anything else is taken to be UTF-8 and only loses its byte order mark.
[[nodiscard]] std::string toUtf8(std::string bytes);

} // namespace qsdps::svg
