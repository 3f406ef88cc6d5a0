// The texts of a page: strings or outlines.
#include "drawing/bounds_canvas.h"
#include "page/lettering.h"
#include "page/painter.h"
#include "page/text_painter.h"
#include "values/utf8.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace qsdps {

namespace {

/// A box that surely holds a text, whose true extent is the interpreter's affair.
Box roomyBox(const TextChunk& chunk)
{
    const Box estimate = estimateText(chunk);
    const Box box = chunk.along ? chunk.along->controlBox() : estimate;
    double margin = estimate.width / 2 + estimate.height;
    for (const TextSpan& span : chunk.spans) {
        margin += std::fabs(span.dx) + std::fabs(span.dy) + std::fabs(span.baselineShift);
    }
    return {box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin};
}

std::size_t lettersIn(const TextChunk& chunk)
{
    std::size_t count = 0;
    for (const TextSpan& span : chunk.spans) {
        count += countCharacters(span.text);
    }
    return count;
}

unsigned long missingIn(const TextSpan& span, const TextEncoder& encoder)
{
    unsigned long missing = 0;
    static_cast<void>(encoder.encode(span.text, missing));
    return missing;
}

} // namespace

bool Painter::wantsOutlines(const TextChunk& chunk) const
{
    return _tools.textForm != TextForm::Strings &&
           std::any_of(chunk.spans.begin(), chunk.spans.end(), [&](const TextSpan& span) {
               if (isBlank(span)) {
                   return false;
               }
               const bool plain =
                   span.stroke.none() && (span.fill.none() || std::holds_alternative<Rgb>(span.fill.source));
               return _tools.textForm == TextForm::Outlines || !plain || _clips.top().area ||
                      missingIn(span, _tools.encoder) > 0 ||
                      _tools.fonts.face(span.font).likeness == Face::Likeness::Another;
           });
}

bool Painter::paintOutlines(const TextChunk& chunk, const Matrix& toPage)
{
    // Some 500 bytes of a document each.
    constexpr std::size_t MostLetters = 20'000;
    constexpr std::size_t MostLettersAskedFor = 200'000;
    const std::size_t most = _tools.textForm == TextForm::Outlines ? MostLettersAskedFor : MostLetters;
    if (_letters + lettersIn(chunk) > most) {
        return false;
    }
    const std::optional<Lettering> lettering = letteringOf(chunk, _tools.letters);
    if (!lettering) {
        return false;
    }
    if (lettering->missing > 0) {
        unsigned long missing = 0;
        for (const TextSpan& span : chunk.spans) {
            missing += missingIn(span, _tools.encoder);
        }
        if (missing < lettering->missing) {
            return false;
        }
    }
    tellShortcomings(*lettering);
    _letters += lettering->letters;
    paintLettering(*lettering, toPage);
    return true;
}

void Painter::tellShortcomings(const Lettering& lettering)
{
    for (std::size_t i = 0; i < lettering.missing; ++i) {
        _report.notDrawn("character that no installed font has");
    }
    if (lettering.isApproximation) {
        _report.approximated("text of letters that join, stack or change order");
    }
}

std::vector<Path> Painter::clipLetters(const TextChunk& chunk)
{
    // Clips take time with each of their letters.
    constexpr std::size_t MostLetters = 100'000;
    _clipLetters += lettersIn(chunk);
    std::optional<Lettering> lettering;
    if (_clipLetters <= MostLetters) {
        lettering = letteringOf(chunk, _tools.letters);
    }
    if (!lettering) {
        _report.notDrawn("text in a clipPath");
        return {};
    }
    tellShortcomings(*lettering);
    std::vector<Path> letters;
    for (LetteredSpan& lettered : lettering->spans) {
        if (!lettered.span->fill.none()) {
            std::move(lettered.letters.begin(), lettered.letters.end(), std::back_inserter(letters));
        }
    }
    return letters;
}

void Painter::paintLettering(const Lettering& lettering, const Matrix& toPage)
{
    for (const LetteredSpan& lettered : lettering.spans) {
        const TextSpan& span = *lettered.span;
        const auto painted = [&](Paint paint) {
            paint.opacity *= span.opacity;
            return paint;
        };
        const Paint fillPaint = painted(span.fill);
        const Paint strokePaint = painted(span.stroke);
        for (const std::vector<Path>* const outlines : {&lettered.rules, &lettered.letters}) {
            const std::vector<Path> areas = areasOf(*outlines);
            for (const bool stroked : {span.strokeFirst, !span.strokeFirst}) {
                const std::size_t groundEnd = _ground.count();
                for (const Path& area : areas) {
                    if (stroked) {
                        strokeOver(groundEnd, area, span.strokeStyle, strokePaint, toPage);
                    } else {
                        fillOver(groundEnd, area, FillRule::NonZero, fillPaint, toPage);
                    }
                }
            }
        }
    }
}

void Painter::text(const TextChunk& chunk, const Matrix& toPage)
{
    if (wantsOutlines(chunk)) {
        if (paintOutlines(chunk, toPage)) {
            return;
        }
        if (_tools.textForm == TextForm::Outlines) {
            _report.approximated("outlined text");
        }
    }
    paintStrings(chunk, toPage);
}

void Painter::paintStrings(const TextChunk& chunk, const Matrix& toPage)
{
    const ClipArea& clip = _clips.top();
    if (clip.area) {
        _report.approximated("clipped text");
    }
    const Box roomy = roomyBox(chunk);
    const QsdRect bounds = boundsOf(ringsOf(flattened(outlineOf(roomy), _pageToUnits * toPage, 1)));
    if (!clipTo(bounds)) {
        return;
    }
    _unknown.push_back(bounds);
    const auto blender = [this](const Ink& ink, QsdPoint at) {
        return _groups.isOpaque(ink) ? ink.color : _groups.shown(ink, _groups.at(_ground, at, _ground.count()));
    };
    TextPainter(_port, _tools, _report, blender).paint(chunk, _pageToUnits * toPage);
}

} // namespace qsdps
