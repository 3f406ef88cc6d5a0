#include "page/lettering.h"

#include "page/characters.h"
#include "page/path_walk.h"
#include "toolkit/graphics/QsdBidiString.h"
#include "values/utf8.h"

#include <algorithm>
#include <string>
#include <utility>

namespace qsdps {

namespace {

/// A character with its outline and where it stands on the line.
struct Placed {
    char32_t character = 0;
    std::shared_ptr<const Letter> letter;
    double before = 0; ///< user units from the character in front: kerning
};

struct Run {
    const TextSpan* span = nullptr;
    std::vector<Placed> letters;
    double spacing = 0; ///< user units after each letter
    double advance = 0; ///< user units in all, the shift in front not included

    [[nodiscard]] double advanceOf(const Placed& placed) const
    {
        return placed.letter->advance * span->font.size + spacing + (placed.character == ' ' ? span->wordSpacing : 0);
    }
};

/// The characters of a span from left to right as they are seen; `isApproximation` is set where that is not sure.
std::wstring seenText(const TextSpan& span, bool& isApproximation)
{
    std::wstring characters;
    bool bothWays = span.rightToLeft;
    std::string_view text = span.text;
    while (!text.empty()) {
        std::string_view bytes;
        const char32_t character = takeCharacter(text, bytes);
        if (!isInvisibleCharacter(character)) {
            characters.push_back(static_cast<wchar_t>(character));
            bothWays = bothWays || isRightToLeft(character);
        }
    }
    if (!bothWays) {
        return characters;
    }
    // Pairs of them go with what they enclose, which a bidirectional string does not know.
    isApproximation = isApproximation || characters.find_first_of(L"()[]{}") != std::wstring::npos;
    return QsdBidiString(characters, span.rightToLeft ? QsdBidiString::RightToLeft : QsdBidiString::LeftToRight)
        .visualText();
}

std::optional<Run> runOf(const TextSpan& span, LetterFonts& fonts, Lettering& lettering)
{
    Run run;
    run.span = &span;
    run.spacing = span.letterSpacing;
    const std::shared_ptr<LetterFont> font = fonts.find(span.font);
    if (font == nullptr) {
        return std::nullopt;
    }
    for (const wchar_t code : seenText(span, lettering.isApproximation)) {
        const auto character = static_cast<char32_t>(code);
        std::shared_ptr<const Letter> letter = font->letter(character);
        double kerning = 0;
        if (letter == nullptr) {
            letter = font->substitute();
            ++lettering.missing;
        } else if (!run.letters.empty()) {
            kerning = font->kerning(run.letters.back().character, character) * span.font.size;
        }
        if (letter == nullptr) {
            return std::nullopt;
        }
        lettering.isApproximation = lettering.isApproximation || isShaped(character);
        run.letters.push_back({character, std::move(letter), kerning});
        run.advance += kerning + run.advanceOf(run.letters.back());
    }
    lettering.letters += run.letters.size();
    if (span.textLength && run.letters.size() > 1 && run.advance > 0) {
        run.spacing += (*span.textLength - run.advance) / static_cast<double>(run.letters.size());
        run.advance = *span.textLength;
    }
    return run;
}

/// Lines along a stretch of text that begins at the origin of `frame`.
void addRules(LetteredSpan& lettered, double advance, const Matrix& frame)
{
    const TextSpan& span = *lettered.span;
    const double size = span.font.size;
    const auto rule = [&](double height) {
        const double half = size / 40;
        lettered.rules.push_back(outlineOf({0, -height - half, advance, 2 * half}).transformed(frame));
    };
    if (span.underline) {
        rule(size * -0.1);
    }
    if (span.overline) {
        rule(size * 0.8);
    }
    if (span.lineThrough) {
        rule(size * 0.28);
    }
}

void addLetter(LetteredSpan& lettered, const Placed& placed, const Matrix& frame)
{
    const double size = lettered.span->font.size;
    if (!placed.letter->outline.empty()) {
        lettered.letters.push_back(placed.letter->outline.transformed(frame * Matrix::scaling(size, size)));
    }
}

LetteredSpan straight(const Run& run, Point at)
{
    LetteredSpan lettered{run.span, {}, {}};
    if (run.advance > 0) {
        addRules(lettered, run.advance, Matrix::translation(at.x, at.y));
    }
    for (const Placed& placed : run.letters) {
        at.x += placed.before;
        addLetter(lettered, placed, Matrix::translation(at.x, at.y) * turned(run.span->rotate));
        at.x += run.advanceOf(placed);
    }
    return lettered;
}

/// Each letter stands upright on the path under its middle; `offset` goes on behind the last one.
LetteredSpan along(const Run& run, const PathWalk& walk, double& offset)
{
    LetteredSpan lettered{run.span, {}, {}};
    for (const Placed& placed : run.letters) {
        offset += placed.before;
        const double advance = run.advanceOf(placed);
        Point middle;
        double degrees = 0;
        if (walk.at(offset + advance / 2, middle, degrees)) {
            const Matrix frame = Matrix::translation(middle.x, middle.y) * turned(degrees) *
                                 Matrix::translation(-advance / 2, run.span->dy - run.span->baselineShift);
            addRules(lettered, advance, frame);
            addLetter(lettered, placed, frame * turned(run.span->rotate));
        }
        offset += advance;
    }
    return lettered;
}

/// Which way an outline as a whole goes around what it encloses; fonts of different formats differ.
bool turnsRight(const Path& path)
{
    double twiceArea = 0;
    Point start;
    Point at;
    const auto go = [&](Point to) {
        twiceArea += at.x * to.y - to.x * at.y;
        at = to;
    };
    const Point* next = path.points().data();
    for (const Path::Verb verb : path.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            start = at = *next++;
            break;
        case Path::Verb::Line:
            go(*next++);
            break;
        case Path::Verb::Cubic:
            go(next[0]);
            go(next[1]);
            go(next[2]);
            next += 3;
            break;
        case Path::Verb::Close:
            go(start);
            break;
        }
    }
    return twiceArea > 0;
}

/// Whether spans of a chunk may follow each other in another order than they are seen in.
bool mayBeOutOfOrder(const TextChunk& chunk)
{
    return chunk.spans.size() > 1 &&
           std::any_of(chunk.spans.begin(), chunk.spans.end(), [](const TextSpan& span) { return span.rightToLeft; });
}

} // namespace

std::optional<Lettering> letteringOf(const TextChunk& chunk, LetterFonts& fonts)
{
    Lettering lettering;
    lettering.isApproximation = mayBeOutOfOrder(chunk);
    std::vector<Run> runs;
    double total = 0;
    for (const TextSpan& span : chunk.spans) {
        std::optional<Run> run = runOf(span, fonts, lettering);
        if (!run) {
            return std::nullopt;
        }
        total += span.dx + run->advance;
        runs.push_back(std::move(*run));
    }
    const double shift = chunk.anchor == TextAnchor::Middle ? -total / 2 : chunk.anchor == TextAnchor::End ? -total : 0;
    if (chunk.along) {
        constexpr double PartOfSize = 0.01;
        const double size = chunk.spans.empty() ? 1 : chunk.spans.front().font.size;
        const PathWalk walk(*chunk.along, size * PartOfSize);
        double offset = chunk.startOffset + shift;
        for (const Run& run : runs) {
            offset += run.span->dx;
            lettering.spans.push_back(along(run, walk, offset));
        }
        return lettering;
    }
    Point at{chunk.at.x + shift, chunk.at.y};
    for (const Run& run : runs) {
        at.x += run.span->dx;
        at.y += run.span->dy;
        lettering.spans.push_back(straight(run, {at.x, at.y - run.span->baselineShift}));
        at.x += run.advance;
    }
    return lettering;
}

std::vector<Path> areasOf(std::vector<Path> outlines)
{
    constexpr std::size_t MostPoints = 1000;
    std::vector<Path> areas;
    Box last;
    bool lastTurns = false;
    for (Path& outline : outlines) {
        const Box box = outline.controlBox();
        const bool turns = turnsRight(outline);
        const bool overlaps = box.x < last.x + last.width && last.x < box.x + box.width &&
                              box.y < last.y + last.height && last.y < box.y + box.height;
        if (!areas.empty() && overlaps && turns == lastTurns &&
            areas.back().points().size() + outline.points().size() <= MostPoints) {
            areas.back().append(outline);
        } else {
            areas.push_back(std::move(outline));
        }
        last = box;
        lastTurns = turns;
    }
    return areas;
}

} // namespace qsdps
