#include "qsdview/view_options.h"

#include "toolkit/base/QsdVersion.h"

#include <CLI/CLI.hpp>

namespace qsdview {

std::optional<ViewOptions> parseViewOptions(int argc, const char* const* argv, int& exitCode)
{
    constexpr int UsageError = 2;
    ViewOptions options;
    CLI::App app("Shows SVG drawings and PNG, JPEG and PNM pictures in an X window, and prints them.", "qsdview");
    app.set_help_flag("-?,--help", "Print this help and exit");
    app.set_version_flag("--version", std::string("qsdview ") + QsdGetVersionString());
    app.footer(
        "Keys: n, space, Page Down: next page; p, Backspace, Page Up: page before; Home, End: first and last page; "
        "+ and -: zoom; f: fit the window; 1: a pixel for each; arrows: scroll; P: print to NAME.ps; q, Escape: "
        "quit. The wheel scrolls, with Shift sideways, and zooms with Control; the left button drags.\n"
        "Exit status: 0 done, 1 some file failed or there is no X server, 2 wrong usage.");
    app.add_option("FILE", options.files, "SVG (gzipped or not), PNG, JPEG or PNM files")->required();
    app.add_option("--print-to", options.printTo,
                   "Open no window but write the document that qsdps would; - is standard output")
        ->type_name("FILE");
    app.add_option("--display", options.display, "The X server (the environment variable DISPLAY)")
        ->type_name("HOST:NUMBER");
    app.add_option(
           "--geometry",
           [&](const CLI::results_t& texts) {
               const std::optional<WindowGeometry> geometry = WindowGeometry::parse(texts.back());
               options.geometry = geometry.value_or(WindowGeometry());
               return geometry.has_value();
           },
           "Size and place of the window; with - for +, from the right or bottom edge of the screen")
        ->type_name("[WxH][+X+Y]");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error) == 0 ? 0 : UsageError;
        return std::nullopt;
    }
    return options;
}

} // namespace qsdview
