#include "svg/walker/text_builder.h"

#include "toolkit/base/QsdUtf8.h"
#include "values/scanner.h"
#include "values/utf8.h"

#include <string>

namespace qsdps::svg {
namespace {

std::optional<double> at(const std::vector<double>& list, std::size_t index)
{
    if (index >= list.size()) {
        return {};
    }
    return list[index];
}

} // namespace

void TextBuilder::setSpan(const TextSpan& span, TextAnchor anchor, bool preserveSpace)
{
    _prototype = span;
    _anchor = anchor;
    _preserveSpace = preserveSpace;
    _newSpan = true;
}

void TextBuilder::setPath(std::optional<Path> path, double startOffset)
{
    _path = std::move(path);
    _startOffset = startOffset;
    _newChunk = true;
}

std::size_t TextBuilder::breakSpan()
{
    _newSpan = true;
    return _made;
}

TextSpan* TextBuilder::onlySpanSince(std::size_t number)
{
    return _made == number + 1 ? &_chunks.back().spans.back() : nullptr;
}

void TextBuilder::add(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t from = i;
        const char32_t c = QsdNextUtf8(text, i);
        if (c < 0x80 && isSpace(static_cast<char>(c))) {
            if (!_preserveSpace && _afterSpace) {
                continue;
            }
            addCharacter(" ");
            _afterSpace = true;
            continue;
        }
        _afterSpace = false;
        if (c == QsdReplacementCharacter) {
            // The bytes may not have been UTF-8 at all.
            std::string replacement;
            appendUtf8(replacement, c);
            addCharacter(replacement);
        } else if (c >= 0x20) {
            addCharacter(text.substr(from, i - from));
        }
    }
}

TextBuilder::Place TextBuilder::nextPlace()
{
    Place place;
    std::optional<double> dx;
    std::optional<double> dy;
    std::optional<double> rotate;
    for (auto lists = _positions.rbegin(); lists != _positions.rend(); ++lists) {
        const std::size_t index = lists->next++;
        const auto take = [&](std::optional<double>& to, const std::vector<double>& list) {
            if (!to) {
                to = at(list, index);
            }
        };
        take(place.x, lists->x);
        take(place.y, lists->y);
        take(dx, lists->dx);
        take(dy, lists->dy);
        take(rotate, lists->rotate);
        if (!rotate && !lists->rotate.empty()) {
            rotate = lists->rotate.back();
        }
    }
    place.dx = dx.value_or(0);
    place.dy = dy.value_or(0);
    place.rotate = rotate.value_or(0);
    return place;
}

void TextBuilder::addCharacter(std::string_view bytes)
{
    Place place = nextPlace();
    if (_path) {
        // Positions are distances along the path, which only the beginning can have here.
        if (_newChunk) {
            _startOffset += place.x.value_or(0);
        }
        place.x.reset();
        place.y.reset();
    }
    if (_newChunk || place.x) {
        beginChunk(place);
    } else if (place.y) {
        place.dy += *place.y - _y;
    }
    const bool turned = !_newSpan && _chunks.back().spans.back().rotate != place.rotate;
    if (_newSpan || turned || place.dx != 0 || place.dy != 0) {
        beginSpan(place.dx, place.dy, place.rotate);
    }
    _chunks.back().spans.back().text.append(bytes);
}

void TextBuilder::beginChunk(const Place& place)
{
    _y = place.y.value_or(_y);
    TextChunk chunk;
    chunk.at = {place.x.value_or(0), _y};
    chunk.anchor = _anchor;
    chunk.along = _path;
    chunk.startOffset = _startOffset;
    _chunks.push_back(std::move(chunk));
    _newChunk = false;
    _newSpan = true;
}

void TextBuilder::beginSpan(double dx, double dy, double rotate)
{
    TextSpan span = _prototype;
    span.dx = dx;
    span.dy = dy;
    span.rotate = rotate;
    _y += dy;
    _chunks.back().spans.push_back(std::move(span));
    _newSpan = false;
    ++_made;
}

std::vector<TextChunk> TextBuilder::finish()
{
    if (!_chunks.empty() && !_preserveSpace && _afterSpace) {
        std::string& last = _chunks.back().spans.back().text;
        if (last.ends_with(' ')) {
            last.pop_back();
        }
    }
    return std::move(_chunks);
}

} // namespace qsdps::svg
