// Drawing calls that can be made again and again, on any port.
#pragma once

#include "operation.h"
#include "picture.h"

#include <functional>
#include <string>
#include <vector>

/// One call of an operation; its seed decides everything else.
class Call {
public:
    Call(const Operation& operation, unsigned seed);

    [[nodiscard]] const Operation& operation() const { return *_operation; }
    /// What is drawn, in words: enough to make the call again.
    [[nodiscard]] std::string told() const;

    /// Draws on `port`, which is left with a transformer of the call's own. Every attribute of `palette`, one of the
    /// port's display, is set anew.
    void draw(QsdPort& port, QsdPalette& palette) const;

private:
    void setUp(QsdPalette& palette) const;

    const Operation* _operation;
    unsigned _seed;
    QsdRGB _foreground;
    QsdRGB _background;
    std::uint16_t _lineWidth;
    QsdFillRule _fillRule;
    QsdRegion _clip = QsdRegion::Full();
    QsdTransformer _transformer;
};

/// What comes on one page.
using Scene = std::vector<Call>;

/// So many calls of the operations that `wanted` takes.
[[nodiscard]] Scene randomScene(unsigned seed, std::size_t count, const std::function<bool(const Operation&)>& wanted);
/// A line for each call.
[[nodiscard]] std::string told(const Scene& scene);

/// A palette of one's own.
[[nodiscard]] inline QsdHandle<QsdPalette> paletteOf(const QsdDisplay& display)
{
    return QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
}

/// Draws a scene on a cleared bitmap in memory.
[[nodiscard]] Picture onBitmap(const Scene& scene);
/// Clears a drawable and draws a scene on it.
[[nodiscard]] Picture onScreen(QsdSystemPort& port, const Scene& scene);
