#include "page/tiling.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace qsdps {

namespace {

struct Range {
    double first = std::numeric_limits<double>::infinity();
    double last = -std::numeric_limits<double>::infinity();

    void include(double value)
    {
        first = std::min(first, value);
        last = std::max(last, value);
    }
    [[nodiscard]] double count() const { return last - first + 1; }
};

} // namespace

std::vector<Matrix> cellsOver(const QsdRect& bounds, const Box& cell, const Matrix& toUnits, std::size_t most)
{
    const double area = toUnits.determinant();
    if (area == 0 || !std::isfinite(area) || !(cell.width > 0) || !(cell.height > 0)) {
        return {};
    }
    const Matrix toPattern = toUnits.inverse();
    constexpr double Edge = 1e-6; // of a cell; keeps cells out that only touch the bounds
    Range columns;
    Range rows;
    for (const double x : {static_cast<double>(bounds.x), static_cast<double>(bounds.right())}) {
        for (const double y : {static_cast<double>(bounds.y), static_cast<double>(bounds.bottom())}) {
            const Point p = toPattern.map({x, y});
            columns.include((p.x - cell.x) / cell.width);
            rows.include((p.y - cell.y) / cell.height);
        }
    }
    columns = {std::floor(columns.first + Edge), std::ceil(columns.last - Edge) - 1};
    rows = {std::floor(rows.first + Edge), std::ceil(rows.last - Edge) - 1};
    if (!(columns.count() * rows.count() <= static_cast<double>(most))) {
        return {};
    }
    std::vector<Matrix> cells;
    for (double row = rows.first; row <= rows.last; ++row) {
        for (double column = columns.first; column <= columns.last; ++column) {
            cells.push_back(Matrix::translation(column * cell.width, row * cell.height));
        }
    }
    return cells;
}

} // namespace qsdps
