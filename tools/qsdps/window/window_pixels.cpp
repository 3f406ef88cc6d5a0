#include "window/window_pixels.h"

#include "toolkit/geometry/QsdRect.h"
#include "window/pixel_colors.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <memory>

namespace qsdps {

namespace {

struct ImageCloser {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

/// Keeps everybody else from drawing.
class ServerGrab {
public:
    explicit ServerGrab(Display* display) : _display(display) { XGrabServer(display); }
    ~ServerGrab()
    {
        XUngrabServer(_display);
        XFlush(_display);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;

private:
    Display* _display;
};

/// The part of a window that lies on its screen, from the window's corner.
QsdRect partOnScreen(Display* display, Window window, const XWindowAttributes& attributes)
{
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(display, window, attributes.root, 0, 0, &x, &y, &child);
    const QsdRect whole{0, 0, static_cast<std::uint32_t>(attributes.width),
                        static_cast<std::uint32_t>(attributes.height)};
    return whole.intersected({-x, -y, static_cast<std::uint32_t>(WidthOfScreen(attributes.screen)),
                              static_cast<std::uint32_t>(HeightOfScreen(attributes.screen))});
}

void append(XImage& image, const PixelColors& colors, std::vector<std::uint8_t>& rgb)
{
    unsigned long last = XGetPixel(&image, 0, 0);
    Rgb color = colors(last);
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            // Neighbours are often equal.
            if (const unsigned long pixel = XGetPixel(&image, x, y); pixel != last) {
                last = pixel;
                color = colors(pixel);
            }
            rgb.insert(rgb.end(), {color.r, color.g, color.b});
        }
    }
}

/// Reads strip by strip, so that the largest screens need no second copy; false when the server refuses.
bool readStrips(Display* display, Window window, const QsdRect& part, const PixelColors& colors,
                std::vector<std::uint8_t>& rgb)
{
    constexpr std::uint32_t StripPixels = 1U << 20;
    const std::uint32_t rows = std::max(1U, StripPixels / part.width);
    rgb.reserve(std::size_t{3} * part.width * part.height);
    for (std::uint32_t top = 0; top < part.height; top += rows) {
        const std::unique_ptr<XImage, ImageCloser> image(
            XGetImage(display, window, part.x, part.y + static_cast<int>(top), part.width,
                      std::min(rows, part.height - top), AllPlanes, ZPixmap));
        if (image == nullptr) {
            return false;
        }
        append(*image, colors, rgb);
    }
    return true;
}

} // namespace

std::optional<WindowPixels> readWindow(const QsdXDisplay& display, XErrors& errors, unsigned long window,
                                       std::string& error)
{
    Display* const x = display.xDisplay();
    const ServerGrab grab(x);
    XWindowAttributes attributes;
    if (XGetWindowAttributes(x, window, &attributes) == 0) {
        static_cast<void>(errors.take(display));
        error = display.isLost() ? "the connection to the X server is lost" : "there is no such window";
        return std::nullopt;
    }
    if (attributes.c_class == InputOnly) {
        error = "the window takes input alone and has no pixels";
        return std::nullopt;
    }
    if (attributes.map_state != IsViewable) {
        error = "the window is not shown";
        return std::nullopt;
    }
    const QsdRect part = partOnScreen(x, window, attributes);
    if (part.isEmpty()) {
        error = "the window lies outside the screen";
        return std::nullopt;
    }
    // A window whose colours are gone shows something all the same.
    const Colormap map = attributes.colormap != None ? attributes.colormap : DefaultColormapOfScreen(attributes.screen);
    const PixelColors colors(x, *attributes.visual, map);
    WindowPixels pixels;
    pixels.width = part.width;
    pixels.height = part.height;
    pixels.isPart = part.width != static_cast<std::uint32_t>(attributes.width) ||
                    part.height != static_cast<std::uint32_t>(attributes.height);
    const bool isRead = readStrips(x, window, part, colors, pixels.rgb);
    error = errors.take(display);
    if (!error.empty() || !isRead) {
        error = error.empty() ? "the X server does not give its pixels" : error;
        return std::nullopt;
    }
    return pixels;
}

} // namespace qsdps
