// Whether a document keeps the document structuring conventions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What is wrong with a document, a line for each fault; empty when nothing is. Looks at the order and the nesting of
/// the comments, at their numbers and names, at the lengths of lines, and, in encapsulated documents, for operators
/// that spoil the page around them.
[[nodiscard]] std::vector<std::string> structureFaults(std::string_view document);
