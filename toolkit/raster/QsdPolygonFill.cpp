#include "toolkit/raster/QsdPolygonFill.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// An edge that is crossed by rows of pixel centres.
struct Edge {
    std::int64_t firstRow;
    std::int64_t endRow;
    double x;     ///< at the centre of firstRow
    double slope; ///< change of x from row to row
    int direction;
};

struct Crossing {
    double x;
    int direction;
};

void addEdge(std::vector<Edge>& edges, QsdRealPoint a, QsdRealPoint b, const QsdRect& area)
{
    const int direction = a.y < b.y ? 1 : -1;
    if (direction < 0) {
        std::swap(a, b);
    }
    const double top = std::max(std::ceil(a.y - 0.5), static_cast<double>(area.y));
    const double bottom = std::min(std::ceil(b.y - 0.5), static_cast<double>(area.bottom()));
    if (top >= bottom) {
        return;
    }
    const double slope = (b.x - a.x) / (b.y - a.y);
    edges.push_back({static_cast<std::int64_t>(top), static_cast<std::int64_t>(bottom), a.x + (top + 0.5 - a.y) * slope,
                     slope, direction});
}

/// A point on a grid so fine that nobody sees it. Edges that are to go through the middles of pixels do so, whatever
/// crumbs the way there has left on their points.
QsdRealPoint onGrid(QsdRealPoint point)
{
    constexpr double Steps = 65536;
    return {std::floor(point.x * Steps + 0.5) / Steps, std::floor(point.y * Steps + 0.5) / Steps};
}

std::vector<Edge> edgesOf(const std::vector<QsdChain>& rings, const QsdRect& area)
{
    constexpr double Farthest = 1e15;
    std::vector<Edge> edges;
    for (const QsdChain& ring : rings) {
        QsdChain points = QsdTamed(ring, Farthest);
        std::transform(points.begin(), points.end(), points.begin(), onGrid);
        for (std::size_t i = 0; i < points.size(); ++i) {
            addEdge(edges, points[i], points[(i + 1) % points.size()], area);
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.firstRow < b.firstRow; });
    return edges;
}

} // namespace

void QsdFillPolygons(const std::vector<QsdChain>& rings, bool evenOdd, const QsdRect& area,
                     const QsdSpanReceiver& receive)
{
    const std::vector<Edge> edges = edgesOf(rings, area);
    std::vector<Edge> active;
    std::vector<Crossing> crossings;
    std::size_t next = 0;
    const auto column = [&](double x) {
        const double clamped =
            std::clamp(std::ceil(x - 0.5), static_cast<double>(area.x), static_cast<double>(area.right()));
        return static_cast<std::int32_t>(std::min(clamped, 2147483647.0));
    };
    for (std::int64_t y = edges.empty() ? area.bottom() : edges.front().firstRow; y < area.bottom(); ++y) {
        while (next != edges.size() && edges[next].firstRow <= y) {
            active.push_back(edges[next++]);
        }
        std::erase_if(active, [=](const Edge& edge) { return edge.endRow <= y; });
        if (active.empty() && next == edges.size()) {
            return;
        }
        crossings.clear();
        for (const Edge& edge : active) {
            crossings.push_back({edge.x + static_cast<double>(y - edge.firstRow) * edge.slope, edge.direction});
        }
        std::sort(crossings.begin(), crossings.end(), [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
        int winding = 0;
        for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
            winding += crossings[i].direction;
            const bool inside = evenOdd ? i % 2 == 0 : winding != 0;
            const std::int32_t left = column(crossings[i].x);
            const std::int32_t right = column(crossings[i + 1].x);
            if (inside && left < right) {
                receive(static_cast<std::int32_t>(y), left, right);
            }
        }
    }
}
