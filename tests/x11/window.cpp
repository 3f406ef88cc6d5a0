// Windows.
#include "tests/x11/support.h"

#include "toolkit/x11/QsdXEvent.h"
#include "toolkit/x11/QsdXWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>

namespace {

constexpr QsdRGB Red{255, 0, 0};
constexpr QsdRGB White{255, 255, 255};

class WindowTest : public XTest {
protected:
    void SetUp() override
    {
        XTest::SetUp();
        window = std::make_unique<QsdXWindow>(display.get(), 40, 30, "A title");
        palette = paletteOf(*display);
        setColors(*palette, Red, White);
    }
    void TearDown() override
    {
        window.reset();
        XTest::TearDown();
    }
    /// Waits for an event of a kind; false when there comes none.
    [[nodiscard]] bool awaitEvent(QsdXEvent::Kind kind, QsdXEvent& event)
    {
        constexpr int Long = 5000;
        while (display->nextEvent(event, Long)) {
            if (event.kind == kind) {
                return true;
            }
        }
        return false;
    }
    /// Has the server do what windows do for themselves.
    void settle()
    {
        QsdXEvent event;
        display->sync();
        while (display->nextEvent(event, 50)) {
        }
    }
    /// The pixel that the screen shows; the window lies in its corner.
    [[nodiscard]] unsigned long shown(int x, int y)
    {
        Display* const d = display->xDisplay();
        XImage* const image = XGetImage(d, DefaultRootWindow(d), x, y, 1, 1, AllPlanes, ZPixmap);
        const unsigned long pixel = XGetPixel(image, 0, 0);
        XDestroyImage(image);
        return pixel;
    }
    [[nodiscard]] QsdRGB at(std::int32_t x, std::int32_t y) { return colorsOf(*window, {x, y, 1, 1}).at(0); }

    std::unique_ptr<QsdXWindow> window;
    QsdHandle<QsdPalette> palette;
};

TEST_F(WindowTest, IsWhiteAtFirstAndReadsBackUnshown)
{
    EXPECT_FALSE(window->isBad());
    EXPECT_EQ(at(0, 0), White);
    EXPECT_EQ(at(39, 29), White);
    window->fillRectangle(palette.get(), {10, 10, 5, 5});
    EXPECT_EQ(at(10, 10), Red);
}

TEST_F(WindowTest, ShowsWhatWasDrawnWhenItIsFlushed)
{
    window->show();
    settle();
    const unsigned long before = shown(12, 12);
    window->fillRectangle(palette.get(), {10, 10, 5, 5});
    window->flushRedraw();
    settle();
    EXPECT_NE(shown(12, 12), before);
    EXPECT_EQ(shown(20, 20), before);
}

TEST_F(WindowTest, ReadsBackWhereItIsCoveredOrOffTheScreen)
{
    window->show();
    window->fillRectangle(palette.get(), {0, 0, 40, 30});
    settle();
    QsdXWindow cover(display.get(), 40, 30, "cover");
    cover.show();
    settle();
    window->move({-20, 470});
    settle();
    EXPECT_EQ(colorsOf(*window, areaOf(*window)), std::vector<QsdRGB>(1200, Red));
    window->hide();
    settle();
    EXPECT_EQ(colorsOf(*window, areaOf(*window)), std::vector<QsdRGB>(1200, Red));
}

TEST_F(WindowTest, ShowsItselfAgainWhenItIsUncovered)
{
    window->show();
    window->fillRectangle(palette.get(), {0, 0, 40, 30});
    settle();
    const unsigned long red = shown(5, 5);
    auto cover = std::make_unique<QsdXWindow>(display.get(), 40, 30, "cover");
    cover->show();
    settle();
    EXPECT_NE(shown(5, 5), red);
    cover.reset();
    settle();
    EXPECT_EQ(shown(5, 5), red);
}

TEST_F(WindowTest, KeepsItsPixelsWhenItsSizeChanges)
{
    window->show();
    window->fillRectangle(palette.get(), {0, 0, 40, 30});
    settle();
    window->resize(60, 20);
    QsdXEvent event;
    ASSERT_TRUE(awaitEvent(QsdXEvent::Resized, event));
    EXPECT_EQ(event.window, window.get());
    EXPECT_EQ(window->width(), 60U);
    EXPECT_EQ(window->height(), 20U);
    EXPECT_EQ(at(39, 19), Red);
    EXPECT_EQ(at(40, 19), White);
    EXPECT_EQ(at(59, 0), White);
}

TEST_F(WindowTest, TellsWhenItIsDestroyedByOthers)
{
    window->show();
    settle();
    Display* const other = XOpenDisplay(nullptr);
    XDestroyWindow(other, window->xWindow());
    XCloseDisplay(other);
    QsdXEvent event;
    ASSERT_TRUE(awaitEvent(QsdXEvent::Gone, event));
    EXPECT_EQ(event.window, window.get());
    EXPECT_TRUE(window->isBad());
    window->fillRectangle(palette.get(), {0, 0, 5, 5});
    window->show();
    window->setTitle("gone");
    window->flushRedraw();
    unsigned long size = 0;
    EXPECT_EQ(display->getBitmapData(window.get(), size, {0, 0, 1, 1}), nullptr);
}

TEST_F(WindowTest, DrawingIntoAVanishedWindowIsReported)
{
    const Messages here;
    window->show();
    settle();
    Display* const other = XOpenDisplay(nullptr);
    XDestroyWindow(other, window->xWindow());
    XCloseDisplay(other);
    // The news has not been read yet.
    window->fillRectangle(palette.get(), {0, 0, 5, 5});
    display->sync();
    ASSERT_EQ(here.warnings().size(), 1U);
    EXPECT_EQ(here.warnings().front(),
              "The X server reports BadDrawable (invalid Pixmap or Window parameter) for the request X_CopyArea");
    settle();
    EXPECT_TRUE(window->isBad());
}

TEST_F(WindowTest, PassesOnWhatTheUserDoes)
{
    Display* const x = display->xDisplay();
    window->show();
    settle();
    XEvent press{};
    press.xbutton.type = ButtonPress;
    press.xbutton.window = window->xWindow();
    press.xbutton.root = DefaultRootWindow(x);
    press.xbutton.button = 4;
    press.xbutton.x = 7;
    press.xbutton.y = 8;
    press.xbutton.state = ControlMask | ShiftMask;
    XSendEvent(x, window->xWindow(), False, ButtonPressMask, &press);
    QsdXEvent event;
    ASSERT_TRUE(awaitEvent(QsdXEvent::ButtonPressed, event));
    EXPECT_EQ(event.button, 4);
    EXPECT_EQ(event.at, (QsdPoint{7, 8}));
    EXPECT_EQ(event.modifiers, QsdXControl | QsdXShift);

    XEvent key{};
    key.xkey.type = KeyPress;
    key.xkey.window = window->xWindow();
    key.xkey.root = DefaultRootWindow(x);
    key.xkey.keycode = XKeysymToKeycode(x, XStringToKeysym("a"));
    XSendEvent(x, window->xWindow(), False, KeyPressMask, &key);
    ASSERT_TRUE(awaitEvent(QsdXEvent::KeyPressed, event));
    EXPECT_EQ(event.key, "a");
    EXPECT_EQ(event.text, "a");

    XEvent close{};
    close.xclient.type = ClientMessage;
    close.xclient.window = window->xWindow();
    close.xclient.message_type = XInternAtom(x, "WM_PROTOCOLS", False);
    close.xclient.format = 32;
    close.xclient.data.l[0] = static_cast<long>(XInternAtom(x, "WM_DELETE_WINDOW", False));
    XSendEvent(x, window->xWindow(), False, NoEventMask, &close);
    ASSERT_TRUE(awaitEvent(QsdXEvent::CloseAsked, event));
    EXPECT_EQ(event.window, window.get());
}

TEST_F(WindowTest, WaitingForEventsEndsInTime)
{
    settle();
    const auto start = std::chrono::steady_clock::now();
    QsdXEvent event;
    EXPECT_FALSE(display->nextEvent(event, 100));
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(99));
    EXPECT_LT(waited, std::chrono::seconds(5));
}

TEST_F(WindowTest, HasItsTitle)
{
    display->sync();
    char* name = nullptr;
    ASSERT_NE(XFetchName(display->xDisplay(), window->xWindow(), &name), 0);
    EXPECT_STREQ(name, "A title");
    XFree(name);
}

} // namespace
