// Text of a drawing: what to write, with which font, and where; measuring is left to the painter's fonts.
#pragma once

#include "drawing/geometry.h"
#include "drawing/paint.h"

#include <optional>
#include <string>
#include <vector>

namespace qsdps {

struct FontRequest {
    std::vector<std::string> families; ///< in order of preference, quotes removed; generic names included
    double size = 16;                  ///< user units
    int weight = 400;                  ///< 100 to 900; 600 and above count as bold
    bool italic = false;               ///< italic or oblique
};

/// A stretch of characters with one set of properties.
struct TextSpan {
    std::string text; ///< UTF-8, white space already collapsed as the drawing asks
    FontRequest font;
    Paint fill;
    Paint stroke;
    StrokeStyle strokeStyle;
    bool strokeFirst = false; ///< the fill lies on the stroke, instead of the stroke on the fill
    double opacity = 1;       ///< product of the span's own opacities, groups of the canvas not included
    bool underline = false;
    bool overline = false;
    bool lineThrough = false;
    double dx = 0; ///< user units added to the current position before the span
    double dy = 0;
    double baselineShift = 0;         ///< user units upwards
    double rotate = 0;                ///< degrees, turns each character about its own origin
    double letterSpacing = 0;         ///< user units after each character
    double wordSpacing = 0;           ///< user units after each blank, in addition
    std::optional<double> textLength; ///< the advance that the span is to have, by spacing
    bool rightToLeft = false;         ///< the direction that the span as a whole is read in
};

/// Whether a span leaves nothing on paper but lines along it.
[[nodiscard]] inline bool isBlank(const TextSpan& span)
{
    return span.text.find_first_not_of(' ') == std::string::npos;
}

enum class TextAnchor : unsigned char { Start, Middle, End };

/// Spans that are aligned together: they follow each other from one absolute position.
struct TextChunk {
    Point at; ///< user space, baseline
    TextAnchor anchor = TextAnchor::Start;
    std::vector<TextSpan> spans;
    std::optional<Path> along; ///< text on a path, in user space; `startOffset` is the distance along it
    double startOffset = 0;
};

} // namespace qsdps
