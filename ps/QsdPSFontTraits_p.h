// What the devices ask of a font.
#pragma once

#include <string_view>

class QsdFont;

/// Whether texts of a font run from top to bottom: in Shift-JIS documents, those of families that begin with an at
/// sign.
[[nodiscard]] bool QsdPSIsVertical(const QsdFont& font);

/// The size that a font is selected in, in units; that of one without a size follows from its extent and may be -1.
[[nodiscard]] int QsdPSSizeOf(const QsdFont& font);

/// Whether a font of every printer has an encoding of its own, with glyphs that are no letters.
[[nodiscard]] bool QsdPSIsPiFont(std::string_view name);
