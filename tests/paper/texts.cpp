// Texts.
#include "operation.h"

#include "toolkit/graphics/QsdBidiString.h"

#include <string>

namespace {

constexpr QsdPosition Positions[] = {QsdPositionLeft, QsdPositionCenter, QsdPositionRight};
constexpr Match None{Look::Blank, 0, 0, 0, "texts with directions are not drawn"};
constexpr Match Glyphs{Look::Extent, 8, 0, 0, "other glyphs, in the same advances"};

/// Letters from side to side of their advances, up to the ascent and down to the descent.
std::string text(const Stage& s)
{
    static constexpr const char* Words[] = {"Hamburg", "Expedition", "Ang", "Mixed quality", "HILL"};
    constexpr const char* Families[] = {"Helvetica", "Times", "Courier"};
    const auto style = static_cast<std::uint16_t>(s.dice.oneIn(3) ? QsdFontBold : QsdFontPlain);
    const char* const family = Families[s.dice.between(0, 2)];
    s.palette.setFont(QsdHandle<QsdFont>::Adopt(new QsdFont(family, style, s.dice.size(10, 24))).get());
    return Words[s.dice.between(0, 4)];
}

std::wstring wideText(const Stage& s)
{
    const std::string narrow = text(s);
    return {narrow.begin(), narrow.end()};
}

QsdPoint place(Dice& dice)
{
    return {dice.between(60, 100), dice.between(40, 80)};
}

int lengthOf(const std::wstring& wide)
{
    return static_cast<int>(wide.size());
}

} // namespace

std::vector<Operation> textOperations()
{
    return {
        {"string", Kind::Text,
         [](const Stage& s) {
             const std::string word = text(s);
             const QsdPoint at = place(s.dice);
             s.port.drawString(&s.palette, at, word.c_str(), -1, Positions[s.dice.between(0, 2)]);
         },
         Glyphs, Glyphs, false},
        {"string on a box", Kind::Text,
         [](const Stage& s) {
             const std::string word = text(s);
             const QsdPoint at = place(s.dice);
             s.port.setTransformer({});
             s.port.drawIString(&s.palette, at, word.c_str(), -1, Positions[s.dice.between(0, 2)]);
         },
         Glyphs, Glyphs, false},
        {"transformed string", Kind::Text,
         [](const Stage& s) {
             const std::string word = text(s);
             const QsdPoint at = s.dice.pointInside();
             QsdTransformer t;
             const double along = s.dice.between(5, 15) / 10.0;
             t.scale(along, s.dice.between(5, 15) / 10.0);
             t.rotate(s.dice.between(0, 359));
             s.port.drawTransformedString(&s.palette, word.c_str(), -1, t.translate(at.x, at.y), nullptr);
         },
         Glyphs, Glyphs, false},
        {"wide string", Kind::Text,
         [](const Stage& s) {
             const std::wstring word = wideText(s);
             const QsdPoint at = place(s.dice);
             s.port.drawWChar(&s.palette, at, word.c_str(), lengthOf(word), Positions[s.dice.between(0, 2)]);
         },
         Glyphs, Glyphs, false},
        {"wide string on a box", Kind::Text,
         [](const Stage& s) {
             const std::wstring word = wideText(s);
             const QsdPoint at = place(s.dice);
             s.port.setTransformer({});
             s.port.drawIWChar(&s.palette, at, word.c_str(), lengthOf(word), Positions[s.dice.between(0, 2)]);
         },
         Glyphs, Glyphs, false},
        {"string with directions", Kind::Text,
         [](const Stage& s) {
             const QsdBidiString word(wideText(s), QsdBidiString::LeftToRight);
             const QsdPoint at = place(s.dice);
             s.port.drawString(&s.palette, at, &word, -1, Positions[s.dice.between(0, 2)]);
         },
         None, None, false},
        {"label", Kind::Text,
         [](const Stage& s) {
             constexpr QsdPosition Sides[] = {QsdPositionNone, QsdPositionTopLeft, QsdPositionBottomRight,
                                              QsdPositionTop};
             const std::string lines = text(s) + "\nAng";
             s.port.drawLabel(&s.palette, {10, 10, 140, 100}, lines.c_str(), -1, nullptr, Sides[s.dice.between(0, 3)]);
         },
         Glyphs, Glyphs, false},
    };
}
