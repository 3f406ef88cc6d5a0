// The connection: opening it, its settings and colours, and what goes wrong on it.
#include "tests/x11/support.h"

#include "toolkit/x11/QsdXEvent.h"
#include "toolkit/x11/QsdXWindow.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace {

using DisplayTest = XTest;

/// Sets the server's resource property as long as it lives.
class ResourceProperty {
public:
    /// The property of the whole server, or that of the screen.
    explicit ResourceProperty(const char* text, const char* name = "RESOURCE_MANAGER")
        : _display(XOpenDisplay(nullptr)), _name(XInternAtom(_display, name, False))
    {
        XChangeProperty(_display, DefaultRootWindow(_display), _name, XA_STRING, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(text), static_cast<int>(std::strlen(text)));
        XSync(_display, False);
    }
    ResourceProperty(const ResourceProperty&) = delete;
    ResourceProperty& operator=(const ResourceProperty&) = delete;
    ~ResourceProperty()
    {
        XDeleteProperty(_display, DefaultRootWindow(_display), _name);
        XCloseDisplay(_display);
    }

private:
    Display* _display;
    Atom _name;
};

TEST(Display, AServerThatIsNotThereIsReported)
{
    const Messages messages;
    EXPECT_EQ(QsdXDisplay::Open("localhost:9999"), nullptr);
    ASSERT_EQ(messages.fatal().size(), 1U);
    EXPECT_EQ(messages.fatal().front(), "Cannot open the X display localhost:9999");
}

TEST_F(DisplayTest, KnowsTheScreen)
{
    EXPECT_EQ(display->screenArea(), (QsdRect{0, 0, 640, 480}));
    EXPECT_EQ(display->screenDepth(), DefaultDepth(display->xDisplay(), DefaultScreen(display->xDisplay())));
    EXPECT_EQ(display->colorCount(), display->screenDepth() > 8 ? 0 : 1 << display->screenDepth());
    EXPECT_FALSE(display->isLost());
    EXPECT_GE(display->descriptor(), 0);
}

TEST_F(DisplayTest, HasNearColoursInATable)
{
    if (display->screenDepth() > 8) {
        unsigned short red = 1, green = 1, blue = 1;
        display->colorTable(1, &red, &green, &blue);
        EXPECT_EQ(red + green + blue, 0);
        return;
    }
    const QsdColorTable table = display->colors();
    for (const QsdRGB wanted : {QsdRGB{255, 255, 255}, QsdRGB{0, 0, 0}, QsdRGB{255, 0, 0}, QsdRGB{100, 160, 40}}) {
        constexpr int Step = 45; // half of the coarsest table's
        const QsdRGB nearest = table.color(table.nearest(wanted));
        EXPECT_LE(std::abs(nearest.red - wanted.red), Step) << wanted;
        EXPECT_LE(std::abs(nearest.green - wanted.green), Step) << wanted;
        EXPECT_LE(std::abs(nearest.blue - wanted.blue), Step) << wanted;
    }
}

TEST_F(DisplayTest, ResourcesComeFromTheServerByNameAndClass)
{
    const ResourceProperty property("*paperWidth: 300\n"
                                    "viewer.paperHeight: 400\n"
                                    "other.PSFontScale: 1\n"
                                    "Viewer.PSEUCFontScale: 70\n"
                                    "*PaperTitle: of the class\n"
                                    "viewer.paperWidth.deeper: 2\n");
    const std::unique_ptr<QsdXDisplay> viewer = QsdXDisplay::Open(nullptr, "viewer");
    ASSERT_NE(viewer, nullptr);
    EXPECT_STREQ(viewer->getResource("paperWidth", "none"), "300");
    EXPECT_STREQ(viewer->getResource("paperHeight", "none"), "400");
    EXPECT_STREQ(viewer->getResource("PSFontScale", "none"), "none");
    EXPECT_STREQ(viewer->getResource("PSEUCFontScale", "none"), "70");
    EXPECT_STREQ(viewer->getResource("paperTitle", "none"), "of the class");
    EXPECT_STREQ(viewer->getResource("deeper", "none"), "none");
    viewer->setResource("paperWidth", "500");
    EXPECT_STREQ(viewer->getResource("paperWidth", "none"), "500");
    // Another application has nothing but what is everybody's.
    EXPECT_STREQ(QsdXDisplay::Open(nullptr, "editor")->getResource("paperHeight", "none"), "none");
}

TEST_F(DisplayTest, ResourcesOfTheScreenReplaceThoseOfTheServer)
{
    const ResourceProperty server("*paperWidth: 300\n*paperHeight: 400\n");
    const ResourceProperty screen("*paperWidth: 301\n", "SCREEN_RESOURCES");
    const std::unique_ptr<QsdXDisplay> viewer = QsdXDisplay::Open(nullptr, "viewer");
    ASSERT_NE(viewer, nullptr);
    EXPECT_STREQ(viewer->getResource("paperWidth", "none"), "301");
    EXPECT_STREQ(viewer->getResource("paperHeight", "none"), "400");
}

TEST_F(DisplayTest, ResourcesComeFromFilesUnderThoseOfTheUser)
{
    const std::string folder = std::getenv("HOME");
    std::ofstream(folder + "/Viewer") << "*paperWidth: 10\n*paperHeight: 11\n*PSFontScale: 12\n";
    std::ofstream(folder + "/.Xdefaults") << "Viewer*paperHeight: 21\nViewer*PSFontScale: 22\n";
    std::ofstream(folder + "/settings") << "viewer.PSFontScale: 32\n";
    setenv("XAPPLRESDIR", folder.c_str(), 1);
    setenv("XENVIRONMENT", (folder + "/settings").c_str(), 1);
    const std::unique_ptr<QsdXDisplay> viewer = QsdXDisplay::Open(nullptr, "viewer");
    unsetenv("XAPPLRESDIR");
    unsetenv("XENVIRONMENT");
    ASSERT_NE(viewer, nullptr);
    EXPECT_STREQ(viewer->getResource("paperWidth", "none"), "10");
    EXPECT_STREQ(viewer->getResource("paperHeight", "none"), "21");
    EXPECT_STREQ(viewer->getResource("PSFontScale", "none"), "32");
    for (const char* const name : {"/Viewer", "/.Xdefaults", "/settings"}) {
        std::remove((folder + name).c_str());
    }
}

TEST_F(DisplayTest, ErrorsOfTheServerAreToldInWords)
{
    const Messages here;
    XMapWindow(display->xDisplay(), 0x1FFFFFFF);
    display->sync();
    ASSERT_EQ(here.warnings().size(), 1U);
    EXPECT_EQ(here.warnings().front(), "The X server reports BadWindow (invalid Window parameter) for the request "
                                       "X_MapWindow");
}

TEST_F(DisplayTest, ManyErrorsAreCounted)
{
    const Messages here;
    for (int i = 0; i < 30; ++i) {
        XMapWindow(display->xDisplay(), 0x1FFFFFFF);
    }
    display->sync();
    ASSERT_EQ(here.warnings().size(), 11U);
    EXPECT_EQ(here.warnings().back(), "The X server reports 20 more errors");
}

int othersErrors = 0;

TEST_F(DisplayTest, OtherConnectionsKeepTheirErrorHandler)
{
    // The handler of the program that was there before the toolkit's.
    display.reset();
    const XErrorHandler original = XSetErrorHandler([](Display*, XErrorEvent*) { return ++othersErrors; });
    display = QsdXDisplay::Open();
    Display* const other = XOpenDisplay(nullptr);
    othersErrors = 0;
    XMapWindow(other, 0x1FFFFFFF);
    XSync(other, False);
    EXPECT_EQ(othersErrors, 1);
    XCloseDisplay(other);
    display.reset();
    EXPECT_NE(XSetErrorHandler(original), original);
    display = QsdXDisplay::Open();
}

/// Has the server close a client's connection.
void cutOff(unsigned long resourceOfClient)
{
    Display* const other = XOpenDisplay(nullptr);
    XKillClient(other, resourceOfClient);
    XCloseDisplay(other);
}

TEST_F(DisplayTest, TheProcessOutlivesTheConnection)
{
    const Messages here;
    auto pixmap = std::make_unique<QsdXPixmap>(display.get(), 20, 20, std::uint16_t{0});
    auto window = std::make_unique<QsdXWindow>(display.get(), 20, 20, "lost");
    QsdFont* const font = display->createFont("helvetica", QsdFontPlain, 12);
    const QsdHandle<QsdPalette> palette = paletteOf(*display);
    palette->setFont(font);
    font->destroy();
    display->sync();
    cutOff(pixmap->xDrawable());
    pixmap->fillRectangle(palette.get(), {0, 0, 5, 5});
    display->sync();
    EXPECT_TRUE(display->isLost());
    ASSERT_EQ(here.fatal().size(), 1U);
    EXPECT_EQ(here.fatal().front().find("The connection to the X server :"), 0U);

    // Nothing that is done then does harm, or is reported again.
    EXPECT_TRUE(pixmap->isBad());
    EXPECT_TRUE(window->isBad());
    EXPECT_EQ(display->descriptor(), -1);
    pixmap->drawString(palette.get(), {3, 10}, "text", -1, QsdPositionCenter);
    pixmap->drawLine(palette.get(), {0, 0}, {5, 5});
    window->show();
    window->fillArc(palette.get(), {0, 0, 10, 10}, 0, 360);
    window->flushRedraw();
    unsigned long size = 0;
    EXPECT_EQ(display->getBitmapData(pixmap.get(), size, {0, 0, 5, 5}), nullptr);
    EXPECT_GT(palette->font()->stringWidth("text", -1), 0);
    EXPECT_TRUE(QsdHandle<QsdFont>::Adopt(display->createFont("times", QsdFontBold, 30)));
    const QsdXPixmap late(display.get(), 5, 5, 0);
    EXPECT_TRUE(late.isBad());
    QsdXEvent event;
    EXPECT_TRUE(display->nextEvent(event, -1));
    EXPECT_EQ(event.kind, QsdXEvent::ConnectionLost);
    EXPECT_EQ(here.fatal().size(), 1U);
    EXPECT_EQ(here.warnings(), std::vector<std::string>());
    window.reset();
    pixmap.reset();
}

TEST_F(DisplayTest, WaitingEndsWhenTheConnectionDoes)
{
    const Messages here;
    auto pixmap = std::make_unique<QsdXPixmap>(display.get(), 20, 20, std::uint16_t{0});
    cutOff(pixmap->xDrawable());
    QsdXEvent event;
    EXPECT_TRUE(display->nextEvent(event, -1));
    EXPECT_EQ(event.kind, QsdXEvent::ConnectionLost);
    EXPECT_EQ(here.fatal().size(), 1U);
    pixmap.reset();
    display.reset();
}

} // namespace
