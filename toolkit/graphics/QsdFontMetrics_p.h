// Metrics of the PostScript families that every printer has.
#pragma once

#include <cstdint>

/// One face: its extent and the advances of the characters, in thousandths of the size.
struct QsdFontMetrics {
    std::uint16_t ascent;
    std::uint16_t descent;
    /// Advances of the codes 32 to 255 in the encoding that documents give to Latin fonts, or in the font's own where
    /// its glyphs are no letters; 0: no such character.
    std::uint16_t advances[224];
};

/// The metrics of a family (case does not count; unknown and null families are taken for Helvetica) in bold or italic.
[[nodiscard]] const QsdFontMetrics& QsdMetricsOf(const char* family, bool bold, bool italic);
