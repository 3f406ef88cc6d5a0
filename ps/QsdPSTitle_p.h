// The title in the header of a document.
#pragma once

#include <string>
#include <string_view>

/// What stands behind "%%Title: " for a title in UTF-8 (a text that is no UTF-8 counts as Latin-1); empty where nothing
/// of it can be shown.
///
/// It has no parentheses around it, which converters to PDF would take for part of the title. Printable ASCII stands as
/// it is; other characters stand as three octal digits for each byte of a text string of PDF: in PDFDocEncoding, or in
/// UTF-16 where that lacks one. Line ends and other controls become blanks, and what is too long for a line of 255
/// bytes is cut and ends in three dots.
[[nodiscard]] std::string QsdPSTitleText(std::string_view title);
