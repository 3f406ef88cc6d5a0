// Parts that prologs are made of.
#pragma once

#include <string_view>

class QsdPSWriter;

/// Writes a text line by line; every line of it ends with a newline.
void QsdPSWriteText(QsdPSWriter& out, std::string_view text);

/// Writes the definition of Latin1Encoding: the codes at which it differs from a font's own encoding, with their
/// glyphs.
void QsdPSWriteLatin1Encoding(QsdPSWriter& out);

/// Writes the definition of the composite font `name`-QSD-H: a Japanese font whose first part is Latin, scaled by
/// `latinScale` percent to suit the glyphs of the two others.
void QsdPSWriteCompositeFont(QsdPSWriter& out, std::string_view name, int latinScale);
