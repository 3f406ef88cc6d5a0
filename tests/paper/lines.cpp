// Points and lines.
#include "operation.h"

namespace {

constexpr Match Alike = Usual;
constexpr Match Dashed{Look::Pixels, 1, 0.25, 0.03};
constexpr Match Bends{Look::Pixels, 1, 0.25, 0.1,
                      "how far a corner sticks out of a sharp bend depends on the lines drawn for the curve"};
constexpr Match LooseEnd{Look::Pixels, 1, 0.25, 0.2,
                         "on paper the line's ends meet at the first point without a corner"};
constexpr Match Wider{Look::Pixels, 1, 1.5, 0.02, "on paper a line of width 0 is a unit wide"};

constexpr Match Shifted{Look::Pixels, 7, 0.8, 0.04,
                        "on paper lines begin as many units into their dashes as those are"};

/// Dashes whose lengths add up to their number, where the offset into them that paper has is as good as none.
void setDashes(const Stage& stage)
{
    static constexpr std::uint8_t Dashes[][18] = {{4, 4}, {5, 5}, {6, 4}, {8, 8}, {4, 4, 6, 4}};
    static constexpr std::uint16_t Counts[] = {8, 10, 10, 16, 18};
    const auto which = static_cast<std::size_t>(stage.dice.between(0, 4));
    const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(Counts[which], Dashes[which]));
    stage.palette.setLineStyle(style.get(), stage.dice.size(1, 6));
}

std::vector<QsdDeltaPoint> steps(Dice& dice)
{
    std::vector<QsdDeltaPoint> result(dice.size(1, 7));
    for (QsdDeltaPoint& step : result) {
        step = {static_cast<std::int16_t>(dice.between(-60, 60)), static_cast<std::int16_t>(dice.between(-60, 60))};
    }
    return result;
}

} // namespace

std::vector<Operation> lineOperations()
{
    constexpr Match Blank{Look::Blank, 0, 0, 0, "points are not drawn"};
    return {
        {"points", Kind::Picture,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(1, 30);
             s.port.drawPoints(&s.palette, points.size(), points.data());
             s.port.drawPoint(&s.palette, s.dice.point());
         },
         Alike, Blank, false},
        {"line", Kind::Line,
         [](const Stage& s) {
             const QsdPoint from = s.dice.point();
             s.port.drawLine(&s.palette, from, s.dice.point());
         },
         Alike, Alike},
        {"enlarged thin line", Kind::Line,
         [](const Stage& s) {
             s.palette.setLineStyle(nullptr, 0);
             s.port.setTransformer(QsdTransformer().scale(3, 3));
             const QsdPoint from = s.dice.pointInside();
             s.port.drawLine(&s.palette, from, {from.x / 2, 10});
         },
         Wider, Wider, false},
        {"line with other dashes", Kind::Line,
         [](const Stage& s) {
             const std::uint8_t dashes[] = {12, 8, 14, 9};
             s.palette.setLineStyle(QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(4, dashes)).get(), 3);
             s.port.setTransformer({});
             const QsdPoint from = s.dice.pointInside();
             s.port.drawLine(&s.palette, from, {from.x + 40, s.dice.between(20, 80)});
         },
         Shifted, Shifted, false},
        {"segments", Kind::Line,
         [](const Stage& s) {
             const std::vector<QsdPoint> starts = s.dice.points(1, 8);
             std::vector<QsdPoint> ends = starts;
             for (QsdPoint& end : ends) {
                 end = s.dice.point();
             }
             s.port.drawSegments(&s.palette, starts.size(), starts.data(), ends.data());
         },
         Alike, Alike},
        {"polyline", Kind::Line,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(2, 6);
             s.port.drawPolyLine(&s.palette, points.size(), points.data());
         },
         Alike, Alike},
        {"polyline of steps", Kind::Line,
         [](const Stage& s) {
             const QsdPoint origin = s.dice.pointInside();
             const std::vector<QsdDeltaPoint> deltas = steps(s.dice);
             s.port.drawPolyLine(&s.palette, origin, deltas.size() + 1, deltas.data());
         },
         Alike, Alike},
        {"dashed line", Kind::Line,
         [](const Stage& s) {
             setDashes(s);
             const QsdPoint from = s.dice.point();
             s.port.drawLine(&s.palette, from, s.dice.point());
         },
         Dashed, Dashed},
        {"dashed polyline", Kind::Line,
         [](const Stage& s) {
             setDashes(s);
             const std::vector<QsdPoint> points = s.dice.points(2, 5);
             s.port.drawPolyLine(&s.palette, points.size(), points.data());
         },
         Dashed, Dashed},
        {"rectangle", Kind::Line, [](const Stage& s) { s.port.drawRectangle(&s.palette, s.dice.rect()); }, Alike,
         Alike},
        {"round rectangle", Kind::Line,
         [](const Stage& s) {
             const QsdRect rect = s.dice.rect();
             s.port.drawRoundRectangle(&s.palette, {rect.x, rect.y, rect.width + 10, rect.height + 10},
                                       s.dice.size(5, 20));
         },
         Alike, Alike},
        {"arc", Kind::Line,
         [](const Stage& s) {
             const QsdRect rect = s.dice.evenRect();
             const auto start = static_cast<float>(s.dice.between(0, 360));
             s.port.drawArc(&s.palette, rect, start, static_cast<float>(s.dice.between(-360, 360)));
         },
         Alike, Alike},
        {"curve", Kind::Line,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(2, 9);
             s.port.drawBezier(&s.palette, points.size(), points.data());
         },
         Bends, Bends, false},
        {"closed curve", Kind::Line,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(2, 9);
             s.port.drawClosedBezier(&s.palette, points.size(), points.data());
         },
         LooseEnd, LooseEnd, false},
        {"outlines of paths", Kind::Line,
         [](const Stage& s) {
             const QsdPointArray paths[] = {QsdPointArray{s.dice.points(3, 5)}, QsdPointArray{s.dice.points(3, 5)}};
             s.port.drawPaths(&s.palette, 2, paths);
         },
         Alike, Alike},
        {"outlined markers", Kind::Line,
         [](const Stage& s) {
             constexpr QsdMarkerType Types[] = {QsdMarkerPlus,   QsdMarkerCross,   QsdMarkerSquare,
                                                QsdMarkerCircle, QsdMarkerDiamond, QsdMarkerTriangle};
             const QsdMarkerType type = Types[s.dice.between(0, 5)];
             const std::vector<QsdPoint> points = s.dice.points(1, 5);
             s.port.drawMarkers(&s.palette, points.size(), points.data(), type, 2 * s.dice.size(2, 15));
         },
         Alike, Alike},
        {"relief line", Kind::Line,
         [](const Stage& s) {
             const auto light = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&s.palette));
             light->setForeground(s.palette.background());
             const QsdPoint from = s.dice.point();
             const QsdPoint to = s.dice.point();
             s.port.drawReliefLine(light.get(), &s.palette, from, to, s.dice.size(1, 5));
         },
         Alike, Alike},
    };
}
