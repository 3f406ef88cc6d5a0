#include "options.h"

#include "toolkit/base/QsdVersion.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <functional>
#include <iostream>
#include <map>

namespace qsdps {

namespace {

constexpr int UsageError = 2;

/// A CLI check that passes what `parse` understands and stores it.
template <class Parse, class Target>
CLI::callback_t storing(Parse parse, Target& target)
{
    return [parse, &target](const CLI::results_t& texts) {
        const auto value = parse(texts.back());
        if (value) {
            target = *value;
        }
        return value.has_value();
    };
}

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
    const std::optional<double> length = parseLength(text, PointsPerPixel);
    return length && *length > 0 ? length : std::nullopt;
}

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && CLI::detail::to_lower(text.substr(text.size() - end.size())) == end;
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
        throw CLI::ValidationError("--compress", "hexadecimal data is not compressed");
    }
    if (name == "flate" && options.level < 3) {
        throw CLI::ValidationError("--compress", "flate takes --level 3");
    }
    return name == "flate" ? Compression::Flate : name == "lzw" ? Compression::LZW : Compression::RunLength;
}

} // namespace

std::optional<Options> parseOptions(int argc, const char* const* argv, int& exitCode)
{
    Options options;
    CLI::App app(
        "Turns SVG drawings, PNG, JPEG and PNM pictures and windows of X into PostScript. Several of them become the "
        "pages of one document.",
        "qsdps");
    app.set_help_flag("-?,--help", "Print this help and exit");
    app.set_version_flag("--version", std::string("qsdps ") + QsdGetVersionString());
    app.footer(
        "Lengths take mm, cm, in, pt, pc and px. Pictures have at most 1,000,000 pixels a side and 1,000 million in "
        "all; interlaced and progressive ones 100 million. Exit status: 0 done, 1 some file failed, 2 wrong usage.");

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
    app.add_option("-o,--output", options.output, "Where the document goes; - (the default): standard output")
        ->type_name("FILE");
    std::string format;
    app.add_option("-f,--format", format, "ps or eps; the default follows the output's suffix")
        ->check(CLI::IsMember({"ps", "eps"}));
    app.add_option(
           "-p,--paper", storing(parsePaper, options.paper),
           "Paper: a0 to a6, b3 to b5, letter, legal, tabloid, ledger, executive or WIDTHxHEIGHT; the default is "
           "the drawing's own size")
        ->type_name("NAME|WxH");
    const std::map<std::string, Orientation> orientations = {
        {"auto", Orientation::Auto}, {"portrait", Orientation::Portrait}, {"landscape", Orientation::Landscape}};
    app.add_option("--orientation", options.orientation, "Which side of the paper is up: portrait, landscape or auto")
        ->transform(CLI::CheckedTransformer(orientations).description(""))
        ->type_name("NAME");
    const std::map<std::string, Fit> fits = {{"none", Fit::None}, {"shrink", Fit::Shrink}, {"page", Fit::Page}};
    app.add_option("--fit", options.fit,
                   "How drawings and pictures fit a given paper: none, shrink (large ones; the default) or page")
        ->transform(CLI::CheckedTransformer(fits).description(""))
        ->type_name("NAME");
    app.add_option("-m,--margin", storing(parseMargins, options.margins),
                   "Margins of the paper, bare numbers in points")
        ->type_name("L[,T,R,B]");
    Alignment alignment{options.alignX, options.alignY};
    app.add_option("--align", storing(parseAlignment, alignment),
                   "Where on the paper: center, or words of top, bottom, left and right joined by -")
        ->type_name("PLACE");
    app.add_option("-w,--width", storing(parsePositiveLength, options.width),
                   "Width of each drawing, bare numbers in px")
        ->type_name("LENGTH");
    app.add_option("-h,--height", storing(parsePositiveLength, options.height),
                   "Height of each drawing, bare numbers in px")
        ->type_name("LENGTH");
    app.add_option("-z,--zoom", options.zoom, "Enlarge each drawing by this factor")->check(CLI::Range(1e-4, 1e4));
    app.add_option("-d,--dpi", options.dpi, "Pixels in an inch of drawings, and of pictures that do not state it (96)")
        ->check(CLI::Range(1.0, 1e5));
    app.add_option("-b,--background", storing(parseColor, options.background), "Colour of the paper: #rrggbb or a name")
        ->type_name("COLOR");
    app.add_option("--level", options.level, "PostScript language level: 1, 2 (the default) or 3")
        ->check(CLI::IsMember({1UL, 2UL, 3UL}));
    const std::map<std::string, QsdPSColorModel> models = {{"rgb", QsdPSRGB}, {"grey", QsdPSGrey}, {"gray", QsdPSGrey}};
    app.add_option("--color", options.color, "Colour model: rgb (the default) or grey")
        ->transform(CLI::CheckedTransformer(models).description(""))
        ->type_name("NAME");
    std::string encoder;
    app.add_option("--encoder", encoder, "Encoding of image data: ascii85 (the default above level 1) or hex")
        ->check(CLI::IsMember({"ascii85", "hex"}));
    std::string compression = "auto";
    app.add_option("--compress", compression,
                   "Compression of image data: auto (the default), flate (level 3), lzw, runlength or none")
        ->check(CLI::IsMember({"auto", "flate", "lzw", "runlength", "none"}));
    app.add_flag("--classic", options.classic,
                 "Write plain documents, whose pages rely on those before, with the base device");
    app.add_option("--title", options.title, "The document's title (the name of its only input, or of the output)");
    const std::map<std::string, QsEncoding> encodings = {
        {"latin1", QsEncodingLatin1}, {"euc-jp", QsEncodingEUCJP}, {"sjis", QsEncodingShiftJIS}};
    app.add_option("--encoding", options.encoding,
                   "Encoding of the document's texts: latin1 (the default), euc-jp or sjis")
        ->transform(CLI::CheckedTransformer(encodings).description(""))
        ->type_name("NAME");
    const std::map<std::string, TextForm> textForms = {
        {"auto", TextForm::Auto}, {"strings", TextForm::Strings}, {"outlines", TextForm::Outlines}};
    app.add_option("--text", options.text,
                   "What texts become: strings, which can be searched, outlines of installed fonts, or auto (the "
                   "default): strings where a printer's fonts serve")
        ->transform(CLI::CheckedTransformer(textForms).description(""))
        ->type_name("FORM");
    app.add_option("--font-map", options.fontMap, "A font map file to read in addition")->type_name("FILE");
    app.add_flag("--strict", options.strict, "Fail when something of a drawing cannot be drawn");
    app.add_flag("-q,--quiet", options.quiet, "Do not tell what was approximated or left out, nor show progress");
    app.add_flag("-v,--verbose", options.verbose, "Tell what is being done");
    app.add_flag("--progress", options.progress, "Show progress on a terminal at once, not only when a run takes long");

    try {
        app.parse(argc, argv);
        if (options.level == 1 && encoder == "ascii85") {
            throw CLI::ValidationError("--encoder", "level 1 documents have hexadecimal data");
        }
        if (options.classic && options.level > 2) {
            throw CLI::ValidationError("--level", "the base device draws pictures at levels 1 and 2 alone");
        }
        options.hexEncoder = encoder == "hex";
        options.compression = compressionOf(compression, options);
        options.plainWhereSmaller = compression == "auto";
        auto nextFile = files.begin();
        auto nextWindow = windows.begin();
        for (const CLI::Option* option : app.parse_order()) {
            if (option == fileOption) {
                options.inputs.push_back({Source::File, *nextFile++});
            } else if (option == windowOption) {
                options.inputs.push_back({Source::Window, *nextWindow++});
            }
        }
        if (options.inputs.empty()) {
            options.inputs.push_back({Source::File, "-"});
        }
        const bool eps = format == "eps" ||
                         (format.empty() && (endsWith(options.output, ".eps") || endsWith(options.output, ".epsf")));
        options.format = eps ? Format::EPS : Format::PS;
        options.formatIsGiven = !format.empty();
        if (eps && options.inputs.size() > 1) {
            throw CLI::ValidationError("FILE", "an EPS document holds one page");
        }
    } catch (const CLI::ParseError& error) {
        exitCode = app.exit(error) == 0 ? 0 : UsageError;
        return std::nullopt;
    }
    options.alignX = alignment.x;
    options.alignY = alignment.y;
    return options;
}

} // namespace qsdps
