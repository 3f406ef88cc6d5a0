// Draws the objects of a drawing through a port.
#pragma once

#include "drawing/canvas.h"
#include "drawing/report.h"
#include "page/backdrop.h"
#include "page/clip_stack.h"
#include "page/colors.h"
#include "page/fonts.h"
#include "page/ground.h"
#include "page/text_encoding.h"
#include "page/text_form.h"
#include "page/units.h"
#include "toolkit/port/QsdPort.h"

#include <optional>
#include <utility>
#include <vector>

namespace qsdps {

struct StrokeFrame;

struct BandArea;
struct Lettering;

/// What painters of several pages share, so that the port sees the same objects again.
struct PaintTools {
    /// For texts in `encoding`, as far as they are strings; `findMapped` tells what families the port has.
    PaintTools(QsdDisplay& display, QsEncoding encoding, TextForm form = TextForm::Auto, FindMapped findMapped = {})
        : fonts(display, encoding, letters, std::move(findMapped)), encoder(encoding), textForm(form),
          palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display)))
    {
    }

    ColorTable colors;
    LetterFonts letters;
    FontTable fonts;
    TextEncoder encoder;
    TextForm textForm;
    QsdHandle<QsdPalette> palette;
};

/// A canvas on one page of a port. The port's transformer must map units to points; it stays as it is.
class Painter : public Canvas {
public:
    /// Paints on `port` with `units`; `pageToPoints` maps the drawing's page (CSS pixels) to points on the paper, which
    /// has the colour `paper`.
    Painter(const QsdPort& port, const Units& units, const Matrix& pageToPoints, Rgb paper, PaintTools& tools,
            Report& report);
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    void fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage) override;
    void stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage) override;
    void text(const TextChunk& chunk, const Matrix& toPage) override;
    void image(const ImageObject& image, double opacity, const Matrix& toPage) override;
    void pushClip(const ClipPath& clip) override;
    void popClip() override;
    void beginGroup(double opacity) override;
    void endGroup() override;
    /// Draws what is still held back; call it when the page is painted.
    void finish();

private:
    class TileCanvas;

    /// Fill and stroke with paints that let only the first `groundEnd` areas shine through: not those of other pieces
    /// of the same object.
    void fillOver(std::size_t groundEnd, const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage);
    void strokeOver(std::size_t groundEnd, const Path& path, const StrokeStyle& style, const Paint& paint,
                    const Matrix& toPage);
    /// Where the stroke of a path of the user space that `toPage` maps goes, under the clip in force.
    [[nodiscard]] StrokeFrame strokeFrame(const Matrix& toPage) const;
    /// Fills an area with a paint of the user space that `toPage` maps, cut by the clip in force.
    void paintArea(std::size_t groundEnd, Rings rings, FillRule rule, const Paint& paint, const Matrix& toPage);
    void paintTiles(const Rings& rings, const Tile& tile, double opacity, const Matrix& toPage);
    void paintGradient(std::size_t groundEnd, const Rings& rings, const Gradient& gradient, double opacity,
                       const Matrix& toUnits);
    /// Fills an area inside the clip (non-zero rule) with bands, each hiding some of those before, that let the first
    /// `groundEnd` areas shine through.
    void fillBands(const Rings& rings, const std::vector<BandArea>& bands, std::size_t groundEnd);
    /// The same as pixels. False, and nothing done, when that would take too many.
    bool paintPixels(const Rings& rings, const std::vector<BandArea>& bands, std::size_t groundEnd);
    /// Whether a text is to be outlines: as the user says, or else where strings of the port cannot show it as it
    /// should look.
    [[nodiscard]] bool wantsOutlines(const TextChunk& chunk) const;
    /// Draws a text as outlines; false, and nothing drawn, when strings do better, or it is too long.
    bool paintOutlines(const TextChunk& chunk, const Matrix& toPage);
    /// The letters of a text that is part of a clip, in its user space; too many are left out and told.
    [[nodiscard]] std::vector<Path> clipLetters(const TextChunk& chunk);
    void tellShortcomings(const Lettering& lettering);
    void paintLettering(const Lettering& lettering, const Matrix& toPage);
    void paintStrings(const TextChunk& chunk, const Matrix& toPage);
    void hold(const RasterPicture& picture);
    void drawHeld();
    void drawHeldUnder(const QsdRect& bounds);
    /// Fills an area with one opaque colour, cut by the clip's rectangle.
    void fillOpaque(Rings rings, FillRule rule, Rgb color);
    /// Draws a stroke as lines of the port; false, and nothing drawn, when its lines would not look right. `area` gives
    /// what it covers.
    bool strokeAsLines(std::size_t groundEnd, const std::vector<Chain>& chains, const StrokeStyle& style, double width,
                       const Ink& ink, Ground::AreaMaker area);
    /// Puts the clip in force for something that covers `bounds` into the palette; false when nothing of it is left.
    bool clipTo(const QsdRect& bounds);

    const QsdPort& _port;
    Units _units;
    Matrix _pageToUnits;
    PaintTools& _tools;
    Report& _report;
    ClipStack _clips;
    Ground _ground;
    GroupStack _groups;
    std::size_t _letters = 0;           ///< drawn as outlines so far
    std::size_t _clipLetters = 0;       ///< of clips so far
    std::size_t _cells = 0;             ///< of tiles drawn so far
    std::size_t _pixels = 0;            ///< painted as such so far
    std::optional<RasterPicture> _held; ///< pixels that are not drawn yet
    std::vector<QsdRect> _unknown;      ///< where the page shows what is no ground: texts and pictures
};

} // namespace qsdps
