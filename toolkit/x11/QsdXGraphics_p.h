// A drawable in the server and how it is drawn into.
#pragma once

#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/port/QsdPalette.h"
#include "toolkit/raster/QsdPixels.h"
#include "toolkit/x11/QsdXColors_p.h"
#include "toolkit/x11/QsdXConnection_p.h"

#include <X11/Xlib.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class QsdBitmap;
class QsdXDisplay;

/// A pixmap and its graphics context. The context remembers what it was last given, so only what changes is sent.
/// Everything does nothing when the pixmap could not be made.
class QsdXGraphics {
public:
    /// The widest and highest drawable, whose coordinates X can name.
    static constexpr std::uint32_t MostPixels = 32767;

    /// A pixmap of pixels of value 0. One that cannot be made is reported as a warning.
    QsdXGraphics(QsdXDisplay& display, std::uint32_t width, std::uint32_t height, std::uint16_t depth);
    QsdXGraphics(const QsdXGraphics&) = delete;
    QsdXGraphics& operator=(const QsdXGraphics&) = delete;
    ~QsdXGraphics();

    [[nodiscard]] bool isUsable() const { return _pixmap != 0 && !_connection->isLost(); }
    [[nodiscard]] Display* display() const { return _connection->display(); }
    [[nodiscard]] Pixmap pixmap() const { return _pixmap; }
    [[nodiscard]] GC gc() const { return _gc; }

    /// Draws inside `region`, of at most MostClipRectangles rectangles with coordinates of X, from now on.
    void setClip(const QsdRegion& region);
    static constexpr std::uint16_t MostClipRectangles = 4096;
    /// Draws in `color` from now on.
    void setColor(const QsdColor& color);
    /// Draws set bits in the foreground and others in the background of `palette`.
    void setColors(const QsdPalette& palette);
    /// Draws areas as the palette has them filled; false when it has them left alone.
    [[nodiscard]] bool setFill(const QsdPalette& palette);
    /// Draws solid lines of `width` pixels with butt ends and mitred corners; 0: thin ones.
    void setLineWidth(int width);

    void fillRectangles(const std::vector<XRectangle>& rectangles);
    /// Puts those pixels of the drawable's depth, their corner at `at`, whose bit in `mask`, of the same size, is set.
    void put(const QsdPixels& pixels, const QsdPoint& at, const QsdPixels& mask);
    /// Reads the pixels of `from`, which must be inside, to (x, y) of `pixels`; false when they cannot be read.
    [[nodiscard]] bool get(const QsdRect& from, std::uint32_t x, std::uint32_t y, QsdPixels& pixels) const;

private:
    /// A pattern in the server.
    struct Tile {
        QsdHandle<const QsdResource> pattern; ///< held, so that its address stays its own
        Pixmap pixmap;
    };

    [[nodiscard]] Pixmap tileFor(const QsdPalette& palette, bool stipple);
    /// A new pixmap; `set` and `unset` are what one-bit pixels are given.
    [[nodiscard]] Pixmap makePixmap(const QsdPixels& pixels, unsigned long set, unsigned long unset) const;
    void setClip(const std::vector<XRectangle>& rectangles);
    void setPlain(unsigned long foreground, unsigned long background);

    QsdXDisplay& _display;
    std::shared_ptr<QsdXConnection> _connection;
    std::uint16_t _depth;
    Pixmap _pixmap = 0;
    GC _gc = nullptr;
    std::optional<QsdRegion> _clip; ///< that of the context; none: another one
    std::vector<Tile> _tiles;       ///< the latest at the end
};
