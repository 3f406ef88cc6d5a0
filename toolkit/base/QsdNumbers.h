// How numbers are read and written, whatever the user's locale.
#pragma once

#include "toolkit/base/QsdExport.h"

/// Enters (true) or leaves (false) the classic number conventions, in which the decimal separator is a point. Calls
/// nest; the outermost leave brings the user's conventions back. Costs next to nothing when they are classic anyway.
/// A leave without an enter does nothing.
QSD_API void QsdSetLocaleC(bool classic);

/// The separator between two numbers in a document: a single blank.
[[nodiscard]] inline const char* QsdSpc()
{
    return " ";
}
