// Windows on the X screen.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/x11/QsdXPort.h"

/// A top-level window of the screen depth. What is drawn goes to a copy in the server first and onto the screen when
/// flushRedraw(), or the display's nextEvent() or sync(), is called. So a window can be read back whole, wherever it
/// lies and whatever lies over it, and shows itself again without being drawn anew.
class QSD_API QsdXWindow : public QsdXPort {
public:
    /// A white window of `width` times `height` pixels (1 to 32,767 each), not yet shown. One that cannot be made is
    /// bad, after a warning.
    QsdXWindow(QsdXDisplay* display, std::uint32_t width, std::uint32_t height, const char* title);
    ~QsdXWindow() override;

    /// Puts the window on the screen.
    void show();
    /// Takes the window off the screen.
    void hide();
    /// Asks for another place; the window manager has the last word, as in resize.
    void move(const QsdPoint& to);
    /// Asks for another size, in pixels, 1 to 32,767 each. The size that it gets is told by an event.
    void resize(std::uint32_t width, std::uint32_t height);
    /// The title, in UTF-8.
    void setTitle(const char* title);

    [[nodiscard]] bool isBad() const override;
    void flushRedraw() const override;
    /// X's number for the window; 0 once it is gone.
    [[nodiscard]] unsigned long xWindow() const { return _window; }

private:
    friend class QsdXDisplay;

    void setDamaged() const override { _damaged = true; }
    void setGone() { _window = 0; }
    void fitTo(std::uint32_t width, std::uint32_t height);

    unsigned long _window = 0;
    mutable bool _damaged = true; ///< whether the screen shows less than was drawn
};
