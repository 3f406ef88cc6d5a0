#include "bitmap_forms.h"

#include "toolkit/port/QsdPort.h"

#include <algorithm>

namespace {

constexpr std::uint32_t W = SourcePixels::Width;
constexpr std::uint32_t H = SourcePixels::Height;

QsdPoint moved(const QsdPoint& point, const QsdPoint& by)
{
    return {point.x + by.x, point.y + by.y};
}

QsdRect moved(const QsdRect& rect, const QsdPoint& by)
{
    return {rect.x + by.x, rect.y + by.y, rect.width, rect.height};
}

/// The rectangle that a form without turns fills.
QsdRect area(const Stage& stage, const Form& form)
{
    const QsdPoint at = moved(form.at, stage.origin);
    return {at.x, at.y, form.from.width * static_cast<std::uint32_t>(form.matrix.x11),
            form.from.height * static_cast<std::uint32_t>(form.matrix.x22)};
}

/// The region given with the call; null for none.
std::unique_ptr<QsdRegion> clipRegion(const Stage& stage, const Form& form)
{
    if (form.clip.empty()) {
        return nullptr;
    }
    auto region = std::make_unique<QsdRegion>();
    for (const QsdRect& rect : form.clip) {
        region->unite(moved(rect, stage.origin));
    }
    return region;
}

/// The same for calls that take one rectangle.
std::unique_ptr<QsdRect> clipRect(const Stage& stage, const Form& form)
{
    return form.clip.empty() ? nullptr : std::make_unique<QsdRect>(moved(form.clip.front(), stage.origin));
}

void drawPart(const Stage& stage, const Form& form)
{
    const auto bitmap = stage.pixels.bitmap(form.source, stage.display);
    const QsdPoint at = moved(form.at, stage.origin);
    if (form.transparent) {
        stage.port.drawTransparentBitmap(&stage.palette, bitmap.get(), form.from, at);
    } else {
        stage.port.drawBitmap(&stage.palette, bitmap.get(), form.from, at);
    }
}

/// drawPart with the form's matrix and place in the transformer of the port.
void drawPartTransformed(const Stage& stage, const Form& form)
{
    const QsdPoint at = moved(form.at, stage.origin);
    QsdTransformer t = form.transformer;
    stage.port.setTransformer(t.translate(at.x, at.y));
    Form here = form;
    here.at = {};
    drawPart({stage.port, stage.display, stage.pixels, stage.palette, {}}, here);
    stage.port.setTransformer(QsdTransformer());
}

void placeWhole(const Stage& stage, const Form& form)
{
    const auto bitmap = stage.pixels.bitmap(form.source, stage.display);
    stage.port.drawBitmap(&stage.palette, bitmap.get(), moved(form.dest, stage.origin), clipRegion(stage, form).get(),
                          form.position, form.transparent);
}

void placePart(const Stage& stage, const Form& form)
{
    const auto bitmap = stage.pixels.bitmap(form.source, stage.display);
    stage.port.drawBitmap(&stage.palette, bitmap.get(), form.from, moved(form.dest, stage.origin),
                          clipRegion(stage, form).get(), form.position, form.transparent);
}

void stretchUnder(const Stage& stage, const Form& form)
{
    const auto bitmap = stage.pixels.bitmap(form.source, stage.display);
    const auto clip = clipRect(stage, form);
    const QsdPoint at = moved(form.at, stage.origin);
    if (form.transparent) {
        stage.port.stretchTransparentBitmap(&stage.palette, at, bitmap.get(), form.transformer, clip.get());
    } else {
        stage.port.stretchBitmap(&stage.palette, at, bitmap.get(), form.transformer, clip.get());
    }
}

void stretchInto(const Stage& stage, const Form& form)
{
    const auto bitmap = stage.pixels.bitmap(form.source, stage.display);
    const auto clip = clipRect(stage, form);
    if (form.transparent) {
        stage.port.stretchTransparentBitmap(&stage.palette, area(stage, form), bitmap.get(), clip.get());
    } else {
        stage.port.stretchBitmap(&stage.palette, area(stage, form), bitmap.get(), clip.get());
    }
}

void stretchData(const Stage& stage, const Form& form)
{
    stage.port.stretchBitmapData(&stage.palette, &stage.pixels.colors(), form.from, area(stage, form), false);
}

constexpr QsdRect Part = {5, 3, 30, 17}; ///< begins and ends inside of bytes
constexpr QsdRect WholeBytes = {3, 2, 32, 9};
constexpr QsdRect Beyond = {-3, -2, 44, 27};                            ///< reaches out of the bitmap on every side
constexpr QsdRect Room = {10, 20, 80, 60};                              ///< larger than the bitmap
constexpr QsdRect Narrow = {10, 20, 20, 12};                            ///< smaller than the bitmap
constexpr QsdRect Inner = {17, 15, 50, 40};                             ///< cuts a stretched bitmap on every side
const std::vector<QsdRect> Corner = {{12, 12, 30, 6}, {20, 18, 9, 70}}; ///< a region of two bands

const std::vector<Form> Single = {
    {.name = "bits", .draw = drawPart, .source = Source::Bits},
    {.name = "colour", .draw = drawPart, .source = Source::Color},
    {.name = "colour with a mask that does not count", .draw = drawPart, .source = Source::Masked},
    {.name = "set bits", .draw = drawPart, .source = Source::Bits, .transparent = true},
    {.name = "masked", .draw = drawPart, .source = Source::Masked, .transparent = true},
    {.name = "small mask", .draw = drawPart, .source = Source::HalfMasked, .transparent = true},
    {.name = "no mask", .draw = drawPart, .source = Source::Color, .transparent = true, .leavesOut = true},
    {.name = "part of bits", .draw = drawPart, .source = Source::Bits, .from = Part},
    {.name = "part of colour", .draw = drawPart, .source = Source::Color, .from = Part},
    {.name = "part of set bits", .draw = drawPart, .source = Source::Bits, .transparent = true, .from = Part},
    {.name = "part of masked", .draw = drawPart, .source = Source::Masked, .transparent = true, .from = Part},
    {.name = "beyond bits", .draw = drawPart, .source = Source::Bits, .from = Beyond},
    {.name = "beyond colour", .draw = drawPart, .source = Source::Color, .from = Beyond},
    {.name = "beyond set bits", .draw = drawPart, .source = Source::Bits, .transparent = true, .from = Beyond},
    {.name = "beyond masked", .draw = drawPart, .source = Source::Masked, .transparent = true, .from = Beyond},
    {.name = "whole bytes of bits", .draw = drawPart, .source = Source::Bits, .from = WholeBytes},
    {.name = "whole bytes of set bits",
     .draw = drawPart,
     .source = Source::Bits,
     .transparent = true,
     .from = WholeBytes},
    {.name = "one row", .draw = drawPart, .source = Source::Color, .from = {0, 4, W, 1}},
    {.name = "one column", .draw = drawPart, .source = Source::Bits, .from = {9, 0, 1, H}},
    {.name = "one pixel", .draw = drawPart, .source = Source::Color, .from = {W - 1, H - 1, 1, 1}},
    {.name = "bits in a region", .draw = drawPart, .source = Source::Bits, .paletteClip = Corner},
    {.name = "colour in a region", .draw = drawPart, .source = Source::Color, .paletteClip = Corner},
    {.name = "set bits in a region",
     .draw = drawPart,
     .source = Source::Bits,
     .transparent = true,
     .paletteClip = Corner},
    {.name = "masked in a region",
     .draw = drawPart,
     .source = Source::Masked,
     .transparent = true,
     .paletteClip = Corner},

    {.name = "at the top left",
     .draw = placeWhole,
     .source = Source::Bits,
     .at = {10, 20},
     .dest = Room,
     .position = QsdPositionTopLeft},
    {.name = "at the bottom right",
     .draw = placeWhole,
     .source = Source::Color,
     .at = {10 + 80 - static_cast<int>(W), 20 + 60 - static_cast<int>(H)},
     .dest = Room,
     .position = QsdPositionBottomRight},
    {.name = "at the right",
     .draw = placeWhole,
     .source = Source::Masked,
     .transparent = true,
     .at = {10 + 80 - static_cast<int>(W), 20 + (60 - static_cast<int>(H)) / 2},
     .dest = Room,
     .position = QsdPositionRight},
    {.name = "in the middle",
     .draw = placeWhole,
     .source = Source::Bits,
     .transparent = true,
     .at = {10 + (80 - static_cast<int>(W)) / 2, 20 + (60 - static_cast<int>(H)) / 2},
     .dest = Room},
    {.name = "in too little room",
     .draw = placeWhole,
     .source = Source::Color,
     .at = {10, 20},
     .dest = Narrow,
     .position = QsdPositionTopLeft},
    {.name = "in a region of the room",
     .draw = placeWhole,
     .source = Source::Masked,
     .transparent = true,
     .at = {10, 20},
     .dest = Room,
     .position = QsdPositionTopLeft,
     .clip = {{12, 22, 9, 50}, {25, 30, 30, 5}}},
    {.name = "part at the top right",
     .draw = placePart,
     .source = Source::Color,
     .from = Part,
     .at = {10 + 80 - 30, 20},
     .dest = Room,
     .position = QsdPositionTopRight},
    {.name = "part at the bottom left",
     .draw = placePart,
     .source = Source::Bits,
     .from = Part,
     .at = {10, 20 + 60 - 17},
     .dest = Room,
     .position = QsdPositionBottomLeft},
    {.name = "part in the middle of too little room",
     .draw = placePart,
     .source = Source::Masked,
     .transparent = true,
     .from = Part,
     .at = {10 - 5, 20 - 2},
     .dest = Narrow,
     .position = QsdPositionCenter},
    {.name = "part in two regions",
     .draw = placePart,
     .source = Source::Bits,
     .transparent = true,
     .from = Part,
     .at = {10, 20},
     .dest = Room,
     .position = QsdPositionTopLeft,
     .paletteClip = {{10, 20, 15, 90}},
     .clip = {{12, 22, 9, 50}, {23, 30, 30, 5}}},

    {.name = "bits into a rectangle", .draw = stretchInto, .source = Source::Bits, .matrix = {2, 0, 0, 3}},
    {.name = "colour into a rectangle", .draw = stretchInto, .source = Source::Color, .matrix = {2, 0, 0, 3}},
    {.name = "set bits into a rectangle",
     .draw = stretchInto,
     .source = Source::Bits,
     .transparent = true,
     .matrix = {3, 0, 0, 2}},
    {.name = "masked into a rectangle",
     .draw = stretchInto,
     .source = Source::Masked,
     .transparent = true,
     .matrix = {2, 0, 0, 3},
     .rowsLow = 1},
    {.name = "small mask into a rectangle",
     .draw = stretchInto,
     .source = Source::HalfMasked,
     .transparent = true,
     .matrix = {2, 0, 0, 2},
     .rowsLow = 1},
    {.name = "no mask into a rectangle",
     .draw = stretchInto,
     .source = Source::Color,
     .transparent = true,
     .leavesOut = true},
    {.name = "bits into a rectangle and a clip",
     .draw = stretchInto,
     .source = Source::Bits,
     .matrix = {2, 0, 0, 3},
     .clip = {Inner}},
    {.name = "colour into a rectangle and a clip",
     .draw = stretchInto,
     .source = Source::Color,
     .matrix = {2, 0, 0, 3},
     .clip = {Inner}},
    {.name = "set bits into a rectangle and a region",
     .draw = stretchInto,
     .source = Source::Bits,
     .transparent = true,
     .matrix = {2, 0, 0, 3},
     .paletteClip = Corner},
    {.name = "masked into a rectangle, a region and a clip",
     .draw = stretchInto,
     .source = Source::Masked,
     .transparent = true,
     .matrix = {2, 0, 0, 3},
     .paletteClip = Corner,
     .clip = {Inner},
     .rowsLow = 1},

    {.name = "data", .draw = stretchData, .source = Source::Color},
    {.name = "stretched data", .draw = stretchData, .source = Source::Color, .matrix = {3, 0, 0, 4}},
    {.name = "part of data", .draw = stretchData, .source = Source::Color, .from = Part, .matrix = {2, 0, 0, 3}},
    {.name = "data in a region", .draw = stretchData, .source = Source::Color, .paletteClip = Corner},
};

/// Ways to lie, and the call's own map for each.
struct Posture {
    std::string name;
    Matrix matrix;
    QsdTransformer transformer;
};

const std::vector<Posture> Postures = {
    {"upright", {1, 0, 0, 1}, QsdTransformer()},
    {"stretched", {3, 0, 0, 2}, QsdTransformer().scale(3, 2)},
    {"turned by 90", {0, 1, -1, 0}, QsdTransformer().rotate(90)},
    {"turned by 180", {-1, 0, 0, -1}, QsdTransformer().rotate(180)},
    {"turned by 270", {0, -1, 1, 0}, QsdTransformer().rotate(270)},
    {"mirrored in x", {-1, 0, 0, 1}, QsdTransformer().scale(-1, 1)},
    {"mirrored in y", {1, 0, 0, -1}, QsdTransformer().scale(1, -1)},
    {"mirrored in the diagonal", {0, 1, 1, 0}, QsdTransformer(0, 1, 1, 0, 0, 0)},
    {"stretched and turned by 90", {0, 3, -2, 0}, QsdTransformer().scale(2, 3).rotate(90)},
    {"stretched and turned by 180", {-2, 0, 0, -3}, QsdTransformer().scale(2, 3).rotate(180)},
    {"stretched and turned by 270", {0, -3, 2, 0}, QsdTransformer().scale(2, 3).rotate(270)},
    {"stretched and mirrored in x", {-2, 0, 0, 3}, QsdTransformer().scale(-2, 3)},
    {"stretched and mirrored in y", {2, 0, 0, -3}, QsdTransformer().scale(2, -3)},
};

/// Forms that are drawn in every posture.
const std::vector<Form> Postured = {
    {.name = "bits", .draw = stretchUnder, .source = Source::Bits},
    {.name = "set bits", .draw = stretchUnder, .source = Source::Bits, .transparent = true},
    {.name = "colour", .draw = stretchUnder, .source = Source::Color},
    {.name = "masked", .draw = stretchUnder, .source = Source::Masked, .transparent = true, .rowsLow = 1},
    {.name = "clipped colour", .draw = stretchUnder, .source = Source::Masked, .paletteClip = Corner, .clip = {Inner}},
    {.name = "port with bits", .draw = drawPartTransformed, .source = Source::Bits},
    {.name = "port with set bits", .draw = drawPartTransformed, .source = Source::Bits, .transparent = true},
    {.name = "port with part of colour", .draw = drawPartTransformed, .source = Source::Color, .from = Part},
    {.name = "port with masked", .draw = drawPartTransformed, .source = Source::Masked, .transparent = true},
};

/// Where a corner has to come so that the turned bitmap begins 10 to the right of the cell's corner and below it.
QsdPoint cornerOf(const Form& form)
{
    const Matrix& m = form.matrix;
    const int w = static_cast<int>(form.from.width);
    const int h = static_cast<int>(form.from.height);
    return {10 - std::min({0, m.x11 * w, m.x12 * h}), 10 - std::min({0, m.x21 * w, m.x22 * h})};
}

} // namespace

std::vector<Form> bitmapForms()
{
    std::vector<Form> forms = Single;
    for (const Form& form : Postured) {
        for (const Posture& posture : Postures) {
            forms.push_back(form);
            forms.back().name += " " + posture.name;
            forms.back().matrix = posture.matrix;
            forms.back().transformer = posture.transformer;
            forms.back().at = cornerOf(forms.back());
        }
    }
    return forms;
}
