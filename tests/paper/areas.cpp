// Areas in one colour.
#include "operation.h"

#include "tests/render/page_pixels.h"

namespace {

constexpr Match Alike = Usual;
constexpr Match Halves{Look::Pixels, 2, 0.8, 0.4, "the radii and the middle are whole numbers on paper"};
constexpr Match WithLines{Look::Pixels, 2, 1, 0.02, "lines go through corners of pixels, not their middles"};

void fillArc(const Stage& s, QsdArcMode mode, const QsdRect& rect)
{
    s.palette.setArcMode(mode);
    const auto start = static_cast<float>(s.dice.between(0, 360));
    s.port.fillArc(&s.palette, rect, start, static_cast<float>(s.dice.between(-360, 360)));
}

QsdHandle<QsdPalette> recolored(const Stage& s)
{
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&s.palette));
    palette->setForeground(colorOf(s.dice.color()).get());
    return palette;
}

} // namespace

std::vector<Operation> areaOperations()
{
    return {
        {"polygon", Kind::Area,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(3, 8);
             s.port.fillPolyLine(&s.palette, points.size(), points.data(), points.size() == 3);
         },
         Alike, Alike},
        {"polygon of steps", Kind::Area,
         [](const Stage& s) {
             const QsdDeltaPoint deltas[] = {{50, 3}, {-20, 40}, {-30, -70}, {45, 20}};
             const QsdPoint origin = s.dice.pointInside();
             s.port.fillPolyLine(&s.palette, origin, s.dice.size(3, 5), deltas, false);
         },
         Alike, Alike},
        {"filled rectangle", Kind::Area, [](const Stage& s) { s.port.fillRectangle(&s.palette, s.dice.rect()); }, Alike,
         Alike},
        {"cleared area", Kind::Area, [](const Stage& s) { s.port.clearArea(&s.palette, s.dice.rect()); }, Alike, Alike},
        {"filled round rectangle", Kind::Area,
         [](const Stage& s) {
             const QsdRect rect = s.dice.rect();
             s.port.fillRoundRectangle(&s.palette, rect, s.dice.size(0, 20));
         },
         Alike, Alike},
        {"pie", Kind::Area, [](const Stage& s) { fillArc(s, QsdArcPie, s.dice.evenRect()); }, Alike, Alike},
        {"chord", Kind::Area, [](const Stage& s) { fillArc(s, QsdArcChord, s.dice.evenRect()); }, Alike, Alike},
        {"pie of odd size", Kind::Area, [](const Stage& s) { fillArc(s, QsdArcPie, s.dice.rect()); }, Halves, Halves,
         false},
        {"filled curve", Kind::Area,
         [](const Stage& s) {
             const std::vector<QsdPoint> points = s.dice.points(3, 9);
             s.port.fillBezier(&s.palette, points.size(), points.data());
         },
         Alike, Alike},
        {"filled paths", Kind::Area,
         [](const Stage& s) {
             const QsdPointArray paths[] = {QsdPointArray(s.dice.points(3, 6)), QsdPointArray(s.dice.points(3, 6)),
                                            QsdPointArray(s.dice.points(3, 6))};
             s.port.fillPaths(&s.palette, 3, paths);
         },
         Alike, Alike},
        {"filled markers", Kind::Area,
         [](const Stage& s) {
             constexpr QsdMarkerType Types[] = {QsdMarkerFilledSquare, QsdMarkerFilledCircle, QsdMarkerFilledDiamond,
                                                QsdMarkerFilledTriangle};
             const QsdMarkerType type = Types[s.dice.between(0, 3)];
             const std::vector<QsdPoint> points = s.dice.points(1, 5);
             s.port.drawMarkers(&s.palette, points.size(), points.data(), type, 2 * s.dice.size(2, 15));
         },
         Alike, Alike},
        {"relief rectangle", Kind::Area,
         [](const Stage& s) {
             const QsdHandle<QsdPalette> light = recolored(s);
             const QsdHandle<QsdPalette> dark = recolored(s);
             const QsdRect rect = s.dice.rect();
             s.port.drawReliefRectangle(&s.palette, light.get(), dark.get(), rect, s.dice.size(0, 8));
         },
         Alike, Alike},
        {"relief diamond", Kind::Area,
         [](const Stage& s) {
             const QsdHandle<QsdPalette> light = recolored(s);
             const QsdHandle<QsdPalette> dark = recolored(s);
             const QsdRect rect = s.dice.rect();
             s.port.drawReliefDiamond(&s.palette, light.get(), dark.get(), rect, s.dice.size(0, 8));
         },
         Alike, Alike},
        {"shadow rectangle", Kind::Area,
         [](const Stage& s) {
             constexpr QsdPosition Corners[] = {QsdPositionNone, QsdPositionTopLeft, QsdPositionBottomLeft,
                                                QsdPositionTopRight};
             const QsdHandle<QsdPalette> shadow = recolored(s);
             const QsdRect rect = s.dice.rect();
             const QsdPosition corner = Corners[s.dice.between(0, 3)];
             s.port.drawShadowRectangle(&s.palette, shadow.get(), rect, s.dice.size(0, 8), corner);
         },
         Alike, Alike},
        {"arrow", Kind::Mixed,
         [](const Stage& s) {
             const QsdPoint from = s.dice.point();
             const QsdPoint to = s.dice.point();
             s.port.drawArrow(&s.palette, from, to, static_cast<float>(s.dice.between(0, 10)) / 10);
         },
         WithLines, WithLines, false},
    };
}
