#include "command/convert.h"

#include "command/document_page.h"
#include "command/font_map.h"
#include "command/layout.h"
#include "command/output_check.h"
#include "command/output_file.h"
#include "command/progress.h"
#include "command/toolkit_messages.h"
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/zlib/QsdFlateEncoder.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <unistd.h>
#include <utility>

namespace qsdps {

namespace {

constexpr int UsageError = 2;
constexpr double LargestPaper = 1e6; ///< points; as much as a page description should have to take

void tell(const Options& options, const std::string& name, const std::string& message)
{
    std::cerr << options.program << ": " << name << ": " << message << '\n';
}

using Pages = std::vector<std::unique_ptr<DocumentPage>>;

/// The inputs that could be opened; `failed` is set when one could not.
Pages openPages(const Options& options, bool& failed)
{
    Pages pages;
    for (const Source& input : options.inputs) {
        auto page = DocumentPage::open(input, options);
        if (page) {
            pages.push_back(*std::move(page));
        } else {
            const std::string message = page.error().message();
            tell(options, page.error().file, options.inputs.size() > 1 ? message + "; left out" : message);
            failed = true;
        }
    }
    return pages;
}

/// The font map that the user gives, entered; an empty one where none is given.
Result<FontMap> readFontMap(const Options& options)
{
    return options.fontMap.empty() ? FontMap() : FontMap::enter(options.fontMap);
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

void paintBackground(const Sheet& sheet)
{
    if (sheet.options.background) {
        const double perPoint = sheet.units.perPoint();
        const QsdPoint corner = rounded({sheet.paper.width * perPoint, sheet.paper.height * perPoint});
        PaintTools& tools = sheet.tools;
        tools.palette->setForeground(tools.colors.get(*sheet.options.background));
        tools.palette->setClipRegion(QsdRegion::Full());
        sheet.port.fillRectangle(tools.palette.get(),
                                 {0, 0, static_cast<std::uint32_t>(corner.x), static_cast<std::uint32_t>(corner.y)});
    }
}

enum class Outcome {
    Complete,
    PartLeftOut, ///< of a drawing, which strict runs do not take
    Broken       ///< an input; this has been told
};

Outcome drawPages(QsdPSDevice& device, const Pages& pages, const PaperSize& paper, const Options& options)
{
    PaintTools tools(*device.display(), options.encoding, options.text,
                     [&](const std::string& family) { return mappedFamily(family, options.encoding); });
    const Sheet sheet{device,
                      &device,
                      QsdTransformer(),
                      tools,
                      options,
                      paper,
                      Units(std::max(paper.width, paper.height)),
                      options.background.value_or(Rgb{255, 255, 255})};
    Progress progress(options.quiet      ? Progress::When::Never
                      : options.progress ? Progress::When::AtOnce
                                         : Progress::When::Late);
    Outcome outcome = Outcome::Complete;
    for (std::size_t i = 0; i < pages.size() && !device.writeFailed(); ++i) {
        progress.beginPage(i + 1, pages.size());
        if (i != 0) {
            device.clip(static_cast<const QsdRegion*>(nullptr));
            device.newPage();
        }
        // A new page starts with the bare paper.
        device.setTransformer(sheet.units.toPoints());
        paintBackground(sheet);
        DocumentPage& page = *pages[i];
        Report report;
        const Status drawn = page.draw(sheet, report, [&](double part) { progress.advance(part); });
        progress.hide();
        if (!drawn) {
            tell(options, drawn.error().file, drawn.error().message());
            return Outcome::Broken;
        }
        if (report.anythingNotDrawn()) {
            outcome = Outcome::PartLeftOut;
        }
        if (!options.quiet) {
            report.print(std::cerr, options.program + ": " + page.name());
        }
        if (options.verbose) {
            tell(options, page.name(), "page " + std::to_string(i + 1));
        }
    }
    return outcome;
}

/// The title of a document: what the user says, else that of its only page, else the output's name without folders;
/// empty where there is none.
std::string titleOf(const Options& options, const Pages& pages)
{
    if (options.title) {
        return *options.title;
    }
    if (options.inputs.size() == 1) {
        return pages.front()->title();
    }
    return options.output == "-" ? std::string() : std::filesystem::path(options.output).filename().string();
}

std::unique_ptr<QsdPSDevice> makeDevice(QsdDisplay& display, const Options& options, const Pages& pages,
                                        OutputFile& output)
{
    if (options.classic) {
        auto device = std::make_unique<QsdPSBulkDevice<QsdPSDevice>>(&display, options.color);
        device->setTarget(&output.stream());
        return device;
    }
    auto device = std::make_unique<QsdPSBulkDevice<QsdPSPrintDevice>>(&display, options.color);
    device->setTarget(&output.stream());
    device->setTitle(titleOf(options, pages).c_str());
    if (options.plainWhereSmaller && options.compression != Compression::None) {
        device->setSecondEncoder(std::make_unique<QsdASCII85Encoder>(nullptr));
    }
    return device;
}

/// The encoder of a level above 1; the device owns it.
QsdPostScriptEncoder* makeEncoder(const Options& options)
{
    if (options.hexEncoder) {
        return new QsdASCIIHexEncoder(nullptr, true);
    }
    switch (options.compression) {
    case Compression::Flate:
        return new QsdFlateEncoder(nullptr);
    case Compression::RunLength:
        return new QsdRunLengthEncoder(nullptr);
    case Compression::LZW:
        return new QsdLZWEncoder(nullptr);
    case Compression::None:
        break;
    }
    return new QsdASCII85Encoder(nullptr);
}

unsigned long wholePoints(double length)
{
    return static_cast<unsigned long>(std::ceil(length - 1e-6));
}

/// Whether the output would destroy something, which is told.
std::optional<int> refuseOutput(const Options& options, const std::string& outputName)
{
    if (const std::string input = inputUnderOutput(options); !input.empty()) {
        tell(options, outputName, "not written: it is the same file as the input " + input);
        return 1;
    }
    if (const std::string ending = foreignEnding(options.output); !options.formatIsGiven && !ending.empty()) {
        tell(options, outputName,
             "not written: " + ending +
                 " is the ending of another kind of file (give -f ps or -f eps to write it all the same)");
        return 2;
    }
    return std::nullopt;
}

/// Why a document is not complete: of the output, or else of where its pages wait until they are all known.
std::string writeFailure(const OutputFile& output)
{
    if (output.writeError() != 0) {
        return std::strerror(output.writeError());
    }
    std::error_code problem;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(problem);
    const std::string name = problem ? std::string() : ", " + folder.string() + ",";
    return "the folder for temporary files" + name + " takes no more, or memory has run out";
}

} // namespace

int convert(const Options& options)
{
    const std::string outputName = options.output == "-" ? "standard output" : options.output;
    if (const std::optional<int> refused = refuseOutput(options, outputName)) {
        return *refused;
    }
    QsdGlobalContext::GetInstance().setLocale(QsLocale(localeName(options.encoding), options.encoding));
    const Result<FontMap> fontMap = readFontMap(options);
    if (!fontMap) {
        tell(options, options.fontMap, fontMap.error().message());
        return 1;
    }
    if (options.output == "-" && isatty(STDOUT_FILENO) != 0) {
        tell(options, outputName, "is a terminal; name a file with -o");
        return 1;
    }
    tellToolkitMessages(options.program);
    bool failed = false;
    const Pages pages = openPages(options, failed);
    if (pages.empty()) {
        return 1;
    }
    std::vector<Box> sizes;
    for (const auto& page : pages) {
        sizes.push_back(sizeOnPaper(page->size().width, page->size().height, options));
    }
    const PaperSize paper = paperFor(sizes, options);
    if (!(paper.width <= LargestPaper) || !(paper.height <= LargestPaper)) {
        tell(options, pages.front()->name(), "too large for any paper");
        return 1;
    }

    if (options.paper && !leavesRoom(paper, options.margins)) {
        std::cerr << options.program << ": --margin: the margins leave no room on the paper as it is turned\n";
        return UsageError;
    }

    OutputFile output(options.output);
    if (const Status opened = output.open(); !opened) {
        tell(options, outputName, "cannot be written: " + opened.error().message());
        return 1;
    }
    QsdMemoryDisplay display;
    const std::unique_ptr<QsdPSDevice> owned = makeDevice(display, options, pages, output);
    QsdPSDevice& device = *owned;
    device.setPaperWidth(std::max(1UL, wholePoints(paper.width)));
    device.setPaperHeight(std::max(1UL, wholePoints(paper.height)));
    device.setPostScriptLevel(options.level);
    if (options.level != 1) {
        device.setEncoder(makeEncoder(options));
    }
    // The device's own report of a failed write says less than the reason below.
    QsdSetFatalErrorHandler([](const char*, void*) {}, nullptr);
    QsdRect box{0, 0, static_cast<std::uint32_t>(device.getPaperWidth()),
                static_cast<std::uint32_t>(device.getPaperHeight())};
    const bool isBegun = device.initDevice(options.output.c_str(), options.format == Format::EPS ? &box : nullptr);
    fontMap->enterAgain();
    const Outcome outcome = isBegun ? drawPages(device, pages, paper, options) : Outcome::Complete;
    // A document that is not ended has written nothing yet, unless it is a plain one.
    if (outcome == Outcome::Broken) {
        tell(options, outputName, "not written");
        return 1;
    }
    if (outcome == Outcome::PartLeftOut && options.strict) {
        tell(options, outputName, "not written: something could not be drawn");
        return 1;
    }
    device.end();
    if (!isBegun || device.writeFailed() || output.writeError() != 0) {
        tell(options, outputName, "cannot be written: " + writeFailure(output));
        return 1;
    }
    if (const Status committed = output.commit(); !committed) {
        tell(options, outputName, "cannot be written: " + committed.error().message());
        return 1;
    }
    return failed ? 1 : 0;
}

} // namespace qsdps
