#include "convert.h"

#include "file_device.h"
#include "input.h"
#include "layout.h"
#include "page/painter.h"
#include "page/tiling.h"
#include "ps/QsdPSFonts_.h"
#include "svg/reader.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <cmath>
#include <iostream>
#include <memory>
#include <unistd.h>
#include <utility>

namespace qsdps {

namespace {

constexpr double LargestPaper = 1e6; ///< points; as much as a page description should have to take

void tell(const std::string& name, const std::string& message)
{
    std::cerr << "qsdps: " << name << ": " << message << '\n';
}

struct Page {
    std::string name;
    std::unique_ptr<SvgDrawing> drawing;
};

/// The drawings that could be read; `failed` is set when one could not.
std::vector<Page> readPages(const Options& options, bool& failed)
{
    std::vector<Page> pages;
    for (const std::string& input : options.inputs) {
        const std::string name = input == "-" ? "standard input" : input;
        std::string error;
        std::string bytes;
        std::unique_ptr<SvgDrawing> drawing;
        if (readInput(input, bytes, error)) {
            SvgOptions svg;
            svg.fileName = name;
            svg.baseFolder = folderOf(input);
            svg.dpi = options.dpi;
            drawing = SvgDrawing::load(std::move(bytes), svg, error);
        }
        if (drawing == nullptr) {
            tell(name, error);
            failed = true;
        } else {
            pages.push_back({name, std::move(drawing)});
        }
    }
    return pages;
}

const char* localeName(QsEncoding encoding)
{
    switch (encoding) {
    case QsEncodingEUCJP:
        return "ja_JP.eucJP";
    case QsEncodingShiftJIS:
        return "ja_JP.SJIS";
    default:
        return "C";
    }
}

/// Shows which page is being drawn, on one line that is written over.
class Progress {
public:
    explicit Progress(bool shown) : _shown(shown && isatty(STDERR_FILENO) != 0) {}
    ~Progress()
    {
        if (_shown) {
            std::cerr << "\r\x1B[K";
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(std::size_t page, std::size_t count) const
    {
        if (_shown) {
            std::cerr << "\rpage " << page << " of " << count << std::flush;
        }
    }

private:
    bool _shown;
};

void paintBackground(const QsdPort& port, PaintTools& tools, const Options& options, const PaperSize& paper,
                     const Units& units)
{
    if (options.background) {
        const QsdPoint corner = rounded({paper.width * units.perPoint(), paper.height * units.perPoint()});
        tools.palette->setForeground(tools.colors.get(*options.background));
        tools.palette->setClipRegion(QsdRegion::Full());
        port.fillRectangle(tools.palette.get(),
                           {0, 0, static_cast<std::uint32_t>(corner.x), static_cast<std::uint32_t>(corner.y)});
    }
}

/// Draws all pages; true when nothing was left out that `strict` asks for.
bool drawPages(FileDevice& device, const std::vector<Page>& pages, const PaperSize& paper, const Options& options)
{
    const Units units(std::max(paper.width, paper.height));
    PaintTools tools(*device.display(), options.encoding);
    const Progress progress(options.progress);
    bool complete = true;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        progress.show(i + 1, pages.size());
        if (i != 0) {
            device.clip(static_cast<const QsdRegion*>(nullptr));
            device.newPage();
        }
        // A new page starts with the bare paper.
        device.setTransformer(units.toPoints());
        paintBackground(device, tools, options, paper, units);
        const SvgDrawing& drawing = *pages[i].drawing;
        Report report;
        Painter painter(device, units, placement(drawing.width(), drawing.height(), paper, options),
                        options.background.value_or(Rgb{255, 255, 255}), tools, report);
        // What sticks out of the drawing's own page is not part of it.
        const Box page{0, 0, drawing.width(), drawing.height()};
        painter.pushClip({{{outlineOf(page), FillRule::NonZero, Matrix(), nullptr}}, nullptr});
        drawing.draw(painter, report);
        complete = complete && !report.anythingNotDrawn();
        if (!options.quiet) {
            report.print(std::cerr, "qsdps: " + pages[i].name);
        }
        if (options.verbose) {
            tell(pages[i].name, "page " + std::to_string(i + 1));
        }
    }
    return complete;
}

unsigned long wholePoints(double length)
{
    return static_cast<unsigned long>(std::ceil(length - 1e-6));
}

} // namespace

int convert(const Options& options)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale(localeName(options.encoding), options.encoding));
    if (!options.fontMap.empty() && !QsdPSFonts_::GetInstance()->load(options.fontMap.c_str(), options.encoding)) {
        tell(options.fontMap, "not a font map file that can be used");
        return 1;
    }
    if (options.output == "-" && isatty(STDOUT_FILENO) != 0) {
        tell("standard output", "is a terminal; name a file with -o");
        return 1;
    }
    bool failed = false;
    const std::vector<Page> pages = readPages(options, failed);
    if (pages.empty()) {
        return 1;
    }
    std::vector<Box> sizes;
    for (const Page& page : pages) {
        sizes.push_back(sizeOnPaper(page.drawing->width(), page.drawing->height(), options));
    }
    const PaperSize paper = paperFor(sizes, options);
    if (!(paper.width <= LargestPaper) || !(paper.height <= LargestPaper)) {
        tell(pages.front().name, "too large for any paper");
        return 1;
    }

    const std::string outputName = options.output == "-" ? "standard output" : options.output;
    OutputFile output(options.output);
    std::string error;
    if (!output.open(error)) {
        tell(outputName, "cannot be written: " + error);
        return 1;
    }
    QsdMemoryDisplay display;
    FileDevice device(&display, options.color, output);
    device.setPaperWidth(std::max(1UL, wholePoints(paper.width)));
    device.setPaperHeight(std::max(1UL, wholePoints(paper.height)));
    device.setPostScriptLevel(options.level);
    if (options.hexEncoder && options.level != 1) {
        device.setEncoder(new QsdASCIIHexEncoder(nullptr, true));
    }
    // The device's own report of a failed write says less than the reason below.
    QsdSetFatalErrorHandler([](const char*, void*) {}, nullptr);
    QsdRect box{0, 0, static_cast<std::uint32_t>(device.getPaperWidth()),
                static_cast<std::uint32_t>(device.getPaperHeight())};
    device.initDevice(options.output.c_str(), options.format == Format::EPS ? &box : nullptr);
    const bool complete = drawPages(device, pages, paper, options);
    device.end();
    if (!complete && options.strict) {
        tell(outputName, "not written: something could not be drawn");
        return 1;
    }
    if (!output.commit(error)) {
        tell(outputName, "cannot be written: " + error);
        return 1;
    }
    return failed ? 1 : 0;
}

} // namespace qsdps
