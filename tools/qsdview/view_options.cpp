#include "qsdview/view_options.h"

#include "command/command_line.h"

namespace qsdview {

std::optional<ViewOptions> parseViewOptions(int argc, const char* const* argv, int& exitCode)
{
    ViewOptions options;
    qsdps::CommandLine line(
        "qsdview", "Shows SVG drawings and PNG, JPEG and PNM pictures in an X window, and prints them.",
        "Keys: n, space, Page Down: next page; p, Backspace, Page Up: page before; Home, End: first and last page; "
        "+ and -: zoom; f: fit the window; 1: a pixel for each; arrows: scroll; P: print to NAME.ps; q, Escape: "
        "quit. The wheel scrolls, with Shift sideways, and zooms with Control; the left button drags.\n"
        "Exit status: 0 done, 1 some file failed or there is no X server, 2 wrong usage.");
    line.app().add_option("FILE", options.files, "SVG (gzipped or not), PNG, JPEG or PNM files")->required();
    const auto textOf = [](const std::string& text) { return text.empty() ? std::nullopt : std::optional(text); };
    line.add("--print-to", "FILE", "Open no window but write the document that qsdps would; - is standard output",
             "a file's name, or - for standard output", textOf, options.printTo);
    line.add("--display", "HOST:NUMBER", "The X server (the environment variable DISPLAY)", "an X server such as :0",
             textOf, options.display);
    line.add("--geometry", "[WxH][+X+Y]",
             "Size and place of the window; with - for +, from the right or bottom edge of the screen",
             "WIDTHxHEIGHT, +X+Y or both, such as 600x400+0+0", WindowGeometry::parse, options.geometry);
    if (!line.parse(
            argc, argv, [] {}, exitCode)) {
        return std::nullopt;
    }
    return options;
}

} // namespace qsdview
