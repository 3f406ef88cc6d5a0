// What happens to windows.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdPoint.h"

#include <cstdint>
#include <string>

class QsdXWindow;

/// Bits of the keys that are held down during an event.
enum QsdXModifiers : std::uint16_t { QsdXShift = 1, QsdXControl = 2, QsdXAlt = 4 };

/// One event of a window, or of the connection as a whole.
struct QSD_API QsdXEvent {
    /// What happened.
    enum Kind {
        Resized,        ///< the window has another size, and what is new of it is white: draw it again
        KeyPressed,     ///< `key` and `text` tell which
        ButtonPressed,  ///< `button` at `at`; 4 and 5 are the wheel up and down
        ButtonReleased, ///< the same
        Moved,          ///< the pointer, with a button held, to `at`
        CloseAsked,     ///< the user wants the window closed
        Gone,           ///< somebody destroyed the window; it is bad from now on
        ConnectionLost  ///< there is no server any more; `window` is null
    };

    Kind kind = ConnectionLost;   ///< what happened
    QsdXWindow* window = nullptr; ///< not owned
    QsdPoint at;                  ///< from the window's top left corner
    std::uint16_t button = 0;     ///< from 1
    std::uint16_t modifiers = 0;  ///< bits of QsdXModifiers
    std::string key;              ///< X's name of a key ("Escape", "Next", "a"); empty for keys without one
    std::string text;             ///< what the key types, in Latin-1; often nothing
};
