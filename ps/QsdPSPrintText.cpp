// Texts: written as QsdPSDevice does. How far they reach is what the toolkit's metrics say, which are those of the
// printer's own fonts.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSFiniteMatrix_p.h"
#include "ps/QsdPSFontTraits_p.h"
#include "ps/QsdPSPrintOperation_p.h"
#include "ps/QsdPSString.h"

#include <algorithm>
#include <cstring>

namespace {

/// Letters reach beyond their advances, italic ones most; in parts of the size.
constexpr double Overhang = 0.15;

struct TextBox {
    double left;
    double top;
    double right;
    double bottom;
};

/// The box of a text around its anchor, y downwards.
TextBox boxOf(const QsdFont& font, const char* text, int length, QsdPosition position)
{
    const double scale = QsdPSDevice::_PSFontScale / 100.0;
    const double size = std::max<double>(font.size(), font.ascent() + font.descent()) * scale;
    const int count = length >= 0 || text == nullptr ? length : static_cast<int>(std::strlen(text));
    // Each letter of an ordinary text begins at a whole unit, so it may lie off by half of one.
    const double width = text == nullptr ? 0 : font.stringWidth(text, length) * scale + std::max(count, 0) * 0.5;
    const double shift = position == QsdPositionRight ? width : position == QsdPositionCenter ? width / 2 : 0;
    return {-shift - Overhang * size, -font.ascent() * scale - Overhang * size, width - shift + Overhang * size,
            font.descent() * scale + Overhang * size};
}

} // namespace

// Japanese EUC texts are written as they are in part, others in octal.
void QsdPSPrintDevice::noteText(const char* text, int length) const
{
    if (CurrentEncoding == QsEncodingEUCJP && text != nullptr) {
        const std::size_t most = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
        _document->noteBytes({text, strnlen(text, most)});
    }
}

// Interpreters stop at texts under a matrix without an inverse, or too small for their numbers. Nobody would see them.
bool QsdPSPrintDevice::showsText(const QsdFont& font, const QsdTransformer& t) const
{
    constexpr double LeastThickness = 1e-4; // points
    const double size = QsdPSSizeOf(font) * (_PSFontScale / 100.0);
    QsdTransformer whole(size, 0, 0, size, 0, 0);
    const QsdPSPrintDocument& document = *_document;
    for (const QsdTransformer* const part : {&t, &document.inForce.transformer, &document.page}) {
        if (QsdPSIsFlat(*part)) {
            return false;
        }
        whole.compose(*part);
    }
    return QsdPSThickness(whole) > LeastThickness;
}

// Vertical texts take the same box, turned.
void QsdPSPrintDevice::reachString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                                   QsdPosition position) const
{
    noteText(text, length);
    const QsdFont& font = *palette->font();
    const TextBox box = boxOf(font, text, length, position);
    if (QsdPSIsVertical(font)) {
        const double half = box.bottom - box.top;
        reach(at.x - half, at.y + box.left - half, at.x + half, at.y + box.right + half, 0);
    } else {
        reach(at.x + box.left, at.y + box.top, at.x + box.right, at.y + box.bottom, 0);
    }
}

void QsdPSPrintDevice::drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                                  QsdPosition position) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Text);
    if (!showsText(*palette->font(), QsdTransformer())) {
        return;
    }
    reachString(palette, at, text, length, position);
    QsdPSDevice::drawString(palette, at, text, length, position);
}

void QsdPSPrintDevice::drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                                   QsdPosition position) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Text);
    if (!showsText(*palette->font(), QsdTransformer())) {
        return;
    }
    reachString(palette, at, text, length, position);
    QsdPSDevice::drawIString(palette, at, text, length, position);
}

void QsdPSPrintDevice::drawTransformedString(const QsdPalette* palette, const char* text, int length,
                                             const QsdTransformer& given, const QsdRegion* clip) const
{
    const QsdPSOperation operation(*this, palette, *_document, QsdPSUse::Text);
    const QsdTransformer t = QsdPSFiniteMatrix(given);
    if (!showsText(*palette->font(), t)) {
        return;
    }
    if (text != nullptr && length != 0 && *text != '\0') {
        noteText(text, length);
        const QsdFont& font = *palette->font();
        const TextBox box = boxOf(font, text, length, QsdPositionNone);
        const double size = box.bottom - box.top;
        // The top of the text is at the origin of the transformer.
        const QsdPSExtent extent = QsdPSIsVertical(font)
                                       ? QsdPSExtentOf(t, -size, box.left - size, size, box.right + size)
                                       : QsdPSExtentOf(t, box.left, -Overhang * size, box.right, size);
        reach(extent.left, extent.bottom, extent.right, extent.top, 0);
    }
    QsdPSDevice::drawTransformedString(palette, text, length, t, clip);
}
