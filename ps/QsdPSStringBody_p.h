// String literals within a line that is being written.
#pragma once

class QsdPSWriter;

/// Does what WriteOutPSString does, into the line that `out` collects.
void QsdPSWriteStringBody(QsdPSWriter& out, const char* text, int length);
