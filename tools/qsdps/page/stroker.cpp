#include "page/stroker.h"

#include "page/dashes.h"
#include "page/units.h"

#include <agg2/agg_conv_curve.h>
#include <agg2/agg_conv_stroke.h>
#include <agg2/agg_path_storage.h>
#include <algorithm>
#include <cmath>

namespace qsdps {

namespace {

agg::line_cap_e capOf(LineCap cap)
{
    switch (cap) {
    case LineCap::Round:
        return agg::round_cap;
    case LineCap::Square:
        return agg::square_cap;
    case LineCap::Butt:
        break;
    }
    return agg::butt_cap;
}

agg::line_join_e joinOf(LineJoin join)
{
    switch (join) {
    case LineJoin::Round:
        return agg::round_join;
    case LineJoin::Bevel:
        return agg::bevel_join;
    case LineJoin::Miter:
        break;
    }
    // Corners beyond the limit are cut off flat, as drawings ask for.
    return agg::miter_join_revert;
}

bool isDot(const Chain& chain)
{
    return std::all_of(chain.points.begin(), chain.points.end(), [&](Point p) { return p == chain.points.front(); });
}

/// What a sub-path without length leaves: a dot in the shape of its caps.
Chain dotOf(Point at, double width, LineCap cap, double tolerance)
{
    Chain dot{{}, true};
    const double half = width / 2;
    const int corners =
        cap == LineCap::Square ? 4 : std::clamp(static_cast<int>(8 * std::sqrt(half / tolerance)), 8, 200);
    const double radius = cap == LineCap::Square ? half * std::sqrt(2.0) : half;
    constexpr double Turn = 6.28318530717958648;
    for (int i = 0; i < corners; ++i) {
        const double angle = Turn * (i + 0.5) / corners;
        dot.points.push_back({at.x + radius * std::cos(angle), at.y + radius * std::sin(angle)});
    }
    return dot;
}

/// Collects the polygons of an AGG vertex source, mapped.
template <class Source>
void collect(Source& source, const Matrix& map, std::vector<Chain>& areas)
{
    source.rewind(0);
    double x = 0;
    double y = 0;
    for (unsigned command = source.vertex(&x, &y); !agg::is_stop(command); command = source.vertex(&x, &y)) {
        if (agg::is_move_to(command)) {
            areas.push_back({{}, true});
        }
        if (agg::is_vertex(command) && !areas.empty()) {
            areas.back().points.push_back(map.map({x, y}));
        }
    }
}

template <class Source>
void collectStroke(Source& source, const StrokeStyle& style, double width, double tolerance, const Matrix& map,
                   std::vector<Chain>& areas)
{
    agg::conv_stroke<Source> stroke(source);
    stroke.width(width);
    stroke.line_cap(capOf(style.cap));
    stroke.line_join(joinOf(style.join));
    stroke.inner_join(agg::inner_round);
    stroke.miter_limit(std::max(style.miterLimit, 1.0));
    // At scale 1 the library's arcs stray an eighth of a unit.
    stroke.approximation_scale(0.125 / tolerance);
    collect(stroke, map, areas);
}

/// The stroke of each chain as a whole.
std::vector<Chain> areasOf(const std::vector<Chain>& chains, const StrokeStyle& style, double width, double tolerance,
                           const Matrix& map)
{
    std::vector<Chain> areas;
    agg::path_storage lines;
    for (const Chain& chain : chains) {
        if (isDot(chain)) {
            if (style.cap != LineCap::Butt && (chain.points.size() > 1 || chain.closed)) {
                Chain dot = dotOf(chain.points.front(), width, style.cap, tolerance);
                std::transform(dot.points.begin(), dot.points.end(), dot.points.begin(),
                               [&](Point p) { return map.map(p); });
                areas.push_back(std::move(dot));
            }
            continue;
        }
        lines.move_to(chain.points[0].x, chain.points[0].y);
        for (std::size_t i = 1; i < chain.points.size(); ++i) {
            lines.line_to(chain.points[i].x, chain.points[i].y);
        }
        if (chain.closed) {
            lines.close_polygon();
        }
    }
    collectStroke(lines, style, width, tolerance, map, areas);
    return areas;
}

/// A rectangle in units in the space that `map` brings there; none where there is no way back.
std::optional<Box> boxUnder(const QsdRect& rect, const Matrix& map)
{
    const double determinant = map.determinant();
    if (determinant == 0 || !std::isfinite(1 / determinant)) {
        return std::nullopt;
    }
    // What is rounded into the rectangle lies half a unit outside at most.
    const Box wider{rect.x - 1.0, rect.y - 1.0, rect.width + 2.0, rect.height + 2.0};
    return outlineOf(wider).transformed(map.inverse()).controlBox();
}

} // namespace

Rings strokeArea(const Path& path, const StrokeStyle& style, const StrokeFrame& frame, Report& report)
{
    // The stroke is made in a space as large as the units but shaped like the user space.
    const double scale = style.nonScaling ? frame.unitsPerPixel : frame.toUnits.meanScale();
    if (!(scale > 0) || !std::isfinite(scale)) {
        return {};
    }
    const Matrix enlarge = style.nonScaling ? frame.toUnits : Matrix::scaling(scale, scale);
    const Matrix map = style.nonScaling ? Matrix() : frame.toUnits * Matrix::scaling(1 / scale, 1 / scale);
    std::vector<Chain> chains = flattened(path, enlarge, frame.tolerance);
    if (!style.dashes.empty()) {
        const std::optional<Box> seen = frame.seen ? boxUnder(*frame.seen, map) : std::nullopt;
        if (std::optional<std::vector<Chain>> dashes = dashesOf(chains, style, scale, seen)) {
            chains = std::move(*dashes);
        } else {
            report.approximated("line of too many dashes");
        }
    }
    return ringsOf(areasOf(chains, style, style.width * scale, frame.tolerance, map));
}

} // namespace qsdps
