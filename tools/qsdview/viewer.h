// The window of the viewer.
#pragma once

#include "command/document_page.h"
#include "qsdview/command.h"
#include "qsdview/page_buffer.h"
#include "qsdview/view.h"
#include "qsdview/window_geometry.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXEvent.h"

#include <memory>
#include <string>
#include <vector>

namespace qsdview {

/// Shows pages in a window, one at a time, until the user has seen enough.
class Viewer {
public:
    using Pages = std::vector<std::unique_ptr<qsdps::DocumentPage>>;

    /// A viewer on a display of at least one page; `options` tell how they are read and printed, and must outlive it.
    Viewer(QsdXDisplay& display, Pages pages, const qsdps::Options& options, const WindowGeometry& geometry);

    /// Runs until the user quits (true) or the window or the server is gone (false).
    [[nodiscard]] bool run();

private:
    enum class Outcome { GoOn, Quit, Lost };

    [[nodiscard]] Outcome handle(const QsdXEvent& event);
    [[nodiscard]] Outcome obey(Command command);
    void pressed(const QsdXEvent& event);
    void goTo(std::size_t page);
    /// Prints all pages, unless the document is there already and may not be replaced; then it asks.
    void print(bool mayReplace);
    void paint();
    void showTitle();

    QsdXDisplay& _display;
    Pages _pages;
    const qsdps::Options& _options;
    WindowGeometry::Size _size; ///< of the window at first
    QsdXWindow _window;
    QsdHandle<QsdPalette> _palette;
    PageBuffer _buffer;
    View _view;
    std::size_t _page = 0;
    std::vector<bool> _reported; ///< for each page, whether it was told what could not be drawn
    std::string _note;           ///< what the title says besides
    QsdPoint _dragged;           ///< where the pointer was while the page is dragged
    bool _isDragging = false;
    bool _isAsking = false; ///< whether the next key may be the answer to replace the document
    bool _isStale = true;   ///< whether the window shows something else than it should
};

} // namespace qsdview
