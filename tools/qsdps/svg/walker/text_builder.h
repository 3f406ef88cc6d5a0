// Puts characters together into chunks and spans: white space, positions of single characters, changes of style.
#pragma once

#include "drawing/text.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace qsdps::svg {

/// The lists of positions on one text element, in user units; each entry is for one character inside it.
struct TextPositions {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> dx;
    std::vector<double> dy;
    std::vector<double> rotate; ///< degrees; the last one goes on for the characters that follow
    std::size_t next = 0;       ///< index of the next character

    [[nodiscard]] bool empty() const { return x.empty() && y.empty() && dx.empty() && dy.empty() && rotate.empty(); }
};

class TextBuilder {
public:
    /// Lists of an inner element win over those of the elements around it.
    void pushPositions(TextPositions positions) { _positions.push_back(std::move(positions)); }
    void popPositions() { _positions.pop_back(); }

    /// What the following characters look like; text and position of `span` are ignored.
    void setSpan(const TextSpan& span, TextAnchor anchor, bool preserveSpace);
    /// Appends UTF-8 text, white space collapsed unless it is to be preserved.
    void add(std::string_view text);
    /// The following characters stand on a path, until the next call without one.
    void setPath(std::optional<Path> path, double startOffset);
    /// Forces a new span; gives the number of spans so far.
    [[nodiscard]] std::size_t breakSpan();
    /// The span with the number that breakSpan gave, when it is the only one since; null otherwise.
    [[nodiscard]] TextSpan* onlySpanSince(std::size_t number);
    [[nodiscard]] bool anySince(std::size_t number) const { return _made > number; }

    /// Everything, without the blank at the very end.
    [[nodiscard]] std::vector<TextChunk> finish();

private:
    struct Place {
        std::optional<double> x;
        std::optional<double> y;
        double dx = 0;
        double dy = 0;
        double rotate = 0;
    };

    [[nodiscard]] Place nextPlace();
    void addCharacter(std::string_view bytes);
    void beginChunk(const Place& place);
    void beginSpan(double dx, double dy, double rotate);

    std::vector<TextPositions> _positions;
    std::vector<TextChunk> _chunks;
    TextSpan _prototype;
    TextAnchor _anchor = TextAnchor::Start;
    std::optional<Path> _path;
    double _startOffset = 0;
    double _y = 0; ///< of the baseline where the next character stands
    std::size_t _made = 0;
    bool _preserveSpace = false;
    bool _afterSpace = true;
    bool _newSpan = true;
    bool _newChunk = true;
};

} // namespace qsdps::svg
