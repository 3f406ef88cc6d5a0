// Fonts.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Bits of a font's style.
enum QsdFontStyle : std::uint16_t {
    QsdFontPlain = 0,
    QsdFontBold = 1,
    QsdFontUnderlined = 2,
    QsdFontItalic = 4,
    QsdFontByXName = 4096 ///< the whole style: a font known only by its window system's name
};

/// An unchanging font: family, style and size, with the metrics that the toolkit knows for it.
/// A window system derives from it to carry its own font structure.
class QSD_API QsdFont : public QsdResource {
public:
    /// A font by family (copied; null allowed), style bits and size in coordinate units. Metrics come from the built-in
    /// tables of the usual PostScript families, those of Helvetica for others.
    QsdFont(const char* family, std::uint16_t style, std::uint16_t size);

    /// The family, null when the font has none.
    [[nodiscard]] const char* getFamily() const { return _family ? _family->c_str() : nullptr; }
    /// The bits of QsdFontStyle that it was made with.
    [[nodiscard]] std::uint16_t style() const { return _style; }
    /// Whether texts get a line below.
    [[nodiscard]] bool isUnderlined() const { return (_style & QsdFontUnderlined) != 0; }
    /// Size in units; 0: only ascent and descent tell.
    [[nodiscard]] std::uint16_t size() const { return _size; }
    /// Units from the baseline to the top of the tallest letters.
    [[nodiscard]] std::uint16_t ascent() const { return _ascent; }
    /// Units from the baseline to the bottom of the lowest letters.
    [[nodiscard]] std::uint16_t descent() const { return _descent; }
    /// The advance of `length` bytes of `text` (negative: up to its terminating zero) in units. Single-byte texts are
    /// measured character by character; two-byte characters count as one size, half-width ones as half of it.
    [[nodiscard]] virtual double stringWidth(const char* text, int length) const;
    /// The names by which the font's window system knows it, one for each font of a set ("-foundry-family-..."); none
    /// for a font that no window system made.
    [[nodiscard]] virtual std::vector<QsString> windowSystemNames() const { return {}; }

protected:
    /// A font with metrics from elsewhere.
    QsdFont(const char* family, std::uint16_t style, std::uint16_t size, std::uint16_t ascent, std::uint16_t descent);

private:
    std::optional<QsString> _family;
    std::uint16_t _style;
    std::uint16_t _size;
    std::uint16_t _ascent;
    std::uint16_t _descent;
};
