// String literals of PostScript documents.
#pragma once

#include "toolkit/base/QsEncoding.h"
#include "toolkit/base/QsdExport.h"

#include <iosfwd>

/// The encoding of the texts of the document under way, taken from the global context when it is opened.
extern QSD_API QsEncoding CurrentEncoding;

/// Writes what stands between the parentheses of a string literal for `length` bytes of `text` (negative: up to the
/// terminating zero) in CurrentEncoding: escaped for Latin texts, split into runs for the composite font for Japanese
/// EUC, in octal throughout for Shift-JIS. A null or empty text, or a length of 0, writes nothing; so does a null
/// `out`.
QSD_API void WriteOutPSString(const char* text, std::ostream* out, int length);
