// What the user asked for.
#pragma once

#include "drawing/paint.h"
#include "page/text_form.h"
#include "ps/QsdPSColorModel.h"
#include "toolkit/base/QsEncoding.h"
#include "values/paper.h"

#include <optional>
#include <string>
#include <vector>

namespace qsdps {

enum class Format { PS, EPS };
enum class Orientation { Auto, Portrait, Landscape };
enum class Fit { None, Shrink, Page };
enum class Compression { None, RunLength, LZW, Flate };

/// Something that becomes a page.
struct Source {
    enum Kind {
        File,  ///< a file's name; "-" is standard input
        Window ///< on an X screen: its number, its name, or "root"
    };
    Kind kind = File;
    std::string name;
};

struct Options {
    std::string program = "qsdps"; ///< what messages begin with
    std::vector<Source> inputs;
    std::string output = "-"; ///< a file name; "-" is standard output
    Format format = Format::PS;
    bool formatIsGiven = false;     ///< rather than taken from the output's name
    std::optional<PaperSize> paper; ///< none: that of the drawings
    Orientation orientation = Orientation::Auto;
    Fit fit = Fit::Shrink;
    Margins margins;
    double alignX = 0.5;         ///< 0 left, 1 right, in what the margins leave
    double alignY = 0.5;         ///< 0 top, 1 bottom
    std::optional<double> width; ///< of each drawing, points
    std::optional<double> height;
    double zoom = 1;
    double dpi = 96; ///< of drawings, and of pictures that state none
    std::optional<Rgb> background;
    unsigned long level = 2;
    QsdPSColorModel color = QsdPSRGB;
    bool hexEncoder = false;
    Compression compression = Compression::None; ///< of image data; none at level 1 and in hexadecimal
    bool plainWhereSmaller = false;              ///< of data that compression makes larger: none
    bool classic = false;                        ///< the device whose text never changes
    std::optional<std::string> title;
    QsEncoding encoding = QsEncodingLatin1;
    TextForm text = TextForm::Auto;
    std::string fontMap; ///< empty: none
    bool strict = false;
    bool quiet = false; ///< neither warnings nor progress
    bool verbose = false;
    bool progress = false; ///< at once, not only in long runs
};

/// Reads the command line. Returns nothing when the run is over already (help, version, or a mistake, which is told on
/// standard error); `exitCode` says how.
[[nodiscard]] std::optional<Options> parseOptions(int argc, const char* const* argv, int& exitCode);

} // namespace qsdps
