// What the codes of a text stand for.
#pragma once

#include <cstdint>

/// How a document takes a font's encoding.
enum class QsdPSGlyphs : std::uint8_t {
    Latin,    ///< the font is given the characters of ISO 8859-1
    Own,      ///< a single-byte font with an encoding of its own: QsdPSPrintDevice leaves it as it is
    MultiByte ///< a font of a multi-byte encoding
};
