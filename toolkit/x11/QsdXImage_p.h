// Pixels on their way to and from the server.
#pragma once

#include "toolkit/raster/QsdPixels.h"
#include "toolkit/x11/QsdXColors_p.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <memory>

struct QsdXImageDeleter {
    void operator()(XImage* image) const { XDestroyImage(image); }
};
using QsdXImageHandle = std::unique_ptr<XImage, QsdXImageDeleter>;

/// Reads the pixels of an image, of whatever byte order, bit order and padding, into `pixels`, its corner at (x, y).
/// All of it must fit.
void QsdXReadImage(XImage& image, const QsdXColors& colors, std::uint32_t x, std::uint32_t y, QsdPixels& pixels);

/// An image of `rows` rows of `pixels` from row `first` on, in the form the server wants; null when it cannot be made.
/// One of one-bit pixels is drawn in the foreground and background of the graphics context, at any depth.
[[nodiscard]] QsdXImageHandle QsdXMakeImage(const QsdXConnection& connection, const QsdXColors& colors,
                                            const QsdPixels& pixels, std::uint32_t first, std::uint32_t rows);

/// Rows that go in one piece, so that neither side needs much memory at once.
[[nodiscard]] std::uint32_t QsdXRowsAtOnce(std::uint32_t width);
