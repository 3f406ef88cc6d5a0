#include "toolkit/graphics/QsdBidiString.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

enum class Kind { Left, Right, Number, Neutral };

Kind kindOf(wchar_t c)
{
    const auto code = static_cast<std::uint32_t>(static_cast<char32_t>(c));
    if (code >= '0' && code <= '9') {
        return Kind::Number;
    }
    if ((code >= 0x590 && code <= 0x8FF) || (code >= 0xFB1D && code <= 0xFDFF) || (code >= 0xFE70 && code <= 0xFEFC)) {
        return Kind::Right;
    }
    if ((code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') || code >= 0xC0) {
        return Kind::Left;
    }
    return Kind::Neutral;
}

wchar_t mirrored(wchar_t c)
{
    constexpr std::array<std::pair<wchar_t, wchar_t>, 4> Pairs = {
        {{L'(', L')'}, {L'[', L']'}, {L'{', L'}'}, {L'<', L'>'}}};
    for (const auto& [left, right] : Pairs) {
        if (c == left) {
            return right;
        }
        if (c == right) {
            return left;
        }
    }
    return c;
}

/// Embedding levels: 0 left to right, 1 right to left, 2 a number inside right to left.
std::vector<int> levelsOf(const std::wstring& text, int base)
{
    std::vector<int> levels(text.size(), base);
    int letters = base; // the direction of the last letter
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (kindOf(text[i])) {
        case Kind::Left:
            letters = 0;
            levels[i] = base == 0 ? 0 : 2;
            break;
        case Kind::Right:
            letters = 1;
            levels[i] = 1;
            break;
        case Kind::Number:
            levels[i] = letters == 1 || base == 1 ? 2 : 0;
            break;
        case Kind::Neutral:
            levels[i] = -1;
            break;
        }
    }
    // Characters without a direction go with their neighbours where those agree, else with the base.
    for (std::size_t i = 0; i < text.size();) {
        if (levels[i] != -1) {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < text.size() && levels[end] == -1) {
            ++end;
        }
        const int before = i == 0 ? base : levels[i - 1];
        const int after = end == text.size() ? base : levels[end];
        const bool bothRight = before != 0 && after != 0 && (before == 1 || after == 1);
        std::fill(levels.begin() + static_cast<std::ptrdiff_t>(i), levels.begin() + static_cast<std::ptrdiff_t>(end),
                  before == after ? before : (bothRight ? 1 : base));
        i = end;
    }
    return levels;
}

} // namespace

QsdBidiString::QsdBidiString(std::wstring_view text, Direction base) : _text(text), _base(base) {}

std::wstring QsdBidiString::visualText() const
{
    std::vector<int> levels = levelsOf(_text, _base == RightToLeft ? 1 : 0);
    std::wstring visual = _text;
    for (std::size_t i = 0; i < visual.size(); ++i) {
        if (levels[i] == 1) {
            visual[i] = mirrored(visual[i]);
        }
    }
    // From the deepest level up, every stretch of that level or deeper is turned around.
    for (int level = 2; level >= 1; --level) {
        for (std::size_t i = 0; i < visual.size();) {
            if (levels[i] < level) {
                ++i;
                continue;
            }
            std::size_t end = i;
            while (end < visual.size() && levels[end] >= level) {
                ++end;
            }
            std::reverse(visual.begin() + static_cast<std::ptrdiff_t>(i),
                         visual.begin() + static_cast<std::ptrdiff_t>(end));
            std::reverse(levels.begin() + static_cast<std::ptrdiff_t>(i),
                         levels.begin() + static_cast<std::ptrdiff_t>(end));
            i = end;
        }
    }
    return visual;
}
