#include "command/options.h"

#include "command/command_line.h"
#include "page/colors.h"
#include "values/color.h"
#include "values/lower_case.h"

#include <algorithm>
#include <utility>

namespace qsdps {

namespace {

struct Alignment {
    double x;
    double y;
};

std::optional<Alignment> parseAlignment(const std::string& text)
{
    Alignment alignment{0.5, 0.5};
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t dash = text.find('-', start);
        const std::string word = text.substr(start, dash - start);
        if (word == "left") {
            alignment.x = 0;
        } else if (word == "right") {
            alignment.x = 1;
        } else if (word == "top") {
            alignment.y = 0;
        } else if (word == "bottom") {
            alignment.y = 1;
        } else if (word != "center") {
            return std::nullopt;
        }
        if (dash == std::string::npos) {
            break;
        }
        start = dash + 1;
    }
    return alignment;
}

std::optional<double> parsePositiveLength(const std::string& text)
{
    constexpr double PointsPerPixel = 0.75;
    const std::optional<double> length = parsePoints(text, PointsPerPixel);
    return length && *length > 0 ? length : std::nullopt;
}

std::optional<double> parseZoom(const std::string& text)
{
    constexpr double Least = 1e-4;
    constexpr double Most = 1e4;
    return parseNumberWithin(text, Least, Most);
}

std::optional<double> parseDpi(const std::string& text)
{
    constexpr double Least = 1;
    constexpr double Most = 1e5;
    return parseNumberWithin(text, Least, Most);
}

/// A colour as it looks on white paper; none inside for one that leaves the paper bare.
std::optional<std::optional<Rgb>> parsePaperColor(const std::string& text)
{
    const std::optional<Color> color = parseColor(text);
    if (!color) {
        return std::nullopt;
    }
    constexpr Rgb White{255, 255, 255};
    const Ink ink{color->rgb, color->alpha};
    return std::optional<Rgb>(ink.isInvisible() ? std::nullopt : std::optional(blend(ink, 1, White)));
}

std::optional<std::string> parseFileName(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<std::string> anyText(const std::string& text)
{
    return text;
}

bool endsWith(const std::string& text, const std::string& end)
{
    return lowerCase(text).ends_with(end);
}

/// The compression that a name asks for. Automatic: the best that interpreters of the level know. The documents of the
/// base device are what they have always been unless compression is asked for.
Compression compressionOf(const std::string& name, const Options& options)
{
    const bool plain = options.level == 1 || options.hexEncoder;
    if (name == "auto") {
        return plain || options.classic ? Compression::None : options.level > 2 ? Compression::Flate : Compression::LZW;
    }
    if (name == "none") {
        return Compression::None;
    }
    if (plain) {
        CommandLine::refuse("--compress", "hexadecimal data is not compressed");
    }
    if (name == "flate" && options.level < 3) {
        CommandLine::refuse("--compress", "flate needs --level 3");
    }
    return name == "flate" ? Compression::Flate : name == "lzw" ? Compression::LZW : Compression::RunLength;
}

/// An option that may be given often, and its values.
struct Values {
    const CLI::Option* option;
    const std::vector<std::string>& texts;
};

/// The inputs in the order in which they are given; standard input where there are none.
std::vector<Source> inputsOf(const CLI::App& app, const Values& files, const Values& windows)
{
    std::vector<Source> inputs;
    auto nextFile = files.texts.begin();
    auto nextWindow = windows.texts.begin();
    for (const CLI::Option* const option : app.parse_order()) {
        if (option == files.option) {
            inputs.push_back({Source::File, *nextFile++});
        } else if (option == windows.option) {
            inputs.push_back({Source::Window, *nextWindow++});
        }
    }
    if (inputs.empty()) {
        inputs.push_back({Source::File, "-"});
    }
    return inputs;
}

/// Whether the margins leave room on the paper, whichever way it may be turned.
bool leavesRoomOnPaper(const Options& options)
{
    const double shorter = std::min(options.paper->width, options.paper->height);
    const double longer = std::max(options.paper->width, options.paper->height);
    const bool upright =
        options.orientation != Orientation::Landscape && leavesRoom({shorter, longer}, options.margins);
    const bool turned = options.orientation != Orientation::Portrait && leavesRoom({longer, shorter}, options.margins);
    return upright || turned;
}

/// Refuses options that do not go together.
void refuseContradictions(const Options& options, bool asksForAscii85, bool asksToFit)
{
    if (options.level == 1 && asksForAscii85) {
        CommandLine::refuse("--encoder", "level 1 documents have hexadecimal data");
    }
    if (options.classic && options.level > 2) {
        CommandLine::refuse("--level", "the base device draws pictures at levels 1 and 2 alone");
    }
    if (asksToFit && !options.paper) {
        CommandLine::refuse("--fit", "expected a paper to fit, given with --paper");
    }
    if (options.paper && !leavesRoomOnPaper(options)) {
        CommandLine::refuse("--margin", "the margins leave no room on the paper");
    }
    if (options.format == Format::EPS && options.inputs.size() > 1) {
        CommandLine::refuse("", "an EPS document holds one page, but " + std::to_string(options.inputs.size()) +
                                    " inputs are given");
    }
}

} // namespace

std::optional<Options> parseOptions(int argc, const char* const* argv, int& exitCode)
{
    Options options;
    CommandLine line(
        "qsdps",
        "Turns SVG drawings, PNG, JPEG and PNM pictures and windows of X into PostScript. Several of them become the "
        "pages of one document.",
        "Lengths take mm, cm, in, pt, pc and px. Pictures have at most 1,000,000 pixels a side and 1,000 million in "
        "all; interlaced and progressive ones 100 million. Exit status: 0 done, 1 some file failed, 2 wrong usage.");
    CLI::App& app = line.app();

    std::vector<std::string> files;
    const CLI::Option* const fileOption =
        app.add_option("FILE", files, "SVG (gzipped or not), PNG, JPEG or PNM files; - or none: standard input");
    std::vector<std::string> windows;
    const CLI::Option* const windowOption =
        app.add_option("--window", windows,
                       "A window on the X screen of the environment variable DISPLAY: its number (decimal, or 0x and "
                       "hexadecimal), its name, or root; may be given often and among files")
            ->type_name("ID|NAME|root")
            ->allow_extra_args(false);
    line.expect("--window", "a window's number or name, or root");
    line.add("-o,--output", "FILE", "Where the document goes; - (the default): standard output",
             "a file's name, or - for standard output", parseFileName, options.output);
    std::string format;
    line.addChoice<std::string>("-f,--format", "ps or eps; the default follows the output's suffix",
                                {{"ps", "ps"}, {"eps", "eps"}}, format);
    line.add("-p,--paper", "NAME|WxH",
             "Paper: a0 to a6, b3 to b5, letter, legal, tabloid, ledger, executive or WIDTHxHEIGHT; the default is "
             "the drawing's own size",
             "a0 to a6, b3 to b5, letter, legal, tabloid, ledger, executive or two lengths above 0 such as 100x50mm",
             parsePaper, options.paper);
    line.addChoice<Orientation>(
        "--orientation", "Which side of the paper is up: portrait, landscape or auto",
        {{"auto", Orientation::Auto}, {"portrait", Orientation::Portrait}, {"landscape", Orientation::Landscape}},
        options.orientation);
    std::optional<Fit> fit;
    line.addChoice<std::optional<Fit>>(
        "--fit", "How drawings and pictures fit a given paper: none, shrink (large ones; the default) or page",
        {{"none", Fit::None}, {"shrink", Fit::Shrink}, {"page", Fit::Page}}, fit);
    line.add("-m,--margin", "L[,T,R,B]", "Margins of the paper, bare numbers in points",
             "one length or four (left, top, right, bottom) with commas, none below 0", parseMargins, options.margins);
    Alignment alignment{options.alignX, options.alignY};
    line.add("--align", "PLACE", "Where on the paper: center, or words of top, bottom, left and right joined by -",
             "center, or words of top, bottom, left and right joined by -", parseAlignment, alignment);
    line.add("-w,--width", "LENGTH", "Width of each drawing, bare numbers in px", "a length above 0 such as 10cm",
             parsePositiveLength, options.width);
    line.add("-h,--height", "LENGTH", "Height of each drawing, bare numbers in px",
             "a length above 0 such as 10cm (-h is the height, --help prints the help)", parsePositiveLength,
             options.height);
    line.add("-z,--zoom", "FACTOR", "Enlarge each drawing by this factor", "a number from 0.0001 to 10000", parseZoom,
             options.zoom);
    line.add("-d,--dpi", "NUMBER", "Pixels in an inch of drawings, and of pictures that do not state it (96)",
             "a number from 1 to 100000", parseDpi, options.dpi);
    line.add("-b,--background", "COLOR", "Colour of the paper, as drawings name it: red, #rrggbb, rgb(), hsl(), ...",
             "a colour such as red, #ff0000, rgb(255,0,0) or hsl(0,100%,50%)", parsePaperColor, options.background);
    line.addChoice<unsigned long>("--level", "PostScript language level: 1, 2 (the default) or 3",
                                  {{"1", 1}, {"2", 2}, {"3", 3}}, options.level);
    line.addChoice<QsdPSColorModel>("--color", "Colour model: rgb (the default) or grey",
                                    {{"rgb", QsdPSRGB}, {"grey", QsdPSGrey}, {"gray", QsdPSGrey}}, options.color);
    std::string encoder;
    line.addChoice<std::string>("--encoder", "Encoding of image data: ascii85 (the default above level 1) or hex",
                                {{"ascii85", "ascii85"}, {"hex", "hex"}}, encoder);
    std::string compression = "auto";
    line.addChoice<std::string>(
        "--compress", "Compression of image data: auto (the default), flate (level 3), lzw, runlength or none",
        {{"auto", "auto"}, {"flate", "flate"}, {"lzw", "lzw"}, {"runlength", "runlength"}, {"none", "none"}},
        compression);
    app.add_flag("--classic", options.classic,
                 "Write plain documents, whose pages rely on those before, with the base device");
    line.add("--title", "TEXT",
             "The document's title (that of its only drawing or its file's name, or the name of the output)", "a text",
             anyText, options.title);
    line.addChoice<QsEncoding>(
        "--encoding", "Encoding of the document's texts: latin1 (the default), euc-jp or sjis",
        {{"latin1", QsEncodingLatin1}, {"euc-jp", QsEncodingEUCJP}, {"sjis", QsEncodingShiftJIS}}, options.encoding);
    line.addChoice<TextForm>(
        "--text",
        "What texts become: strings, which can be searched, outlines of installed fonts, or auto "
        "(the default): strings where a printer's fonts serve",
        {{"auto", TextForm::Auto}, {"strings", TextForm::Strings}, {"outlines", TextForm::Outlines}}, options.text);
    line.add("--font-map", "FILE", "A font map file to read in addition", "a file's name", parseFileName,
             options.fontMap);
    app.add_flag("--strict", options.strict, "Fail when something of a drawing cannot be drawn");
    app.add_flag("-q,--quiet", options.quiet, "Do not tell what was approximated or left out, nor show progress");
    app.add_flag("-v,--verbose", options.verbose, "Tell what is being done");
    app.add_flag("--progress", options.progress, "Show progress on a terminal at once, not only when a run takes long");

    const auto check = [&] {
        options.hexEncoder = encoder == "hex";
        options.fit = fit.value_or(options.fit);
        options.compression = compressionOf(compression, options);
        options.plainWhereSmaller = compression == "auto";
        options.inputs = inputsOf(app, {fileOption, files}, {windowOption, windows});
        const bool eps = format == "eps" ||
                         (format.empty() && (endsWith(options.output, ".eps") || endsWith(options.output, ".epsf")));
        options.format = eps ? Format::EPS : Format::PS;
        options.formatIsGiven = !format.empty();
        refuseContradictions(options, encoder == "ascii85", fit.has_value());
    };
    if (!line.parse(argc, argv, check, exitCode)) {
        return std::nullopt;
    }
    options.alignX = alignment.x;
    options.alignY = alignment.y;
    return options;
}

} // namespace qsdps
