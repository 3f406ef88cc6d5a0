#include "toolkit/x11/QsdXDisplay.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/graphics/QsdPixelCopy_p.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/x11/QsdXColors_p.h"
#include "toolkit/x11/QsdXConnection_p.h"
#include "toolkit/x11/QsdXFont.h"
#include "toolkit/x11/QsdXFontCache_p.h"
#include "toolkit/x11/QsdXPort.h"
#include "toolkit/x11/QsdXResources_p.h"
#include "toolkit/x11/QsdXWindow.h"

#include <utility>

std::unique_ptr<QsdXDisplay> QsdXDisplay::Open(const char* name, const char* application)
{
    std::shared_ptr<QsdXConnection> connection = QsdXConnection::Open(name);
    if (connection == nullptr) {
        QsdFatalError("Cannot open the X display %s", XDisplayName(name));
        return nullptr;
    }
    return std::unique_ptr<QsdXDisplay>(new QsdXDisplay(std::move(connection), application));
}

QsdXDisplay::QsdXDisplay(std::shared_ptr<QsdXConnection> connection, const char* application)
    : _connection(std::move(connection)), _colors(std::make_unique<QsdXColors>(_connection)),
      _fonts(std::make_unique<QsdXFontCache>(_connection)),
      _bitmaps(std::make_unique<QsdMemoryDisplay>(_colors->screenDepth()))
{
    for (const auto& [name, value] : QsdXResources(*_connection, application)) {
        setResource(name.c_str(), value.c_str());
    }
}

QsdXDisplay::~QsdXDisplay() = default;

bool QsdXDisplay::isLost() const
{
    return _connection->isLost();
}

QsdRect QsdXDisplay::screenArea() const
{
    Display* const display = _connection->display();
    return {0, 0, static_cast<std::uint32_t>(DisplayWidth(display, _connection->screen())),
            static_cast<std::uint32_t>(DisplayHeight(display, _connection->screen()))};
}

void QsdXDisplay::sync() const
{
    showWindows();
    if (!isLost()) {
        XSync(_connection->display(), False);
    }
    _connection->report();
}

void QsdXDisplay::colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                             unsigned short* blues) const
{
    constexpr unsigned short Widening = 257; // so that 255 becomes 65535
    for (std::size_t i = 0; i < count; ++i) {
        const QsdRGB color = _colors->table().color(i);
        reds[i] = static_cast<unsigned short>(color.red * Widening);
        greens[i] = static_cast<unsigned short>(color.green * Widening);
        blues[i] = static_cast<unsigned short>(color.blue * Widening);
    }
}

unsigned short QsdXDisplay::screenDepth() const
{
    return _colors->screenDepth();
}

unsigned char* QsdXDisplay::getBitmapData(const QsdSystemPort* port, unsigned long& size, const QsdRect& rect) const
{
    size = 0;
    if (port == nullptr || rect.isEmpty()) {
        return nullptr;
    }
    if (port->isABitmap()) {
        return _bitmaps->getBitmapData(port, size, rect);
    }
    const auto* const drawable = dynamic_cast<const QsdXPort*>(port);
    if (drawable == nullptr || drawable->display() != this) {
        return nullptr;
    }
    _colors->refresh();
    QsdPixels pixels(rect.width, rect.height, drawable->depth());
    if (!drawable->read(rect, pixels)) {
        return nullptr;
    }
    return QsdCopyOfPixels(pixels.bytes(), size);
}

QsdFont* QsdXDisplay::createFont(const char* family, std::uint16_t style, std::uint16_t size) const
{
    const bool byName = style == QsdFontByXName && family != nullptr;
    const std::shared_ptr<const QsdXFace> face =
        byName ? _fonts->findByName(family) : _fonts->find(family, style, size);
    if (face == nullptr) {
        return QsdDisplay::createFont(family, style, size);
    }
    return new QsdXFont(family, style, byName ? std::uint16_t{0} : size, face);
}

_XDisplay* QsdXDisplay::xDisplay() const
{
    return _connection->display();
}

void QsdXDisplay::addWindow(QsdXWindow* window)
{
    _windows.push_back(window);
}

void QsdXDisplay::removeWindow(QsdXWindow* window)
{
    std::erase(_windows, window);
}
