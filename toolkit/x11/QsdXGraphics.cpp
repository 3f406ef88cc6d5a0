#include "toolkit/x11/QsdXGraphics_p.h"

#include "toolkit/base/QsdMessages.h"
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/x11/QsdXCoverage_p.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXImage_p.h"

#include <algorithm>

namespace {

constexpr std::size_t MostTiles = 16;

/// Sends an image in pieces.
void putImage(const QsdXConnection& connection, const QsdXColors& colors, Drawable drawable, GC gc,
              const QsdPixels& pixels, const QsdPoint& at)
{
    const std::uint32_t rowsAtOnce = QsdXRowsAtOnce(pixels.width());
    for (std::uint32_t y = 0; y < pixels.height(); y += rowsAtOnce) {
        const std::uint32_t rows = std::min(rowsAtOnce, pixels.height() - y);
        if (const QsdXImageHandle image = QsdXMakeImage(connection, colors, pixels, y, rows)) {
            XPutImage(connection.display(), drawable, gc, image.get(), 0, 0, at.x, at.y + static_cast<int>(y),
                      pixels.width(), rows);
        }
    }
}

} // namespace

QsdXGraphics::QsdXGraphics(QsdXDisplay& display, std::uint32_t width, std::uint32_t height, std::uint16_t depth)
    : _display(display), _connection(display.connection()), _depth(depth)
{
    if (_connection->isLost()) {
        return;
    }
    if (width == 0 || height == 0 || width > MostPixels || height > MostPixels) {
        QsdWarning("An X drawable cannot have %u times %u pixels", width, height);
        return;
    }
    QsdXTrial trial(*_connection);
    _pixmap = XCreatePixmap(_connection->display(), _connection->root(), width, height, depth);
    XGCValues values{};
    values.graphics_exposures = False;
    _gc = XCreateGC(_connection->display(), _pixmap, GCGraphicsExposures, &values);
    setPlain(_display.xColors().pixel(0, depth), 0);
    XFillRectangle(_connection->display(), _pixmap, _gc, 0, 0, width, height);
    if (!trial.succeeded()) {
        QsdWarning("Cannot make an X drawable of %u times %u pixels: %s", width, height, trial.error().c_str());
        XFreeGC(_connection->display(), _gc);
        XFreePixmap(_connection->display(), _pixmap);
        _pixmap = 0;
        _gc = nullptr;
    }
}

QsdXGraphics::~QsdXGraphics()
{
    if (_pixmap != 0) {
        for (const Tile& tile : _tiles) {
            XFreePixmap(_connection->display(), tile.pixmap);
        }
        XFreeGC(_connection->display(), _gc);
        XFreePixmap(_connection->display(), _pixmap);
    }
}

void QsdXGraphics::setClip(const QsdRegion& region)
{
    if (_clip && *_clip == region) {
        return;
    }
    _clip = region;
    std::vector<XRectangle> rectangles;
    for (std::uint16_t i = 0; i < region.count(); ++i) {
        const QsdRect& rect = region.rects()[i];
        rectangles.push_back(QsdXRectangle(rect.x, rect.y, rect.width, rect.height));
    }
    setClip(rectangles);
}

void QsdXGraphics::setClip(const std::vector<XRectangle>& rectangles)
{
    // Xlib does not change what it is given, but does not promise so.
    XSetClipRectangles(display(), _gc, 0, 0, const_cast<XRectangle*>(rectangles.data()),
                       static_cast<int>(rectangles.size()), Unsorted);
}

void QsdXGraphics::setPlain(unsigned long foreground, unsigned long background)
{
    XSetFillStyle(display(), _gc, FillSolid);
    XSetForeground(display(), _gc, foreground);
    XSetBackground(display(), _gc, background);
}

void QsdXGraphics::setColor(const QsdColor& color)
{
    const QsdXColors& colors = _display.xColors();
    setPlain(colors.pixel(colors.valueOf(color, _depth), _depth), 0);
}

void QsdXGraphics::setColors(const QsdPalette& palette)
{
    const QsdXColors& colors = _display.xColors();
    setPlain(colors.pixel(colors.valueOf(*palette.foreground(), _depth), _depth),
             colors.pixel(colors.valueOf(*palette.background(), _depth), _depth));
}

bool QsdXGraphics::setFill(const QsdPalette& palette)
{
    setColors(palette);
    if (palette.fillStyle() == QsdFillColorPattern) {
        if (palette.colorPattern() == nullptr) {
            return false;
        }
        XSetTile(display(), _gc, tileFor(palette, false));
        XSetFillStyle(display(), _gc, FillTiled);
    } else if (palette.pattern() != _display.solidPattern()) {
        XSetStipple(display(), _gc, tileFor(palette, true));
        XSetFillStyle(display(), _gc, palette.fillStyle() == QsdFillPattern ? FillOpaqueStippled : FillStippled);
    }
    return true;
}

void QsdXGraphics::setLineWidth(int width)
{
    XSetLineAttributes(display(), _gc, static_cast<unsigned>(width), LineSolid, CapButt, JoinMiter);
}

// A bitmap of the pattern's size that is filled with it is the tile.
Pixmap QsdXGraphics::tileFor(const QsdPalette& palette, bool stipple)
{
    const QsdResource* const pattern =
        stipple ? static_cast<const QsdResource*>(palette.pattern()) : palette.colorPattern();
    const auto known =
        std::find_if(_tiles.begin(), _tiles.end(), [=](const Tile& tile) { return tile.pattern.get() == pattern; });
    if (known != _tiles.end()) {
        std::rotate(known, known + 1, _tiles.end());
        return _tiles.back().pixmap;
    }
    const std::uint32_t width = stipple ? palette.pattern()->width() : palette.colorPattern()->width();
    const std::uint32_t height = stipple ? palette.pattern()->height() : palette.colorPattern()->height();
    const QsdBitmap bitmap(&_display, width, height, stipple ? std::uint16_t{1} : _depth);
    const auto filling = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
    filling->setForeground(_display.black());
    filling->setClipRegion(QsdRegion::Full());
    filling->setFillStyle(stipple ? QsdFillMaskPattern : QsdFillColorPattern);
    bitmap.fillRectangle(filling.get(), {0, 0, width, height});
    if (_tiles.size() == MostTiles) {
        XFreePixmap(display(), _tiles.front().pixmap);
        _tiles.erase(_tiles.begin());
    }
    // Stipples are bits for the server, tiles are pixels.
    const QsdXColors& colors = _display.xColors();
    const unsigned long set = stipple ? 1 : colors.pixel(1, 1);
    _tiles.push_back({QsdHandle<const QsdResource>(pattern), makePixmap(bitmap.pixels(), set, set == 1 ? 0 : 1)});
    return _tiles.back().pixmap;
}

Pixmap QsdXGraphics::makePixmap(const QsdPixels& pixels, unsigned long set, unsigned long unset) const
{
    const Pixmap pixmap =
        XCreatePixmap(display(), _connection->root(), pixels.width(), pixels.height(), pixels.depth());
    XGCValues values{};
    values.foreground = set;
    values.background = unset;
    const GC gc = XCreateGC(display(), pixmap, GCForeground | GCBackground, &values);
    putImage(*_connection, _display.xColors(), pixmap, gc, pixels, {});
    XFreeGC(display(), gc);
    return pixmap;
}

void QsdXGraphics::fillRectangles(const std::vector<XRectangle>& rectangles)
{
    if (!rectangles.empty()) {
        XFillRectangles(display(), _pixmap, _gc, const_cast<XRectangle*>(rectangles.data()),
                        static_cast<int>(rectangles.size()));
    }
}

void QsdXGraphics::put(const QsdPixels& pixels, const QsdPoint& at, const QsdPixels& mask)
{
    const QsdXColors& colors = _display.xColors();
    setPlain(colors.pixel(1, 1), colors.pixel(0, 1));
    _clip.reset();
    const std::vector<XRectangle> covered = QsdXRectanglesOf(mask, at);
    if (covered.size() <= MostClipRectangles) {
        setClip(covered);
        putImage(*_connection, colors, _pixmap, _gc, pixels, at);
        return;
    }
    const Pixmap clip = makePixmap(mask, 1, 0);
    XSetClipOrigin(display(), _gc, at.x, at.y);
    XSetClipMask(display(), _gc, clip);
    putImage(*_connection, colors, _pixmap, _gc, pixels, at);
    XSetClipMask(display(), _gc, None);
    XFreePixmap(display(), clip);
}

bool QsdXGraphics::get(const QsdRect& from, std::uint32_t x, std::uint32_t y, QsdPixels& pixels) const
{
    QsdXTrial trial(*_connection);
    const std::uint32_t rowsAtOnce = QsdXRowsAtOnce(from.width);
    for (std::uint32_t done = 0; done < from.height; done += rowsAtOnce) {
        const QsdXImageHandle image(XGetImage(display(), _pixmap, from.x, from.y + static_cast<int>(done), from.width,
                                              std::min(rowsAtOnce, from.height - done), AllPlanes, ZPixmap));
        if (image == nullptr) {
            // The loss of the connection is told on its own.
            if (!_connection->isLost()) {
                QsdWarning("Cannot read pixels back: %s", trial.error().c_str());
            }
            return false;
        }
        QsdXReadImage(*image, _display.xColors(), x, y + done, pixels);
    }
    return true;
}
