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

void QsdXPort::drawTextDirectly(const QsdPalette& palette, const QsdXFace& face, const Placing& placing,
                                const QsdPoint& at, std::string_view text, bool opaque) const
{
    const std::int64_t width = face.width(text);
    const auto fillBox = [&](const QsdRect& box) {
        const QsdRect seen = box.intersected(portArea());
        _graphics->fillRectangles({QsdXRectangle(seen.x, seen.y, seen.width, seen.height)});
    };
    _graphics->setClip(placing.clip);
    if (opaque) {
        _graphics->setColor(*palette.background());
        fillBox(textBox(face, at, width));
    }
    _graphics->setColor(*palette.foreground());
    face.draw(_graphics->pixmap(), _graphics->gc(), at, text, portArea().width);
    if (palette.font()->isUnderlined()) {
        fillBox(underline(face, at, width));
    }
    finish();
}

// The letters are drawn upright into a bitmap of the server, and that is drawn as a picture.
void QsdXPort::drawTextAsPicture(const QsdPalette& palette, const QsdXFace& face, std::string_view text,
                                 const QsdTransformer& t, const QsdRect* clip, bool opaque) const
{
    // Slanted letters stick out of their advances.
    const int overhang = opaque ? 0 : face.ascent() / 2;
    const std::int64_t width = face.width(text) + 2 * overhang;
    const int height = face.ascent() + face.descent();
    if (width <= 0 || height <= 0) {
        return;
    }
    // More cannot be seen at once but when it is made very small.
    const auto kept = static_cast<std::uint32_t>(std::min<std::int64_t>(width, QsdXGraphics::MostPixels));
    const QsdXPixmap letters(&_xDisplay, kept, static_cast<std::uint32_t>(height), 1);
    const auto ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
    ink->setForeground(_xDisplay.black());
    ink->setClipRegion(QsdRegion::Full());
    letters.drawText(*ink, {overhang, face.ascent()}, text.data(), static_cast<int>(text.size()), QsdPositionLeft,
                     false);
    QsdBitmap bits(&_xDisplay, kept, static_cast<std::uint32_t>(height), 1);
    if (!letters.read({0, 0, kept, static_cast<std::uint32_t>(height)}, bits.pixels())) {
        return;
    }
    QsdTransformer placed(1, 0, 0, 1, -overhang, 0);
    placed.compose(t);
    QsdPoint corner;
    placed.transform(corner);
    drawWholeBitmap(palette, corner, bits, placed, clip, !opaque);
}

void QsdXPort::drawText(const QsdPalette& palette, const QsdPoint& at, const char* text, int length,
                        QsdPosition position, bool opaque) const
{
    const std::string_view view = viewOf(text, length);
    if (isBad() || view.empty()) {
        return;
    }
    const std::shared_ptr<const QsdXFace> face = _xDisplay.xFonts().faceOf(*palette.font());
    if (face == nullptr) {
        if (opaque) {
            const auto box = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
            box->setForeground(palette.background());
            stroke(*box, {}, [&](const QsdBitmap& mask, const QsdPalette* ink) {
                mask.drawIString(ink, at, text, length, position);
            });
        }
        stroke(palette, {},
               [&](const QsdBitmap& mask, const QsdPalette* ink) { mask.drawString(ink, at, text, length, position); });
        return;
    }
    const std::int64_t width = face->width(view);
    const std::int64_t before = position == QsdPositionRight ? width : position == QsdPositionCenter ? width / 2 : 0;
    const auto x = static_cast<std::int32_t>(std::clamp<std::int64_t>(at.x - before, INT32_MIN, INT32_MAX));
    const std::optional<Placing> place = placing(palette);
    if (place) {
        // Texts may begin far to the left of what is seen of them, but lines of text are not so high.
        const std::int64_t left = std::int64_t{x} + place->shift.x;
        const std::int64_t top = std::int64_t{at.y} + place->shift.y;
        if (std::abs(left) < INT32_MAX && std::abs(top) < QsdXGraphics::MostPixels) {
            drawTextDirectly(palette, *face, *place, {static_cast<std::int32_t>(left), static_cast<std::int32_t>(top)},
                             view, opaque);
        }
        return;
    }
    drawTextAsPicture(palette, *face, view, QsdTransformer(1, 0, 0, 1, x, static_cast<double>(at.y) - face->ascent()),
                      nullptr, opaque);
}

void QsdXPort::drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                          QsdPosition position) const
{
    drawText(*palette, at, text, length, position, false);
}

void QsdXPort::drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                           QsdPosition position) const
{
    drawText(*palette, at, text, length, position, true);
}

void QsdXPort::drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                                     const QsdRegion* clip) const
{
    const std::string_view view = viewOf(text, length);
    if (isBad() || view.empty()) {
        return;
    }
    const std::shared_ptr<const QsdXFace> face = _xDisplay.xFonts().faceOf(*palette->font());
    if (face == nullptr) {
        stroke(*palette, {}, [&](const QsdBitmap& mask, const QsdPalette* ink) {
            mask.drawTransformedString(ink, text, length, t, clip);
        });
        return;
    }
    const bool limited = clip != nullptr && !clip->isFull();
    const QsdRect limit = limited ? clip->boundingRect() : QsdRect{};
    drawTextAsPicture(*palette, *face, view, t, limited ? &limit : nullptr, false);
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
