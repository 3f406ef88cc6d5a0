// qsdps-window: a window of the X screen as a picture file, for qsdps.
#include "command/standard_files.h"
#include "toolkit/base/QsdVersion.h"
#include "window/picture_file.h"
#include "window/window_pixels.h"
#include "window/window_search.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <iostream>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::string_view Summary =
    "Usage: qsdps-window [-q|--] ID|NAME|root >FILE.pnm\n"
    "Writes a window of the X screen as a PNM picture. qsdps --window does this and prints it.\n";

constexpr std::string_view OptionTexts = "\n"
                                         "  -q          Do not warn of what is left out\n"
                                         "  --          What follows is a window, whatever it begins with\n"
                                         "  --version   Print the version and exit\n"
                                         "  -?,--help   Print this help and exit\n";

/// Writes what a lone argument asks for instead of a window; false when it is a window.
bool answer(std::string_view argument)
{
    if (argument == "--help" || argument == "-?") {
        std::cout << Summary << OptionTexts;
    } else if (argument == "--version") {
        std::cout << "qsdps-window " << QsdGetVersionString() << '\n';
    } else {
        return false;
    }
    return true;
}

int fail(const std::string& what, const std::string& why)
{
    std::cerr << "qsdps-window: " << what << ": " << why << '\n';
    return 1;
}

int writeWindow(const std::string& what, bool isQuiet)
{
    using namespace qsdps;
    XErrors errors;
    const std::unique_ptr<QsdXDisplay> display = QsdXDisplay::Open(nullptr, "qsdps");
    if (display == nullptr) {
        return fail(what, errors.take());
    }
    std::string error;
    const std::optional<unsigned long> window = findWindow(*display, errors, what, error);
    const std::optional<WindowPixels> pixels = window ? readWindow(*display, errors, *window, error) : std::nullopt;
    if (!pixels) {
        return fail(what, error);
    }
    const std::string title = nameOfWindow(*display, *window);
    if (pixels->isPart && !isQuiet) {
        std::cerr << "qsdps-window: " << what << ": what lies outside the screen is left out\n";
    }
    return writePicture(*pixels, title, stdout) ? 0 : fail("standard output", std::strerror(errno));
}

} // namespace

int main(int argc, char** argv)
{
    if (!qsdps::openStandardFiles()) {
        return 1;
    }
    if (argc == 2 && answer(argv[1])) {
        return qsdps::finishStandardOutput("qsdps-window") ? 0 : 1;
    }
    const std::string_view option = argc > 2 ? argv[1] : "";
    const bool isQuiet = option == "-q";
    if (argc != (option.empty() ? 2 : 3) || !(isQuiet || option.empty() || option == "--")) {
        std::cerr << Summary;
        return 2;
    }
    if (isatty(STDOUT_FILENO) != 0) {
        return fail("standard output", "is a terminal");
    }
    const char* const window = argv[argc - 1];
    try {
        return writeWindow(window, isQuiet);
    } catch (const std::exception& error) {
        return fail(window, error.what());
    }
}
