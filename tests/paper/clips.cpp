// Clips and transformers that screens and paper do not see alike.
#include "operation.h"

namespace {

/// Clips by a palette while the port draws under `t`.
void fillClipped(const Stage& s, const QsdTransformer& t)
{
    s.palette.setClipRegion(QsdRegion(QsdRect{s.dice.between(20, 50), s.dice.between(20, 40), 41, 33}));
    s.port.setTransformer(t);
    s.port.fillRectangle(&s.palette, {-500, -500, 1000, 1000});
}

} // namespace

std::vector<Operation> clipOperations()
{
    constexpr Match Halves{Look::Pixels, 1, 1, 0.01, "screens keep every pixel that a clip touches"};
    constexpr Match Boxes{Look::Extent, 2, 0, 0, "screens clip to the box of a turned rectangle"};
    constexpr Match Replaced{Look::Apart, 0, 0, 0, "on paper the palette's clip takes the place of the port's"};
    constexpr Match Kept{Look::Apart, 0, 0, 0, "on paper a clip stays where it was first put"};
    constexpr Match Moving{Look::Extent, 2, 0, 0, "on paper tiles move and grow with the drawing"};
    return {
        {"clip between pixels", Kind::Pattern, [](const Stage& s) { fillClipped(s, QsdTransformer().scale(1.3, 0.7)); },
         Halves, Halves, false},
        {"turned clip", Kind::Pattern, [](const Stage& s) { fillClipped(s, QsdTransformer().rotate(-30)); }, Boxes,
         Boxes, false},
        {"clip under two transformers", Kind::Pattern,
         [](const Stage& s) {
             fillClipped(s, {});
             s.palette.setForeground(s.palette.background());
             s.port.setTransformer(QsdTransformer().translate(30, 10));
             s.port.fillRectangle(&s.palette, {-500, -500, 1000, 1000});
         },
         Kept, Kept, false},
        {"clip of the port", Kind::Pattern,
         [](const Stage& s) {
             const QsdRect clip{s.dice.between(30, 50), 30, 20, 20};
             s.palette.setClipRegion(QsdRegion::Full());
             s.port.clip(&clip);
             s.port.fillRectangle(&s.palette, {20, 20, 100, 80});
             s.port.clip(static_cast<const QsdRect*>(nullptr));
         },
         Replaced, Replaced, false},
        {"pattern under a transformer", Kind::Pattern,
         [](const Stage& s) {
             const std::vector<unsigned char> tile = s.dice.bytes(8);
             s.palette.setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 8, tile.data())).get());
             s.port.setTransformer(QsdTransformer().scale(2, 2).translate(3, 5));
             s.port.fillRectangle(&s.palette, {10, 10, 40, 30});
         },
         Moving, Moving, false},
    };
}
