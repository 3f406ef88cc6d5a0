// Texts.
#include "ps/print/QsdPSShapeReach_p.h"

#include "ps/QsdPSDevice.h"
#include "ps/fonts/QsdPSFontTraits_p.h"
#include "ps/print/QsdPSFiniteMatrix_p.h"

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

// Interpreters stop at texts under a matrix without an inverse, or too small for their numbers. Nobody would see them.
bool QsdPSShapeReach::showsText(const QsdTransformer& t) const
{
    constexpr double LeastThickness = 1e-4; // points
    const double size = QsdPSSizeOf(*_palette.font()) * (QsdPSDevice::_PSFontScale / 100.0);
    if (QsdPSIsFlat(t) || QsdPSIsFlat(_page.toPaper())) {
        return false;
    }
    QsdTransformer whole(size, 0, 0, size, 0, 0);
    whole.compose(t).compose(_page.toPaper());
    return QsdPSThickness(whole) > LeastThickness;
}

// Vertical texts take the same box, turned.
void QsdPSShapeReach::text(const QsdPoint& at, const char* text, int length, QsdPosition position)
{
    _shows = showsText(QsdTransformer());
    if (!_shows) {
        return;
    }
    const QsdFont& font = *_palette.font();
    const TextBox box = boxOf(font, text, length, position);
    if (QsdPSIsVertical(font)) {
        const double half = box.bottom - box.top;
        add(at.x - half, at.y + box.left - half, at.x + half, at.y + box.right + half);
    } else {
        add(at.x + box.left, at.y + box.top, at.x + box.right, at.y + box.bottom);
    }
}

// The top of the text is at the origin of the transformer.
void QsdPSShapeReach::text(const QsdTransformer& t, const char* text, int length)
{
    _shows = showsText(t);
    if (!_shows) {
        return;
    }
    const QsdFont& font = *_palette.font();
    const TextBox box = boxOf(font, text, length, QsdPositionNone);
    const double size = box.bottom - box.top;
    const QsdPSExtent extent = QsdPSIsVertical(font) ? QsdPSExtentOf(t, -size, box.left - size, size, box.right + size)
                                                     : QsdPSExtentOf(t, box.left, -Overhang * size, box.right, size);
    add(extent.left, extent.bottom, extent.right, extent.top);
}
