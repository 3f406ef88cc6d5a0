// Texts drawn into a bitmap.
#include "toolkit/port/QsdBitmap.h"

#include "toolkit/graphics/QsdBidiString.h"
#include "toolkit/graphics/QsdCharacters_p.h"
#include "toolkit/port/QsdBitmapPath_p.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/raster/QsdPainter.h"
#include "toolkit/raster/QsdStrokeFont.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

constexpr double LightStroke = 0.07; ///< parts of the size
constexpr double BoldStroke = 0.13;
constexpr double Slant = 0.2;          ///< how far italics lean, parts of the height
constexpr double PointedCorner = 1.5;  ///< no letter sticks out of its line of text
constexpr double UnderlineDepth = 0.4; ///< parts of the descent

double sizeOf(const QsdFont& font)
{
    return font.size() != 0 ? font.size() : font.ascent() + font.descent();
}

double strokeOf(const QsdFont& font)
{
    return sizeOf(font) * ((font.style() & QsdFontBold) != 0 ? BoldStroke : LightStroke);
}

/// The shapes of a text whose baseline starts at the origin.
class TextShapes {
public:
    TextShapes(const QsdFont& font, const char* text, int length, const QsdTransformer& matrix)
        : _font(font), _stroke(strokeOf(font)), _letters(matrix, QsdBitmapPath::PixelCorner)
    {
        QsdForEachCharacter(text, length, [this](const QsdCharacter& character) { add(character); });
    }

    [[nodiscard]] const QsdBitmapPath& letters() const { return _letters; }
    [[nodiscard]] double width() const { return _pen; }

private:
    void add(const QsdCharacter& character)
    {
        const double advance = _font.stringWidth(character.bytes, static_cast<int>(character.length));
        const bool single = character.length == 1;
        const unsigned code = single ? static_cast<unsigned char>(*character.bytes) : 0;
        for (const QsdChain& chain : advance > 0 ? QsdStrokeLetter(code) : std::vector<QsdChain>()) {
            _letters.begin();
            for (const QsdRealPoint& point : chain) {
                // The lines stand on the baseline, not halfway through it.
                const double height = point.y * sizeOf(_font) + _stroke / 2;
                const double lean = (_font.style() & QsdFontItalic) != 0 ? height * Slant : 0;
                _letters.add({_pen + point.x * advance + lean, -height});
            }
        }
        _pen += advance;
    }

    const QsdFont& _font;
    double _stroke;
    QsdBitmapPath _letters;
    double _pen = 0;
};

/// A wide text in the C library's encoding; empty when it cannot be told in it.
std::string narrowed(const std::wstring& text)
{
    std::string bytes((text.size() + 1) * MB_CUR_MAX, '\0');
    const std::size_t length = std::wcstombs(bytes.data(), text.c_str(), bytes.size());
    bytes.resize(length == static_cast<std::size_t>(-1) ? 0 : length);
    return bytes;
}

std::string narrowed(const wchar_t* text, int length)
{
    return text == nullptr || length <= 0 ? std::string()
                                          : narrowed(std::wstring(text, static_cast<std::size_t>(length)));
}

std::string narrowed(const QsdBidiString* text, int length)
{
    if (text == nullptr) {
        return {};
    }
    const std::wstring& logical = text->logicalText();
    const std::size_t count = length < 0 ? logical.size() : std::min(logical.size(), static_cast<std::size_t>(length));
    return narrowed(QsdBidiString(logical.substr(0, count), text->baseDirection()).visualText());
}

int lengthOf(const std::string& text)
{
    return static_cast<int>(text.size());
}

} // namespace

void QsdBitmap::drawText(const QsdPalette& palette, const char* text, int length, const QsdTransformer& placing,
                         const QsdRegion& visible, bool opaque) const
{
    const QsdFont& font = *palette.font();
    QsdTransformer matrix = placing;
    matrix.compose(_transformer);
    const TextShapes shapes(font, text, length, matrix);
    if (opaque) {
        const double top = -static_cast<double>(font.ascent());
        const double bottom = font.descent();
        QsdBitmapPath box(matrix, QsdBitmapPath::PixelCorner);
        box.begin();
        for (const QsdRealPoint& corner :
             QsdChain{{0, top}, {shapes.width(), top}, {shapes.width(), bottom}, {0, bottom}}) {
            box.add(corner);
        }
        QsdPainter(_pixels, visible, {valueOf(*palette.background()), {}, nullptr}).fill(box.chains(), true);
    }
    const QsdPainter painter(_pixels, visible, {valueOf(*palette.foreground()), {}, nullptr});
    const double width = strokeOf(font) * shapes.letters().scale();
    for (const QsdChain& chain : shapes.letters().chains()) {
        painter.stroke(chain, false, width, {}, PointedCorner);
    }
    if (font.isUnderlined()) {
        QsdBitmapPath line(matrix, QsdBitmapPath::PixelCorner);
        line.begin();
        line.add(QsdRealPoint{0, font.descent() * UnderlineDepth});
        line.add(QsdRealPoint{shapes.width(), font.descent() * UnderlineDepth});
        painter.stroke(line.chains().front(), false, width, {});
    }
}

void QsdBitmap::drawTextAt(const QsdPalette& palette, const QsdPoint& at, const char* text, int length,
                           QsdPosition position, bool opaque) const
{
    double x = at.x;
    if (position == QsdPositionRight) {
        x -= palette.font()->stringWidth(text, length);
    } else if (position == QsdPositionCenter) {
        x -= palette.font()->stringWidth(text, length) / 2;
    }
    drawText(palette, text, length, QsdTransformer(1, 0, 0, 1, x, at.y), visibleRegion(palette), opaque);
}

void QsdBitmap::drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                           QsdPosition position) const
{
    drawTextAt(*palette, at, text, length, position, false);
}

void QsdBitmap::drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                            QsdPosition position) const
{
    drawTextAt(*palette, at, text, length, position, true);
}

void QsdBitmap::drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                                      const QsdRegion* clip) const
{
    QsdRegion visible = visibleRegion(*palette);
    if (clip != nullptr && !clip->isFull()) {
        visible.intersect(mapped(QsdRegion(clip->boundingRect())));
    }
    QsdTransformer placing(1, 0, 0, 1, 0, palette->font()->ascent());
    placing.compose(t);
    drawText(*palette, text, length, placing, visible, false);
}

void QsdBitmap::drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                          QsdPosition position) const
{
    const std::string bytes = narrowed(text, length);
    drawString(palette, at, bytes.c_str(), lengthOf(bytes), position);
}

void QsdBitmap::drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                           QsdPosition position) const
{
    const std::string bytes = narrowed(text, length);
    drawIString(palette, at, bytes.c_str(), lengthOf(bytes), position);
}

void QsdBitmap::drawString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                           QsdPosition position) const
{
    const std::string bytes = narrowed(text, length);
    drawString(palette, at, bytes.c_str(), lengthOf(bytes), position);
}

void QsdBitmap::drawIString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                            QsdPosition position) const
{
    const std::string bytes = narrowed(text, length);
    drawIString(palette, at, bytes.c_str(), lengthOf(bytes), position);
}

void QsdBitmap::drawTransformedString(const QsdPalette* palette, const QsdBidiString* text, int length,
                                      const QsdTransformer& t, const QsdRegion* clip) const
{
    const std::string bytes = narrowed(text, length);
    drawTransformedString(palette, bytes.c_str(), lengthOf(bytes), t, clip);
}
