// The palette that paints in another palette's background colour.
#pragma once

#include "toolkit/port/QsdDisplay.h"

/// A shared palette, held for as long as the object lives, whose foreground and background are both the background of
/// the given one.
class QsdPSBackground {
public:
    explicit QsdPSBackground(const QsdPalette* palette)
        : _palette(palette->display()->getPalette(palette->background(), palette->background(), nullptr, nullptr,
                                                  nullptr, nullptr, 0, 0, 0, 0, 65535, 0))
    {
    }
    QsdPSBackground(const QsdPSBackground&) = delete;
    QsdPSBackground& operator=(const QsdPSBackground&) = delete;
    ~QsdPSBackground() { _palette->destroy(); }

    [[nodiscard]] const QsdPalette* get() const { return _palette; }

private:
    QsdPalette* _palette;
};
