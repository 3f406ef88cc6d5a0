// Texts drawn with the X server.
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/x11/QsdXCoverage_p.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXFace_p.h"
#include "toolkit/x11/QsdXFontCache_p.h"
#include "toolkit/x11/QsdXGraphics_p.h"
#include "toolkit/x11/QsdXPixmap.h"
#include "toolkit/x11/QsdXReduction_p.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

constexpr double UnderlineDepth = 0.4; ///< parts of the descent
constexpr int SizePerUnderline = 16;   ///< how much higher than its underline a font is

std::string_view viewOf(const char* text, int length)
{
    if (text == nullptr) {
        return {};
    }
    return {text, length < 0 ? std::min<std::size_t>(std::strlen(text), INT_MAX) : static_cast<std::size_t>(length)};
}

/// How far to the left of its anchor a text of `width` begins.
std::int64_t beforeAnchor(QsdPosition position, std::int64_t width)
{
    return position == QsdPositionRight ? width : position == QsdPositionCenter ? width / 2 : 0;
}

QsdRect textBox(const QsdXFace& face, const QsdPoint& at, std::int64_t width)
{
    return {at.x, at.y - face.ascent(), static_cast<std::uint32_t>(std::clamp<std::int64_t>(width, 0, UINT32_MAX)),
            static_cast<std::uint32_t>(face.ascent() + face.descent())};
}

QsdRect underline(const QsdXFace& face, const QsdPoint& at, std::int64_t width)
{
    QsdRect line = textBox(face, at, width);
    line.y = at.y + static_cast<std::int32_t>(face.descent() * UnderlineDepth);
    line.height = std::max(1U, line.height / SizePerUnderline);
    return line;
}

} // namespace

bool QsdXPort::drawTextUpright(const QsdPalette& palette, const QsdTransformer& placing, const QsdRect* clip,
                               std::string_view text, const TextForm& form) const
{
    QsdTransformer matrix = placing;
    matrix.compose(_transformer);
    double x11, x12, x21, x22, x0, y0;
    matrix.getValues(x11, x12, x21, x22, x0, y0);
    if (x12 != 0 || x21 != 0 || x11 != x22 || !(x11 > 0)) {
        return false;
    }
    const std::shared_ptr<const QsdXFace> face = _xDisplay.xFonts().faceOf(*palette.font(), x11);
    const QsdRegion visible = visibleRegion(palette, clip);
    if (face == nullptr || visible.count() > QsdXGraphics::MostClipRectangles) {
        return false;
    }
    const std::int64_t width = face->width(text);
    QsdPoint at;
    matrix.transform(at);
    const std::int64_t left = at.x - beforeAnchor(form.position, width);
    const std::int64_t baseline = std::int64_t{at.y} + (form.hanging ? face->ascent() : 0);
    // Texts may begin far to the left of what is seen of them, but their lines are not so high.
    if (std::abs(left) >= INT32_MAX || std::abs(baseline) >= QsdXGraphics::MostPixels) {
        return true;
    }
    const QsdPoint start{static_cast<std::int32_t>(left), static_cast<std::int32_t>(baseline)};
    const auto fillBox = [&](const QsdRect& box) {
        const QsdRect seen = box.intersected(portArea());
        _graphics->fillRectangles({QsdXRectangle(seen.x, seen.y, seen.width, seen.height)});
    };
    _graphics->setClip(visible);
    if (form.opaque) {
        _graphics->setColor(*palette.background());
        fillBox(textBox(*face, start, width));
    }
    _graphics->setColor(*palette.foreground());
    face->draw(_graphics->pixmap(), _graphics->gc(), start, text, portArea().width);
    if (palette.font()->isUnderlined()) {
        fillBox(underline(*face, start, width));
    }
    finish();
    return true;
}

// The letters are drawn upright into a bitmap of the server, and that is drawn as a picture.
void QsdXPort::drawTextAsPicture(const QsdPalette& palette, const QsdXFace& face, const QsdTransformer& placing,
                                 const QsdRect* clip, std::string_view text, const TextForm& form) const
{
    // Slanted letters stick out of their advances.
    const std::int32_t overhang = form.opaque ? 0 : face.ascent() / 2;
    const std::int64_t width = face.width(text);
    const std::int64_t whole = width + std::int64_t{2} * overhang;
    const int height = face.ascent() + face.descent();
    if (whole <= 0 || height <= 0) {
        return;
    }
    // More cannot be seen at once but when it is made very small.
    const auto kept = static_cast<std::uint32_t>(std::min<std::int64_t>(whole, QsdXGraphics::MostPixels));
    const QsdXPixmap letters(&_xDisplay, kept, static_cast<std::uint32_t>(height), 1);
    const auto ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
    ink->setForeground(_xDisplay.black());
    ink->setClipRegion(QsdRegion::Full());
    letters.drawString(ink.get(), {overhang, face.ascent()}, text.data(), static_cast<int>(text.size()),
                       QsdPositionLeft);
    QsdBitmap bits(&_xDisplay, kept, static_cast<std::uint32_t>(height), 1);
    if (!letters.read({0, 0, kept, static_cast<std::uint32_t>(height)}, bits.pixels())) {
        return;
    }
    const double above = form.hanging ? 0 : face.ascent();
    QsdTransformer placed(1, 0, 0, 1, -overhang - static_cast<double>(beforeAnchor(form.position, width)), -above);
    placed.compose(placing);
    QsdPoint corner;
    placed.transform(corner);
    drawWholeBitmap(palette, corner, bits, placed, clip, !form.opaque);
}

void QsdXPort::drawText(const QsdPalette& palette, const QsdTransformer& placing, const QsdRect* clip,
                        std::string_view text, const TextForm& form, const ShapeDrawing& draw) const
{
    if (isBad() || text.empty() || drawTextUpright(palette, placing, clip, text, form)) {
        return;
    }
    if (const std::shared_ptr<const QsdXFace> face = _xDisplay.xFonts().faceOf(*palette.font())) {
        drawTextAsPicture(palette, *face, placing, clip, text, form);
        return;
    }
    if (form.opaque) {
        // Ink sets the bits of the box and of the letters.
        const auto box = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
        box->setForeground(palette.background());
        stroke(*box, {}, draw);
    }
    stroke(palette, {}, [&](const QsdBitmap& mask, const QsdPalette* ink) {
        const auto letters = QsdHandle<QsdPalette>::Adopt(new QsdPalette(ink));
        letters->setBackground(_xDisplay.white());
        draw(mask, letters.get());
    });
}

void QsdXPort::drawTextAt(const QsdPalette& palette, const QsdPoint& at, const char* text, int length,
                          const TextForm& form) const
{
    drawText(palette, QsdTransformer(1, 0, 0, 1, at.x, at.y), nullptr, viewOf(text, length), form,
             [&](const QsdBitmap& mask, const QsdPalette* ink) {
                 form.opaque ? mask.drawIString(ink, at, text, length, form.position)
                             : mask.drawString(ink, at, text, length, form.position);
             });
}

void QsdXPort::drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                          QsdPosition position) const
{
    drawTextAt(*palette, at, text, length, {position, false, false});
}

void QsdXPort::drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                           QsdPosition position) const
{
    drawTextAt(*palette, at, text, length, {position, true, false});
}

void QsdXPort::drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                                     const QsdRegion* clip) const
{
    const bool limited = clip != nullptr && !clip->isFull();
    const QsdRect limit = limited ? clip->boundingRect() : QsdRect{};
    drawText(
        *palette, t, limited ? &limit : nullptr, viewOf(text, length), {QsdPositionLeft, false, true},
        [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawTransformedString(ink, text, length, t, clip); });
}

void QsdXPort::drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                         QsdPosition position) const
{
    QsdXReduction(*this).drawWChar(palette, at, text, length, position);
}

void QsdXPort::drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                          QsdPosition position) const
{
    QsdXReduction(*this).drawIWChar(palette, at, text, length, position);
}

void QsdXPort::drawString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                          QsdPosition position) const
{
    QsdXReduction(*this).drawString(palette, at, text, length, position);
}

void QsdXPort::drawIString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                           QsdPosition position) const
{
    QsdXReduction(*this).drawIString(palette, at, text, length, position);
}

void QsdXPort::drawTransformedString(const QsdPalette* palette, const QsdBidiString* text, int length,
                                     const QsdTransformer& t, const QsdRegion* clip) const
{
    QsdXReduction(*this).drawTransformedString(palette, text, length, t, clip);
}
