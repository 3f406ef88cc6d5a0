#include "window/window_search.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <vector>

namespace qsdps {

namespace {

constexpr int DeepestTree = 100; ///< no program nests windows as deep

struct Named {
    Window window;
    std::string name;
};

std::optional<unsigned long> numberIn(const std::string& text)
{
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* const begin = text.data() + (isHexadecimal ? 2 : 0);
    const char* const end = text.data() + text.size();
    unsigned long number = 0;
    const auto [stop, problem] = std::from_chars(begin, end, number, isHexadecimal ? 16 : 10);
    return problem == std::errc() && stop == end && begin != end ? std::optional(number) : std::nullopt;
}

/// The name by the convention of today's window managers, in UTF-8.
std::string utf8Name(Display* x, Window window)
{
    constexpr long MostWords = 1024;
    const Atom utf8 = XInternAtom(x, "UTF8_STRING", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* bytes = nullptr;
    std::string name;
    if (XGetWindowProperty(x, window, XInternAtom(x, "_NET_WM_NAME", False), 0, MostWords, False, utf8, &type, &format,
                           &count, &left, &bytes) == Success &&
        type == utf8 && format == 8) {
        name.assign(reinterpret_cast<const char*>(bytes), count);
    }
    if (bytes != nullptr) {
        XFree(bytes);
    }
    return name;
}

/// The name by X's own convention, in whatever encoding.
std::string plainName(Display* x, Window window)
{
    XTextProperty property{};
    if (XGetWMName(x, window, &property) == 0 || property.value == nullptr) {
        return {};
    }
    char** texts = nullptr;
    int count = 0;
    std::string name;
    if (Xutf8TextPropertyToTextList(x, &property, &texts, &count) >= Success && count > 0) {
        name = texts[0];
    }
    if (texts != nullptr) {
        XFreeStringList(texts);
    }
    XFree(property.value);
    return name;
}

/// Adds the outermost windows inside `parent` that are shown and whose names begin with `name`.
void collect(const QsdXDisplay& display, Window parent, const std::string& name, int depth, std::vector<Named>& found)
{
    Display* const x = display.xDisplay();
    Window root = None;
    Window above = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (depth > DeepestTree || XQueryTree(x, parent, &root, &above, &children, &count) == 0) {
        return;
    }
    const std::vector<Window> windows(children, children + count);
    if (children != nullptr) {
        XFree(children);
    }
    for (const Window window : windows) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(x, window, &attributes) == 0 || attributes.map_state != IsViewable) {
            continue;
        }
        std::string own = nameOfWindow(display, window);
        if (!own.empty() && own.starts_with(name)) {
            found.push_back({window, std::move(own)});
        } else {
            collect(display, window, name, depth + 1, found);
        }
    }
}

std::string listOf(const std::vector<Named>& windows)
{
    constexpr std::size_t MostTold = 10;
    std::string list;
    for (std::size_t i = 0; i < std::min(windows.size(), MostTold); ++i) {
        char number[32];
        std::snprintf(number, sizeof number, "0x%lx", windows[i].window);
        list += std::string(i == 0 ? "" : ", ") + number + " (" + windows[i].name + ")";
    }
    return list + (windows.size() > MostTold ? ", ..." : "");
}

} // namespace

std::string nameOfWindow(const QsdXDisplay& display, unsigned long window)
{
    std::string name = utf8Name(display.xDisplay(), window);
    if (name.empty()) {
        name = plainName(display.xDisplay(), window);
    }
    std::replace_if(
        name.begin(), name.end(), [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; }, ' ');
    return name;
}

std::optional<unsigned long> findWindow(const QsdXDisplay& display, XErrors& errors, const std::string& what,
                                        std::string& error)
{
    const Window root = DefaultRootWindow(display.xDisplay());
    if (what == "root") {
        return root;
    }
    if (const std::optional<unsigned long> number = numberIn(what)) {
        return number;
    }
    std::vector<Named> found;
    collect(display, root, what, 0, found);
    // Windows that vanish meanwhile are none.
    static_cast<void>(errors.take(display));
    if (display.isLost()) {
        error = "the connection to the X server is lost";
        return std::nullopt;
    }
    std::vector<Named> exact;
    std::copy_if(found.begin(), found.end(), std::back_inserter(exact),
                 [&](const Named& named) { return named.name == what; });
    const std::vector<Named>& candidates = exact.empty() ? found : exact;
    if (what.empty() || candidates.empty()) {
        error = "no window that is shown has this name";
        return std::nullopt;
    }
    if (candidates.size() > 1) {
        error = "several windows have this name: " + listOf(candidates);
        return std::nullopt;
    }
    return candidates.front().window;
}

} // namespace qsdps
