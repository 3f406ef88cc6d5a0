#include "toolkit/x11/QsdXWindow.h"

#include "toolkit/base/QsdMessages.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXGraphics_p.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <cstring>

QsdXWindow::QsdXWindow(QsdXDisplay* display, std::uint32_t width, std::uint32_t height, const char* title)
    : QsdXPort(display, width, height, 0)
{
    display->addWindow(this);
    if (!graphics().isUsable()) {
        return;
    }
    QsdXConnection& connection = *display->connection();
    Display* const x = connection.display();
    QsdXTrial trial(connection);
    // Without a background of its own, the window does not flicker when it is shown again.
    _window = XCreateSimpleWindow(x, connection.root(), 0, 0, width, height, 0, 0, 0);
    XSetWindowBackgroundPixmap(x, _window, None);
    XSelectInput(x, _window,
                 ExposureMask | StructureNotifyMask | KeyPressMask | ButtonPressMask | ButtonReleaseMask |
                     ButtonMotionMask);
    Atom protocol = XInternAtom(x, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(x, _window, &protocol, 1);
    setTitle(title);
    graphics().setColor(*display->white());
    graphics().fillRectangles({{0, 0, static_cast<unsigned short>(width), static_cast<unsigned short>(height)}});
    if (!trial.succeeded()) {
        QsdWarning("Cannot make an X window: %s", trial.error().c_str());
        _window = 0;
    }
}

QsdXWindow::~QsdXWindow()
{
    xDisplay().removeWindow(this);
    if (_window != 0) {
        XDestroyWindow(graphics().display(), _window);
    }
}

void QsdXWindow::show()
{
    if (!isBad()) {
        XMapRaised(graphics().display(), _window);
    }
}

void QsdXWindow::hide()
{
    if (!isBad()) {
        XWithdrawWindow(graphics().display(), _window, xDisplay().connection()->screen());
    }
}

void QsdXWindow::move(const QsdPoint& to)
{
    constexpr std::int32_t Farthest = 32767;
    if (!isBad()) {
        XMoveWindow(graphics().display(), _window, std::clamp(to.x, -Farthest, Farthest),
                    std::clamp(to.y, -Farthest, Farthest));
    }
}

void QsdXWindow::resize(std::uint32_t width, std::uint32_t height)
{
    if (!isBad()) {
        XResizeWindow(graphics().display(), _window, std::clamp(width, 1U, QsdXGraphics::MostPixels),
                      std::clamp(height, 1U, QsdXGraphics::MostPixels));
    }
}

void QsdXWindow::setTitle(const char* title)
{
    if (_window == 0 || title == nullptr) {
        return;
    }
    Display* const x = graphics().display();
    const auto* const bytes = reinterpret_cast<const unsigned char*>(title);
    const int length = static_cast<int>(std::min<std::size_t>(std::strlen(title), 4096));
    XChangeProperty(x, _window, XInternAtom(x, "_NET_WM_NAME", False), XInternAtom(x, "UTF8_STRING", False), 8,
                    PropModeReplace, bytes, length);
    // For window managers of old.
    Xutf8SetWMProperties(x, _window, title, title, nullptr, 0, nullptr, nullptr, nullptr);
}

bool QsdXWindow::isBad() const
{
    return _window == 0 || QsdXPort::isBad();
}

void QsdXWindow::flushRedraw() const
{
    if (_damaged && !isBad()) {
        _damaged = false;
        const auto shownWidth = static_cast<std::uint32_t>(width());
        const auto shownHeight = static_cast<std::uint32_t>(height());
        graphics().setClip(QsdRegion({0, 0, shownWidth, shownHeight}));
        XCopyArea(graphics().display(), graphics().pixmap(), _window, graphics().gc(), 0, 0, shownWidth, shownHeight, 0,
                  0);
    }
    QsdXPort::flushRedraw();
}

void QsdXWindow::fitTo(std::uint32_t width, std::uint32_t height)
{
    setSize(std::min(width, QsdXGraphics::MostPixels), std::min(height, QsdXGraphics::MostPixels));
    _damaged = true;
}
