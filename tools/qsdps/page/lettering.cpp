#include "page/lettering.h"

#include "page/characters.h"
#include "page/path_walk.h"

#include <utility>

namespace qsdps {

namespace {

/// A character with its outline and where it stands on the line.
struct Placed {
    char32_t character = 0;
    const Letter* letter = nullptr;
    double before = 0; ///< user units from the character in front: kerning
};

struct Run {
    const TextSpan* span = nullptr;
    std::shared_ptr<LetterFont> font; ///< keeps the letters
    std::vector<Placed> letters;
    double spacing = 0; ///< user units after each letter
    double advance = 0; ///< user units in all, the shift in front not included

    [[nodiscard]] double advanceOf(const Placed& placed) const
    {
        return placed.letter->advance * span->font.size + spacing + (placed.character == ' ' ? span->wordSpacing : 0);
    }
};

std::optional<Run> runOf(const TextSpan& span, LetterFonts& fonts)
{
    Run run;
    run.span = &span;
    run.font = fonts.find(span.font);
    if (run.font == nullptr) {
        return std::nullopt;
    }
    run.spacing = span.letterSpacing;
    std::string_view text = span.text;
    while (!text.empty()) {
        std::string_view bytes;
        const char32_t character = takeCharacter(text, bytes);
        if (isInvisibleCharacter(character)) {
            continue;
        }
        const Letter* const letter = run.font->letter(character);
        if (letter == nullptr) {
            return std::nullopt;
        }
        const double kerning =
            run.letters.empty() ? 0 : run.font->kerning(run.letters.back().character, character) * span.font.size;
        run.letters.push_back({character, letter, kerning});
        run.advance += kerning + run.advanceOf(run.letters.back());
    }
    if (span.textLength && run.letters.size() > 1 && run.advance > 0) {
        run.spacing += (*span.textLength - run.advance) / static_cast<double>(run.letters.size());
        run.advance = *span.textLength;
    }
    return run;
}

void append(Path& path, const Path& piece, const Matrix& map)
{
    const Point* next = piece.points().data();
    for (const Path::Verb verb : piece.verbs()) {
        switch (verb) {
        case Path::Verb::Move:
            path.moveTo(map.map(*next++));
            break;
        case Path::Verb::Line:
            path.lineTo(map.map(*next++));
            break;
        case Path::Verb::Cubic:
            path.cubicTo(map.map(next[0]), map.map(next[1]), map.map(next[2]));
            next += 3;
            break;
        case Path::Verb::Close:
            path.close();
            break;
        }
    }
}

/// Lines along the text, `at` its start.
Path rulesOf(const Run& run, Point at)
{
    Path path;
    const double size = run.span->font.size;
    const auto rule = [&](double height) {
        const double half = size / 40;
        path.moveTo({at.x, at.y - height - half});
        path.lineTo({at.x, at.y - height + half});
        path.lineTo({at.x + run.advance, at.y - height + half});
        path.lineTo({at.x + run.advance, at.y - height - half});
        path.close();
    };
    if (run.span->underline) {
        rule(size * -0.1);
    }
    if (run.span->overline) {
        rule(size * 0.8);
    }
    if (run.span->lineThrough) {
        rule(size * 0.28);
    }
    return path;
}

Path straight(const Run& run, Point at)
{
    Path path;
    const double size = run.span->font.size;
    for (const Placed& placed : run.letters) {
        at.x += placed.before;
        append(path, placed.letter->outline,
               Matrix::translation(at.x, at.y) * turned(run.span->rotate) * Matrix::scaling(size, size));
        at.x += run.advanceOf(placed);
    }
    return path;
}

/// Each letter stands upright on the path under its middle; `offset` goes on behind the last one.
Path along(const Run& run, const PathWalk& walk, double& offset)
{
    Path path;
    const double size = run.span->font.size;
    for (const Placed& placed : run.letters) {
        offset += placed.before;
        const double advance = run.advanceOf(placed);
        Point middle;
        double degrees = 0;
        if (walk.at(offset + advance / 2, middle, degrees)) {
            const Matrix frame = Matrix::translation(middle.x, middle.y) * turned(degrees) *
                                 Matrix::translation(-advance / 2, run.span->dy - run.span->baselineShift);
            append(path, placed.letter->outline, frame * Matrix::scaling(size, size));
        }
        offset += advance;
    }
    return path;
}

} // namespace

std::optional<std::vector<LetteredSpan>> letteringOf(const TextChunk& chunk, LetterFonts& fonts)
{
    std::vector<Run> runs;
    double total = 0;
    for (const TextSpan& span : chunk.spans) {
        std::optional<Run> run = runOf(span, fonts);
        if (!run) {
            return std::nullopt;
        }
        total += span.dx + run->advance;
        runs.push_back(std::move(*run));
    }
    const double shift = chunk.anchor == TextAnchor::Middle ? -total / 2 : chunk.anchor == TextAnchor::End ? -total : 0;
    std::vector<LetteredSpan> lettered;
    if (chunk.along) {
        constexpr double PartOfSize = 0.01;
        const double size = chunk.spans.empty() ? 1 : chunk.spans.front().font.size;
        const PathWalk walk(*chunk.along, size * PartOfSize);
        double offset = chunk.startOffset + shift;
        for (const Run& run : runs) {
            offset += run.span->dx;
            lettered.push_back({run.span, along(run, walk, offset), {}});
        }
        return lettered;
    }
    Point at{chunk.at.x + shift, chunk.at.y};
    for (const Run& run : runs) {
        at.x += run.span->dx;
        at.y += run.span->dy;
        const Point raised{at.x, at.y - run.span->baselineShift};
        lettered.push_back({run.span, straight(run, raised), rulesOf(run, raised)});
        at.x += run.advance;
    }
    return lettered;
}

} // namespace qsdps
