#include "page/text_painter.h"

#include "page/painter.h"
#include "page/path_walk.h"
#include "page/polygons.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace qsdps {

namespace {

constexpr double LargestFont = 65535;

/// Whether texts under the matrix stand upright and keep their proportions.
bool isUpright(const Matrix& m)
{
    const double slack = 1e-6 * m.meanScale();
    return m.a > 0 && std::fabs(m.b) < slack && std::fabs(m.c) < slack && std::fabs(m.a - m.d) < slack;
}

std::string joined(const std::vector<std::string>& pieces)
{
    std::string text;
    for (const std::string& piece : pieces) {
        text += piece;
    }
    return text;
}

/// Puts a Latin character beyond ASCII where the font of symbols has it; false, and a question mark, where it has none.
bool toSymbolCode(std::string& bytes)
{
    constexpr struct {
        unsigned char latin;
        unsigned char symbol;
    } Codes[] = {{0x83, 0xA6}, {0x85, 0xBC}, {0x95, 0xB7}, {0x96, '-'},  {0xA0, ' '},  {0xAC, 0xD8},
                 {0xB0, 0xB0}, {0xB1, 0xB1}, {0xB5, 'm'},  {0xB7, 0xD7}, {0xD7, 0xB4}, {0xF7, 0xB8}};
    const auto code = static_cast<unsigned char>(bytes.front());
    if (code < 0x80 || bytes.size() != 1) {
        return true;
    }
    for (const auto& known : Codes) {
        if (known.latin == code) {
            bytes.front() = static_cast<char>(known.symbol);
            return true;
        }
    }
    bytes = "?";
    return false;
}

} // namespace

/// A span made ready: its bytes, its font in units, and how far it reaches in user units.
struct TextPainter::Run {
    const TextSpan* span = nullptr;
    std::vector<std::string> characters;
    const QsdFont* font = nullptr;
    double userPerFontUnit = 0; ///< user units in a unit of the font's size
    double spacing = 0;         ///< user units after each character, what `textLength` asks for included
    double advance = 0;         ///< user units in all, the shift in front not included
    Face face;
    double stretch = 1; ///< of the letters along the line
    std::optional<Rgb> color;
    std::optional<Rgb> outline; ///< of a stroke around the fill

    [[nodiscard]] double advanceOf(const std::string& bytes) const
    {
        return lengthOf(bytes) + spacing + (bytes == " " ? span->wordSpacing : 0);
    }
    /// What a character of the font measures.
    [[nodiscard]] double naturalLengthOf(const std::string& bytes) const
    {
        return font->stringWidth(bytes.data(), static_cast<int>(bytes.size())) * userPerFontUnit;
    }
    /// What it has to measure.
    [[nodiscard]] double lengthOf(const std::string& bytes) const
    {
        constexpr unsigned char First = 32;
        const auto code = static_cast<unsigned char>(bytes.front());
        const unsigned wanted = face.advances == nullptr || code < First ? 0 : (*face.advances)[code - First];
        const double length = wanted == 0 ? naturalLengthOf(bytes) : wanted * span->font.size / 1000;
        return length * face.narrowing;
    }
    [[nodiscard]] bool hasOwnShape() const { return face.advances == nullptr && face.narrowing == 1; }
    [[nodiscard]] bool inPieces() const { return spacing != 0 || span->rotate != 0 || span->wordSpacing != 0; }
};

TextPainter::Run TextPainter::runOf(const TextSpan& span, const Matrix& toUnits, QsdPoint ground)
{
    Run run;
    run.span = &span;
    unsigned long missing = 0;
    run.characters = _tools.encoder.encode(span.text, missing);
    for (; missing != 0; --missing) {
        _report.notDrawn("character that the document's encoding lacks");
    }
    const double size = span.font.size * toUnits.meanScale();
    const double held = std::clamp(std::isfinite(size) ? size : 0.0, 1.0, LargestFont);
    const auto units = static_cast<std::uint16_t>(std::lround(held));
    run.font = _tools.fonts.get(span.font, span.underline, units);
    run.userPerFontUnit = span.font.size / units;
    run.spacing = span.letterSpacing;
    run.face = _tools.fonts.face(span.font);
    if (run.face.family != nullptr && run.face.family == std::string_view("symbol")) {
        for (std::string& bytes : run.characters) {
            if (!toSymbolCode(bytes)) {
                _report.notDrawn("character that the document's encoding lacks");
            }
        }
    }
    if (run.face.likeness == Face::Likeness::Another && !isBlank(span)) {
        _report.approximated("font");
    }
    double natural = 0;
    double wanted = 0;
    for (const std::string& bytes : run.characters) {
        natural += run.naturalLengthOf(bytes);
        wanted += run.lengthOf(bytes);
        run.advance += run.advanceOf(bytes);
    }
    run.stretch = natural > 0 && wanted > 0 ? wanted / natural : 1;
    if (span.textLength && run.characters.size() > 1 && run.advance > 0) {
        const auto count = static_cast<double>(run.characters.size());
        run.spacing += (*span.textLength - run.advance) / count;
        run.advance = *span.textLength;
    }
    const auto colorOf = [&](const Paint& paint) -> std::optional<Rgb> {
        std::optional<Ink> ink = inkOf(paint, _report);
        if (!ink) {
            return std::nullopt;
        }
        ink->alpha *= span.opacity;
        return ink->isInvisible() ? std::nullopt : std::optional<Rgb>(_blender(*ink, ground));
    };
    run.color = colorOf(span.fill.none() ? span.stroke : span.fill);
    if (!span.stroke.none()) {
        _report.approximated("stroked text");
        if (!span.fill.none()) {
            run.outline = colorOf(span.stroke);
        }
    }
    return run;
}

void TextPainter::reportGuessedWidths(const std::vector<Run>& runs, bool placesAll)
{
    for (const Run& run : runs) {
        const bool places = placesAll || run.inPieces() || run.span->lineThrough || run.span->overline;
        if (places && !run.face.isMeasured && !isBlank(*run.span)) {
            _report.approximated("width of text in a mapped font");
        }
    }
}

void TextPainter::paint(const TextChunk& chunk, const Matrix& toUnits)
{
    if (!(toUnits.meanScale() > 0)) {
        return;
    }
    std::vector<Run> runs;
    double total = 0;
    const QsdPoint ground = rounded(toUnits.map(chunk.at));
    for (const TextSpan& span : chunk.spans) {
        runs.push_back(runOf(span, toUnits, ground));
        total += span.dx + runs.back().advance;
    }
    const double shift = chunk.anchor == TextAnchor::Middle ? -total / 2 : chunk.anchor == TextAnchor::End ? -total : 0;
    if (chunk.along) {
        reportGuessedWidths(runs, true);
        paintAlong(*chunk.along, chunk.startOffset + shift, runs, toUnits);
        return;
    }
    // One plain run is aligned by the interpreter, which knows its fonts best.
    if (runs.size() == 1 && shift != 0 && !runs[0].inPieces() && runs[0].hasOwnShape() && isUpright(toUnits) &&
        !runs[0].span->lineThrough && !runs[0].span->overline) {
        const TextSpan& span = *runs[0].span;
        const double dx = chunk.anchor == TextAnchor::Middle ? span.dx / 2 : 0;
        paintPiece(runs[0], joined(runs[0].characters), {chunk.at.x + dx, chunk.at.y + span.dy - span.baselineShift}, 0,
                   toUnits, chunk.anchor == TextAnchor::Middle ? QsdPositionCenter : QsdPositionRight);
        return;
    }
    reportGuessedWidths(runs, runs.size() > 1 || shift != 0);
    Point at{chunk.at.x + shift, chunk.at.y};
    for (const Run& run : runs) {
        at.x += run.span->dx;
        at.y += run.span->dy;
        const Point raised{at.x, at.y - run.span->baselineShift};
        paintRun(run, raised, toUnits);
        paintRules(run, raised, toUnits);
        at.x += run.advance;
    }
}

void TextPainter::paintRun(const Run& run, Point at, const Matrix& toUnits)
{
    if (!run.inPieces()) {
        paintPiece(run, joined(run.characters), at, 0, toUnits, QsdPositionNone);
        return;
    }
    for (const std::string& bytes : run.characters) {
        if (bytes != " " || run.span->underline) {
            paintPiece(run, bytes, at, run.span->rotate, toUnits, QsdPositionNone);
        }
        at.x += run.advanceOf(bytes);
    }
}

void TextPainter::paintAlong(const Path& path, double offset, const std::vector<Run>& runs, const Matrix& toUnits)
{
    const PathWalk walk(path, 0.1);
    for (const Run& run : runs) {
        offset += run.span->dx;
        for (const std::string& bytes : run.characters) {
            const double advance = run.advanceOf(bytes);
            Point middle;
            double degrees = 0;
            if (walk.at(offset + advance / 2, middle, degrees)) {
                // Each character stands upright on the path under its middle.
                const Matrix frame = Matrix::translation(middle.x, middle.y) * turned(degrees);
                const Point start = frame.map({-advance / 2, run.span->dy - run.span->baselineShift});
                paintPiece(run, bytes, start, degrees, toUnits, QsdPositionNone);
            }
            offset += advance;
        }
    }
}

void TextPainter::paintPiece(const Run& run, const std::string& bytes, Point at, double degrees, const Matrix& toUnits,
                             QsdPosition position)
{
    if (bytes.empty()) {
        return;
    }
    if (run.outline) {
        // A port has no outlines of letters; the letters moved half a width each way come close to one.
        const double half = run.span->strokeStyle.width / 2;
        for (int direction = 0; direction < 8; ++direction) {
            const Point shift = turned(direction * 45.0).map({half, 0});
            showPiece(run, *run.outline, bytes, {at.x + shift.x, at.y + shift.y}, degrees, toUnits, position);
        }
    }
    if (run.color) {
        showPiece(run, *run.color, bytes, at, degrees, toUnits, position);
    }
}

void TextPainter::showPiece(const Run& run, Rgb color, const std::string& bytes, Point at, double degrees,
                            const Matrix& toUnits, QsdPosition position)
{
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setFont(run.font);
    Matrix matrix = degrees == 0 ? toUnits : toUnits * turned(degrees);
    if (!run.hasOwnShape()) {
        matrix = matrix * Matrix::scaling(run.stretch, run.face.tallness);
    }
    const Point baseline = toUnits.map(at);
    const auto length = static_cast<int>(bytes.size());
    if (isUpright(matrix)) {
        _port.drawString(&palette, rounded(baseline), bytes.data(), length, position);
        return;
    }
    // The port places the top of the text, an ascent above its baseline.
    const double scale = run.userPerFontUnit;
    const Matrix factors{matrix.a * scale, matrix.b * scale, matrix.c * scale, matrix.d * scale, 0, 0};
    const Point ascent = factors.map({0, static_cast<double>(run.font->ascent())});
    const QsdTransformer t(factors.a, factors.c, factors.b, factors.d, std::round(baseline.x - ascent.x),
                           std::round(baseline.y - ascent.y));
    _port.drawTransformedString(&palette, bytes.data(), length, t, nullptr);
}

/// Lines over and through the text; the one under it belongs to the font.
void TextPainter::paintRules(const Run& run, Point at, const Matrix& toUnits)
{
    const double size = run.span->font.size;
    const auto rule = [&](double height) {
        const double half = size / 40;
        Chain box{{}, true};
        for (const Point& p : {Point{at.x, at.y - height - half}, Point{at.x + run.advance, at.y - height - half},
                               Point{at.x + run.advance, at.y - height + half}, Point{at.x, at.y - height + half}}) {
            box.points.push_back(toUnits.map(p));
        }
        const Rings rings = ringsOf({box});
        if (!rings.empty()) {
            QsdPalette& palette = *_tools.palette;
            palette.setForeground(_tools.colors.get(*run.color));
            palette.setFillRule(QsdWindingRule);
            fillPolygons(_port, palette, rings);
        }
    };
    if (!run.color || !(run.advance > 0)) {
        return;
    }
    if (run.span->lineThrough) {
        rule(size * 0.28);
    }
    if (run.span->overline) {
        rule(size * 0.8);
    }
}

} // namespace qsdps
