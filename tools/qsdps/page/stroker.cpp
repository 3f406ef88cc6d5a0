#include "page/stroker.h"

#include "page/units.h"

#include <agg2/agg_conv_curve.h>
#include <agg2/agg_conv_dash.h>
#include <agg2/agg_conv_stroke.h>
#include <agg2/agg_path_storage.h>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace qsdps {

namespace {

constexpr double MostDashes = 50000; ///< of one stroke; a denser pattern is drawn solid

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

double lengthOf(const std::vector<Chain>& chains)
{
    double length = 0;
    for (const Chain& chain : chains) {
        for (std::size_t i = 1; i < chain.points.size(); ++i) {
            length += std::hypot(chain.points[i].x - chain.points[i - 1].x, chain.points[i].y - chain.points[i - 1].y);
        }
    }
    return length;
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

} // namespace

Rings strokeArea(const Path& path, const StrokeStyle& style, const Matrix& toUnits, double unitsPerPixel,
                 double tolerance)
{
    // The stroke is made in a space as large as the units but shaped like the user space.
    const double scale = style.nonScaling ? unitsPerPixel : toUnits.meanScale();
    if (!(scale > 0) || !std::isfinite(scale)) {
        return {};
    }
    const Matrix enlarge = style.nonScaling ? toUnits : Matrix::scaling(scale, scale);
    const Matrix map = style.nonScaling ? Matrix() : toUnits * Matrix::scaling(1 / scale, 1 / scale);
    const double width = style.width * scale;
    const std::vector<Chain> chains = flattened(path, enlarge, tolerance);

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
    const double period = std::accumulate(style.dashes.begin(), style.dashes.end(), 0.0) * scale;
    if (style.dashes.empty() || !(period > 0) ||
        lengthOf(chains) / period * static_cast<double>(style.dashes.size()) > MostDashes) {
        collectStroke(lines, style, width, tolerance, map, areas);
    } else {
        agg::conv_dash<agg::path_storage> dashes(lines);
        for (std::size_t i = 0; i + 1 < style.dashes.size(); i += 2) {
            dashes.add_dash(style.dashes[i] * scale, style.dashes[i + 1] * scale);
        }
        const double offset = std::fmod(style.dashOffset * scale, period);
        dashes.dash_start(offset < 0 ? offset + period : offset);
        collectStroke(dashes, style, width, tolerance, map, areas);
    }
    return ringsOf(areas);
}

} // namespace qsdps
