// Pages drawn through the port into the X server.
#pragma once

#include "command/document_page.h"
#include "toolkit/x11/QsdXPixmap.h"
#include "toolkit/x11/QsdXWindow.h"

#include <memory>

namespace qsdview {

/// Holds the part of a page that a window shows, and some more around it, so that scrolling need not draw.
class PageBuffer {
public:
    /// Buffers on a display; `options` tell how drawings are read and printed. Both must outlive the buffer.
    PageBuffer(QsdXDisplay& display, const qsdps::Options& options);

    /// Copies the rectangle `shown` of a page, which has `zoom` pixels in a CSS pixel and is `whole` pixels large in
    /// all, to the top left corner `at` of what it covers in the window. Draws the page first where that part of it is
    /// not at hand. An error when the page cannot be drawn again.
    [[nodiscard]] qsdps::Status show(qsdps::DocumentPage& page, double zoom, const QsdRect& whole, const QsdRect& shown,
                                     const QsdXWindow& window, const QsdPoint& at);
    /// What could not be drawn as the page asks, of the page drawn last.
    [[nodiscard]] const qsdps::Report& report() const { return _report; }

private:
    [[nodiscard]] qsdps::Status draw(qsdps::DocumentPage& page);

    QsdXDisplay& _display;
    const qsdps::Options& _options;
    qsdps::PaintTools _tools;
    qsdps::Report _report;
    std::unique_ptr<QsdXPixmap> _pixmap; ///< null until something is drawn
    const qsdps::DocumentPage* _page = nullptr;
    double _zoom = 0;
    QsdRect _area; ///< what the pixmap holds of the page
};

} // namespace qsdview
