#include "toolkit/raster/QsdStrokeFont.h"

#include "toolkit/raster/QsdStrokeLetters_p.h"

#include <iterator>
#include <string_view>

namespace {

constexpr unsigned FirstCode = 32;
constexpr double LeftBearing = 0.1; ///< the part of the advance in front of column 0
constexpr double ColumnWidth = 0.1; ///< parts of the advance
constexpr double RowHeight = 0.103; ///< parts of the size: seven rows make a capital
constexpr char Baseline = 'c';

void addStrokes(std::vector<QsdChain>& chains, std::string_view strokes)
{
    QsdChain chain;
    for (std::size_t i = 0; i < strokes.size();) {
        if (strokes[i] == ' ') {
            chains.push_back(chain);
            chain.clear();
            ++i;
            continue;
        }
        chain.push_back({LeftBearing + (strokes[i] - '0') * ColumnWidth, (strokes[i + 1] - Baseline) * RowHeight});
        i += 2;
    }
    if (!chain.empty()) {
        chains.push_back(chain);
    }
}

} // namespace

std::vector<QsdChain> QsdStrokeLetter(unsigned code)
{
    std::vector<QsdChain> chains;
    if (code < FirstCode || code - FirstCode >= std::size(QsdStrokeLetters)) {
        addStrokes(chains, QsdStrokeBox);
        return chains;
    }
    const QsdStrokeLetterShape& shape = QsdStrokeLetters[code - FirstCode];
    if (shape.base != 0) {
        addStrokes(chains, QsdStrokeLetters[shape.base - FirstCode].strokes);
    }
    addStrokes(chains, shape.strokes);
    return chains;
}
