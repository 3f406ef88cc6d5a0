// String literals within a line that is being written.
#pragma once

#include "ps/QsdPSLineLength_p.h"

class QsdPSWriter;

/// Does what WriteOutPSString does, into the line that `out` collects. Where lines are kept short the literal goes on
/// on further lines, none of which begins as a comment does, and control characters are escaped.
void QsdPSWriteStringBody(QsdPSWriter& out, const char* text, int length, const QsdPSLineLength& lines);
