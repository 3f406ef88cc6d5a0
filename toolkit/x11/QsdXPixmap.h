// Off-screen drawables in the X server.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/x11/QsdXPort.h"

/// A pixmap: pixels that the server holds, without a place on the screen.
class QSD_API QsdXPixmap : public QsdXPort {
public:
    /// A pixmap of pixels of value 0, `width` and `height` from 1 to 32,767; `depth` is 1, or anything else for the
    /// display's screen depth. One that cannot be made is bad, after a warning.
    QsdXPixmap(QsdXDisplay* display, std::uint32_t width, std::uint32_t height, std::uint16_t depth)
        : QsdXPort(display, width, height, depth)
    {
    }
};
