#include "call.h"

#include "tests/render/page_pixels.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <sstream>

namespace {

/// The transformers under which screens draw what they are compared in: widths of lines have one scale, and the pixels
/// of pictures are the page's. Clips are made of whole pixels.
QsdTransformer randomTransformer(Kind kind, bool clipped, Dice& dice)
{
    QsdTransformer t;
    if (clipped && (kind == Kind::Line || kind == Kind::Area || kind == Kind::Mixed)) {
        t.scale(2, 2).translate(-60, -40);
    } else if (kind != Kind::Picture) {
        const double along = dice.between(5, 15) / 10.0;
        t.scale(along, kind == Kind::Area ? dice.between(-15, 15) / 10.0 + 0.05 : along);
        t.rotate(dice.between(0, 359), {static_cast<int>(PageWidth / 2), static_cast<int>(PageHeight / 2)});
    }
    const int right = dice.between(-9, 9);
    return t.translate(right, dice.between(-9, 9));
}

} // namespace

Call::Call(const Operation& operation, unsigned seed) : _operation(&operation), _seed(seed)
{
    Dice dice(seed);
    _foreground = dice.color();
    do {
        _background = dice.color();
    } while (_background == _foreground);
    _lineWidth = dice.size(1, 8);
    _fillRule = dice.oneIn(2) ? QsdEvenOddRule : QsdWindingRule;
    const bool clipped = operation.kind != Kind::Text && dice.oneIn(3);
    if (clipped) {
        _clip = dice.region();
    }
    if (operation.kind != Kind::Pattern && dice.oneIn(3)) {
        _transformer = randomTransformer(operation.kind, clipped, dice);
    } else if (dice.oneIn(4)) {
        _lineWidth = 0;
    }
}

void Call::setUp(QsdPalette& palette) const
{
    palette.setForeground(colorOf(_foreground).get());
    palette.setBackground(colorOf(_background).get());
    palette.setFont(nullptr);
    palette.setLineStyle(nullptr, _lineWidth);
    palette.setPattern(nullptr);
    palette.setColorPattern(nullptr);
    palette.setFillStyle(QsdFillPattern);
    palette.setFillRule(_fillRule);
    palette.setArcMode(QsdArcPie);
    palette.setClipRegion(_clip);
}

void Call::draw(QsdPort& port, QsdPalette& palette) const
{
    setUp(palette);
    port.setTransformer(_transformer);
    Dice dice(_seed + 1);
    _operation->draw({port, *port.display(), palette, dice});
}

std::string Call::told() const
{
    std::ostringstream text;
    text << _operation->name << ", seed " << _seed << ", width " << _lineWidth
         << (_fillRule == QsdEvenOddRule ? ", even-odd" : ", winding");
    if (!_clip.isFull()) {
        text << ", clip";
        for (std::uint16_t i = 0; i < _clip.count(); ++i) {
            const QsdRect& r = _clip.rects()[i];
            text << " [" << r.x << " " << r.y << " " << r.width << " " << r.height << "]";
        }
    }
    if (!_transformer.isIdentity()) {
        double x11, x12, x21, x22, x0, y0;
        _transformer.getValues(x11, x12, x21, x22, x0, y0);
        text << ", map [" << x11 << " " << x12 << " " << x21 << " " << x22 << " " << x0 << " " << y0 << "]";
    }
    return text.str();
}

Scene randomScene(unsigned seed, std::size_t count, const std::function<bool(const Operation&)>& wanted)
{
    std::vector<const Operation*> among;
    for (const Operation& operation : operations()) {
        if (wanted(operation)) {
            among.push_back(&operation);
        }
    }
    Dice dice(seed);
    Scene scene;
    while (scene.size() < count) {
        const auto which = static_cast<std::size_t>(dice.between(0, static_cast<int>(among.size()) - 1));
        scene.emplace_back(*among[which], static_cast<unsigned>(dice.between(0, 1000000)));
    }
    return scene;
}

std::string told(const Scene& scene)
{
    std::string text;
    for (const Call& call : scene) {
        text += call.told() + "\n";
    }
    return text;
}

Picture onScreen(QsdSystemPort& port, const Scene& scene)
{
    port.setTransformer({});
    port.clear(paletteOf(*port.display()).get());
    for (const Call& call : scene) {
        call.draw(port, *paletteOf(*port.display()));
    }
    return Picture(port);
}

Picture onBitmap(const Scene& scene)
{
    QsdMemoryDisplay display;
    QsdBitmap bitmap(&display, PageWidth, PageHeight, 0);
    return onScreen(bitmap, scene);
}
