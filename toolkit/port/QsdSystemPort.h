// Drawables whose pixels can be read back.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdPort.h"

/// A window, an off-screen pixmap, or a bitmap.
class QSD_API QsdSystemPort : public QsdPort {
public:
    /// Bits per pixel; 1: a one-bit bitmap.
    [[nodiscard]] virtual unsigned short depth() const = 0;
    /// Whether the port is a QsdBitmap.
    [[nodiscard]] virtual bool isABitmap() const { return false; }

protected:
    using QsdPort::QsdPort;
};
