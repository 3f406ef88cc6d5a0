#include "tests/x11/viewer_session.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

constexpr auto Patience = std::chrono::seconds(30);

bool waitUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

pid_t start(const std::vector<std::string>& arguments)
{
    std::vector<char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "messages", O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t process = -1;
    if (posix_spawnp(&process, pointers[0], &actions, nullptr, pointers.data(), environ) != 0) {
        process = -1;
    }
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

int statusOf(int waited)
{
    return WIFEXITED(waited) ? WEXITSTATUS(waited) : -1;
}

/// Windows vanish while they are looked at.
int ignore(Display*, XErrorEvent*)
{
    return 0;
}

} // namespace

std::uint32_t Screenshot::at(int x, int y) const
{
    return x < width && y < height ? pixels[static_cast<std::size_t>(y * width + x)] : 0;
}

int runProgram(const std::vector<std::string>& arguments)
{
    int status = 0;
    const pid_t process = start(arguments);
    return process > 0 && waitpid(process, &status, 0) == process ? statusOf(status) : -1;
}

ViewerSession::ViewerSession(const std::string& viewer, const std::vector<std::string>& arguments)
    : _display(XOpenDisplay(nullptr))
{
    XSetErrorHandler(ignore);
    std::vector<std::string> all = {viewer};
    all.insert(all.end(), arguments.begin(), arguments.end());
    _viewer = start(all);
    static_cast<void>(waitUntil([this] { return (_window = findWindow()) != 0; }));
}

ViewerSession::~ViewerSession()
{
    if (_viewer > 0) {
        kill(_viewer, SIGKILL);
        waitpid(_viewer, nullptr, 0);
    }
    XCloseDisplay(_display);
}

unsigned long ViewerSession::findWindow() const
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(_display, DefaultRootWindow(_display), &root, &parent, &children, &count);
    Window found = 0;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(_display, children[i], &attributes) != 0 && attributes.map_state == IsViewable) {
            found = children[i];
        }
    }
    if (children != nullptr) {
        XFree(children);
    }
    return found;
}

void ViewerSession::press(const char* symbol)
{
    const KeySym wanted = XStringToKeysym(symbol);
    XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.window = _window;
    event.xkey.root = DefaultRootWindow(_display);
    event.xkey.keycode = XKeysymToKeycode(_display, wanted);
    event.xkey.state =
        XkbKeycodeToKeysym(_display, static_cast<KeyCode>(event.xkey.keycode), 0, 0) == wanted ? 0U : ShiftMask;
    XSendEvent(_display, _window, False, KeyPressMask, &event);
    XFlush(_display);
}

void ViewerSession::sendButton(int type, unsigned button, int x, int y, unsigned modifiers)
{
    XEvent event{};
    event.xbutton.type = type;
    event.xbutton.window = _window;
    event.xbutton.root = DefaultRootWindow(_display);
    event.xbutton.button = button;
    event.xbutton.x = x;
    event.xbutton.y = y;
    event.xbutton.state = modifiers;
    XSendEvent(_display, _window, False, type == ButtonPress ? ButtonPressMask : ButtonReleaseMask, &event);
    XFlush(_display);
}

void ViewerSession::pressButton(unsigned button, int x, int y, unsigned modifiers)
{
    sendButton(ButtonPress, button, x, y, modifiers);
}

void ViewerSession::releaseButton(unsigned button, int x, int y)
{
    sendButton(ButtonRelease, button, x, y, 0);
}

void ViewerSession::movePointer(int x, int y)
{
    XEvent event{};
    event.xmotion.type = MotionNotify;
    event.xmotion.window = _window;
    event.xmotion.root = DefaultRootWindow(_display);
    event.xmotion.x = x;
    event.xmotion.y = y;
    event.xmotion.state = Button1Mask;
    XSendEvent(_display, _window, False, ButtonMotionMask, &event);
    XFlush(_display);
}

void ViewerSession::resize(unsigned width, unsigned height)
{
    XResizeWindow(_display, _window, width, height);
    XFlush(_display);
}

void ViewerSession::askToClose()
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = _window;
    event.xclient.message_type = XInternAtom(_display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(_display, "WM_DELETE_WINDOW", False));
    XSendEvent(_display, _window, False, NoEventMask, &event);
    XFlush(_display);
}

std::string ViewerSession::title() const
{
    char* name = nullptr;
    std::string title;
    if (XFetchName(_display, _window, &name) != 0 && name != nullptr) {
        title = name;
        XFree(name);
    }
    return title;
}

Screenshot ViewerSession::screenshot() const
{
    Screenshot shot;
    XWindowAttributes attributes;
    if (XGetWindowAttributes(_display, _window, &attributes) == 0) {
        return shot;
    }
    XImage* const image = XGetImage(_display, _window, 0, 0, static_cast<unsigned>(attributes.width),
                                    static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
    if (image == nullptr) {
        return shot;
    }
    shot.width = image->width;
    shot.height = image->height;
    for (int y = 0; y < image->height; ++y) {
        for (int x = 0; x < image->width; ++x) {
            shot.pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFF);
        }
    }
    XDestroyImage(image);
    return shot;
}

bool ViewerSession::waitForTitle(const std::string& expected) const
{
    return waitUntil([&] { return title() == expected; });
}

bool ViewerSession::waitForColor(int x, int y, std::uint32_t color) const
{
    return waitUntil([&] { return screenshot().at(x, y) == color; });
}

int ViewerSession::waitForEnd()
{
    int status = 0;
    const bool isOver = waitUntil([&] { return waitpid(_viewer, &status, WNOHANG) == _viewer; });
    if (!isOver) {
        return -1;
    }
    _viewer = 0;
    return statusOf(status);
}
