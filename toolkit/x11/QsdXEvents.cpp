// Waiting for what happens to windows.
#include "toolkit/x11/QsdXEvent.h"

#include "toolkit/x11/QsdXConnection_p.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <poll.h>

namespace {

using Clock = std::chrono::steady_clock;

std::uint16_t modifiersOf(unsigned state)
{
    return static_cast<std::uint16_t>(((state & ShiftMask) != 0 ? QsdXShift : 0) |
                                      ((state & ControlMask) != 0 ? QsdXControl : 0) |
                                      ((state & Mod1Mask) != 0 ? QsdXAlt : 0));
}

template <class XPart>
void setPlace(QsdXEvent& event, QsdXEvent::Kind kind, const XPart& part)
{
    event.kind = kind;
    event.at = {part.x, part.y};
    event.modifiers = modifiersOf(part.state);
}

void setKey(QsdXEvent& event, XKeyEvent& key)
{
    setPlace(event, QsdXEvent::KeyPressed, key);
    char text[64];
    KeySym symbol = NoSymbol;
    const int length = XLookupString(&key, text, sizeof text, &symbol, nullptr);
    event.text.assign(text, static_cast<std::size_t>(std::max(length, 0)));
    const char* const name = symbol == NoSymbol ? nullptr : XKeysymToString(symbol);
    event.key = name == nullptr ? "" : name;
}

/// Waits for something to read from the connection; false when the time is over, or something interrupts.
bool waitFor(Display* display, int milliseconds)
{
    pollfd connection{ConnectionNumber(display), POLLIN, 0};
    return poll(&connection, 1, milliseconds) > 0;
}

} // namespace

int QsdXDisplay::descriptor() const
{
    return isLost() ? -1 : ConnectionNumber(_connection->display());
}

void QsdXDisplay::showWindows() const
{
    std::for_each(_windows.begin(), _windows.end(), [](const QsdXWindow* window) { window->flushRedraw(); });
}

bool QsdXDisplay::nextEvent(QsdXEvent& event, int milliseconds)
{
    Display* const display = _connection->display();
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    for (;;) {
        event = {};
        while (!isLost() && XPending(display) > 0) {
            XEvent xEvent;
            XNextEvent(display, &xEvent);
            if (translate(xEvent, event)) {
                showWindows();
                _connection->report();
                return true;
            }
        }
        showWindows();
        _connection->report();
        if (isLost()) {
            return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        const int wait = milliseconds < 0 ? -1 : static_cast<int>(std::max<long>(left, 0));
        if (!waitFor(display, wait)) {
            return false;
        }
    }
}

// What windows do for themselves is done here; false when nothing is left to be told.
bool QsdXDisplay::translate(XEvent& xEvent, QsdXEvent& event)
{
    if (xEvent.type == MappingNotify) {
        XRefreshKeyboardMapping(&xEvent.xmapping);
        return false;
    }
    const auto found = std::find_if(_windows.begin(), _windows.end(), [&](const QsdXWindow* window) {
        return window->xWindow() != 0 && window->xWindow() == xEvent.xany.window;
    });
    if (found == _windows.end()) {
        return false;
    }
    QsdXWindow& window = **found;
    event.window = &window;
    switch (xEvent.type) {
    case Expose:
        window.setDamaged();
        return false;
    case ConfigureNotify: {
        // Of many sizes on the way to the last one, only that counts.
        while (XCheckTypedWindowEvent(xEvent.xany.display, window.xWindow(), ConfigureNotify, &xEvent) != False) {
        }
        const auto width = static_cast<std::uint32_t>(std::max(xEvent.xconfigure.width, 1));
        const auto height = static_cast<std::uint32_t>(std::max(xEvent.xconfigure.height, 1));
        if (width == window.width() && height == window.height()) {
            return false;
        }
        window.fitTo(width, height);
        event.kind = QsdXEvent::Resized;
        return true;
    }
    case DestroyNotify:
        window.setGone();
        event.kind = QsdXEvent::Gone;
        return true;
    case ClientMessage:
        event.kind = QsdXEvent::CloseAsked;
        return xEvent.xclient.message_type == XInternAtom(xEvent.xany.display, "WM_PROTOCOLS", False) &&
               static_cast<Atom>(xEvent.xclient.data.l[0]) ==
                   XInternAtom(xEvent.xany.display, "WM_DELETE_WINDOW", False);
    case KeyPress:
        setKey(event, xEvent.xkey);
        return true;
    case ButtonPress:
    case ButtonRelease:
        setPlace(event, xEvent.type == ButtonPress ? QsdXEvent::ButtonPressed : QsdXEvent::ButtonReleased,
                 xEvent.xbutton);
        event.button = static_cast<std::uint16_t>(xEvent.xbutton.button);
        return true;
    case MotionNotify:
        setPlace(event, QsdXEvent::Moved, xEvent.xmotion);
        return true;
    default:
        return false;
    }
}
