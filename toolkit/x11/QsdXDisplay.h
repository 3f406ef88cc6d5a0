// The X Window System display.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdDisplay.h"

#include <cstdint>
#include <memory>
#include <vector>

class QsdMemoryDisplay;
class QsdXColors;
class QsdXConnection;
class QsdXFontCache;
class QsdXPort;
class QsdXWindow;
struct QsdXEvent;
struct _XDisplay;
union _XEvent;

/// A connection to an X server: its default screen with that screen's default visual. Windows (QsdXWindow), pixmaps
/// (QsdXPixmap) and bitmaps (QsdBitmap) can be made on it and drawn into one another.
///
/// What the server reports as an error is told in words as a warning, at the latest by sync() and nextEvent(); the
/// operation has no effect then. When the connection breaks, that is reported once as a fatal error, all drawing ends
/// quietly, and isLost() tells so: the process goes on. (With an Xlib before 1.7, which has no way to go on, Xlib ends
/// the process, as it does when the server breaks off while the connection is being made.) Other connections of the
/// process, made with Xlib directly, keep the error handlers they had.
///
/// Resources come from the program, then from X, as "application.name" with the application's name and class (the same
/// with a capital), then as on every display. X has those of the file that XENVIRONMENT names, of the screen's and of
/// the server's resource property (without the latter, of the file .Xdefaults in the home folder) and of the
/// application's defaults file. They are entered as settings of the display when it is opened.
class QSD_API QsdXDisplay : public QsdDisplay {
public:
    /// Connects to the server `name` ("host:number"; null: the one of the environment variable DISPLAY). `application`
    /// is the name under which resources are looked up. Null, after a fatal error is reported, when there is no such
    /// server.
    [[nodiscard]] static std::unique_ptr<QsdXDisplay> Open(const char* name = nullptr,
                                                           const char* application = "dravonset");
    /// Closes the connection, or leaves that to the last font of this display that somebody still holds. All windows
    /// and pixmaps must be gone.
    ~QsdXDisplay() override;

    /// Whether the connection broke off.
    [[nodiscard]] bool isLost() const;
    /// The screen, in pixels.
    [[nodiscard]] QsdRect screenArea() const;
    /// Waits until the server has done everything asked for, and reports what went wrong.
    void sync() const;

    /// Makes everything drawn visible, then waits up to `milliseconds` (negative: without end) for an event. False when
    /// none came. Windows show what was drawn into them again by themselves. Once the connection is lost, every call
    /// gives ConnectionLost at once.
    [[nodiscard]] bool nextEvent(QsdXEvent& event, int milliseconds);
    /// The file descriptor of the connection, for programs that wait for several things; -1 when it is lost. Call
    /// nextEvent with 0 until it finds nothing before waiting.
    [[nodiscard]] int descriptor() const;

    void colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                    unsigned short* blues) const override;
    [[nodiscard]] unsigned short screenDepth() const override;
    /// Reads windows, pixmaps and bitmaps. A window reads as what was drawn into it, also where it is covered, off the
    /// screen or not shown.
    [[nodiscard]] unsigned char* getBitmapData(const QsdSystemPort* port, unsigned long& size,
                                               const QsdRect& rect) const override;
    /// A font of the server (QsdXFont) or, where the server has none like it, one without a window system. With the
    /// style QsdFontByXName, `family` is the font's name in X ("-foundry-family-...", a pattern or an alias; several
    /// separated by commas for a font set), and `size` does not count.
    [[nodiscard]] QsdFont* createFont(const char* family, std::uint16_t style, std::uint16_t size) const override;

    /// The connection, for programs that use Xlib themselves. It stays the display's.
    [[nodiscard]] _XDisplay* xDisplay() const;
    /// What the toolkit's X classes share.
    [[nodiscard]] const std::shared_ptr<QsdXConnection>& connection() const { return _connection; }
    /// The colour cells of the screen.
    [[nodiscard]] QsdXColors& xColors() const { return *_colors; }
    /// The fonts that have been loaded.
    [[nodiscard]] QsdXFontCache& xFonts() const { return *_fonts; }

private:
    friend class QsdXWindow;

    QsdXDisplay(std::shared_ptr<QsdXConnection> connection, const char* application);
    [[nodiscard]] bool translate(_XEvent& xEvent, QsdXEvent& event);
    void showWindows() const;
    void addWindow(QsdXWindow* window);
    void removeWindow(QsdXWindow* window);

    std::shared_ptr<QsdXConnection> _connection;
    std::unique_ptr<QsdXColors> _colors;
    std::unique_ptr<QsdXFontCache> _fonts;
    std::unique_ptr<QsdMemoryDisplay> _bitmaps; ///< which reads them like any display
    std::vector<QsdXWindow*> _windows;
};
