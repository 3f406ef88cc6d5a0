// Reads one value of a line-oriented data file.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <iosfwd>

/// Reads a word, or a quoted string with blanks in it, from the current line of `stream`.
/// Blanks and tabs in front are skipped. A string starts with a double quote and ends at the next one; in it a
/// backslash takes the following character as it is, and \n, \t, \r and \ooo (octal) stand for the bytes of C.
/// Neither a word nor a string goes beyond the end of its line, which stays unread; at most 65,535 bytes are kept.
/// Returns a new zero-terminated text, empty when the line has no value; release it with QsFree.
[[nodiscard]] QSD_API char* QsdReadString(std::istream& stream);
