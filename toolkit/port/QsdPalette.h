// The graphic context of a drawing call.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/graphics/QsdColor.h"
#include "toolkit/graphics/QsdColorPattern.h"
#include "toolkit/graphics/QsdFont.h"
#include "toolkit/graphics/QsdLineStyle.h"
#include "toolkit/graphics/QsdPattern.h"
#include "toolkit/graphics/QsdResource.h"

#include <cstdint>

class QsdDisplay;

/// How an area is filled.
enum QsdFillStyle : std::uint16_t {
    QsdFillPattern = 0,     ///< set bits of the pattern in the foreground, the others in the background
    QsdFillMaskPattern = 1, ///< set bits of the pattern in the foreground, the others left alone
    QsdFillColorPattern = 2 ///< pixels of the colour pattern
};

/// Which points lie inside a path that crosses itself.
enum QsdFillRule : std::uint16_t { QsdEvenOddRule = 0, QsdWindingRule = 1 };

/// How a filled arc is closed.
enum QsdArcMode : std::uint16_t { QsdArcPie = 0, QsdArcChord = 1 };

/// Colours, font, line, pattern and clip of a drawing call. It shares the objects it is given: each setter takes a
/// reference of its own and gives back that to the old object. The display's solid line style, solid pattern, default
/// font and its black and white stand in for null, so none of them is ever null; the colour pattern may be.
/// The values of fill style, fill rule and arc mode are kept as given, also values that have no name.
class QSD_API QsdPalette : public QsdResource {
public:
    /// Black on white, solid, width 0, the display's default font, even-odd, pie, no clip. The display is not owned and
    /// must outlive the palette.
    explicit QsdPalette(const QsdDisplay* display);
    /// A palette of its own with all attributes of `other`, which must not be null.
    explicit QsdPalette(const QsdPalette* other);

    /// The display that it was made for.
    [[nodiscard]] const QsdDisplay* display() const { return _display; }
    /// Colour of lines, areas and letters.
    [[nodiscard]] const QsdColor* foreground() const { return _foreground.get(); }
    /// Colour of cleared areas, of boxes behind texts and of unset bits.
    [[nodiscard]] const QsdColor* background() const { return _background.get(); }
    /// Font of texts.
    [[nodiscard]] const QsdFont* font() const { return _font.get(); }
    /// Dashes of lines.
    [[nodiscard]] const QsdLineStyle* lineStyle() const { return _lineStyle.get(); }
    /// Width of lines in coordinate units, 0: as thin as can be.
    [[nodiscard]] std::uint16_t lineWidth() const { return _lineWidth; }
    /// Tile of areas.
    [[nodiscard]] const QsdPattern* pattern() const { return _pattern.get(); }
    /// Coloured tile of areas; null: none.
    [[nodiscard]] const QsdColorPattern* colorPattern() const { return _colorPattern.get(); }
    /// How areas are filled: a value of QsdFillStyle.
    [[nodiscard]] std::uint16_t fillStyle() const { return _fillStyle; }
    /// What is inside of a path: a value of QsdFillRule.
    [[nodiscard]] std::uint16_t fillRule() const { return _fillRule; }
    /// How filled arcs are closed: a value of QsdArcMode.
    [[nodiscard]] std::uint16_t arcMode() const { return _arcMode; }
    /// 0 (clear) to 65535 (opaque); for ports that can blend.
    [[nodiscard]] std::uint16_t alpha() const { return _alpha; }
    /// 0: off; for ports that can smooth edges.
    [[nodiscard]] std::uint16_t antialiasing() const { return _antialiasing; }
    /// Region that drawing is limited to; full: no limit.
    [[nodiscard]] const QsdRegion& clipRegion() const { return _clipRegion; }

    /// Null: black.
    void setForeground(const QsdColor* color);
    /// Null: white.
    void setBackground(const QsdColor* color);
    /// Null: the display's default font.
    void setFont(const QsdFont* font);
    /// Null: solid; the width is in coordinate units, 0: as thin as can be.
    void setLineStyle(const QsdLineStyle* style, std::uint16_t width);
    /// Null: solid.
    void setPattern(const QsdPattern* pattern);
    /// Null: none.
    void setColorPattern(const QsdColorPattern* pattern);
    /// A value of QsdFillStyle.
    void setFillStyle(std::uint16_t style) { _fillStyle = style; }
    /// A value of QsdFillRule.
    void setFillRule(std::uint16_t rule) { _fillRule = rule; }
    /// A value of QsdArcMode.
    void setArcMode(std::uint16_t mode) { _arcMode = mode; }
    /// 0 (clear) to 65535 (opaque).
    void setAlpha(std::uint16_t alpha) { _alpha = alpha; }
    /// 0: off.
    void setAntialiasing(std::uint16_t mode) { _antialiasing = mode; }
    /// Copies the region.
    void setClipRegion(const QsdRegion& region) { _clipRegion = region; }

protected:
    ~QsdPalette() override = default;

private:
    const QsdDisplay* _display;
    QsdHandle<const QsdColor> _foreground;
    QsdHandle<const QsdColor> _background;
    QsdHandle<const QsdFont> _font;
    QsdHandle<const QsdLineStyle> _lineStyle;
    QsdHandle<const QsdPattern> _pattern;
    QsdHandle<const QsdColorPattern> _colorPattern;
    std::uint16_t _lineWidth = 0;
    std::uint16_t _fillStyle = QsdFillPattern;
    std::uint16_t _fillRule = QsdEvenOddRule;
    std::uint16_t _arcMode = QsdArcPie;
    std::uint16_t _alpha = 65535;
    std::uint16_t _antialiasing = 0;
    QsdRegion _clipRegion = QsdRegion::Full();
};
