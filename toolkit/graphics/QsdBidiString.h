// Texts that may run from right to left.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"

#include <string>
#include <string_view>

/// A wide text in logical order with a base direction, able to give the order in which it is seen.
class QSD_API QsdBidiString {
public:
    /// The base direction: where the first run of a text stands.
    enum Direction { LeftToRight, RightToLeft };

    /// Copies `text`, which is in the order of reading.
    QsdBidiString(std::wstring_view text, Direction base);

    /// The text in the order of reading.
    [[nodiscard]] const std::wstring& logicalText() const { return _text; }
    /// The direction that it was made with.
    [[nodiscard]] Direction baseDirection() const { return _base; }
    /// The characters from left to right as seen: runs of Hebrew and Arabic letters reversed, numbers kept, brackets in
    /// reversed runs mirrored; in a right-to-left base the runs themselves follow from the right.
    [[nodiscard]] std::wstring visualText() const;

private:
    std::wstring _text;
    Direction _base;
};
