#include "command/document_page.h"

#include "command/input.h"
#include "command/layout.h"
#include "command/window_input.h"
#include "images/reader.h"
#include "page/picture_strips.h"
#include "ps/QsdPSDevice.h"
#include "svg/reader.h"

#include <filesystem>
#include <utility>

namespace qsdps {

namespace {

/// A file's name without folders, which stands for its title; standard input has none.
std::string titleOfFile(const Source& source)
{
    return source.name == "-" ? std::string() : std::filesystem::path(source.name).filename().string();
}

std::string titleOfDrawing(const SvgDrawing& drawing, const Source& source)
{
    std::string title = drawing.title();
    return title.empty() ? titleOfFile(source) : title;
}

/// A drawing, all of it in memory.
class DrawingPage : public DocumentPage {
public:
    DrawingPage(const Source& source, std::unique_ptr<SvgDrawing> drawing)
        : DocumentPage(nameOfInput(source), titleOfDrawing(*drawing, source),
                       {0, 0, drawing->width(), drawing->height()}),
          _drawing(std::move(drawing))
    {
    }

    bool draw(const Sheet& sheet, Report& report, const std::function<void(double)>&, std::string&) override
    {
        Painter painter(sheet.port, sheet.units, placement(size().width, size().height, sheet.paper, sheet.options),
                        sheet.paperColor, sheet.tools, report);
        // What sticks out of the drawing's own page is not part of it.
        painter.pushClip({{{outlineOf(size()), FillRule::NonZero, Matrix(), nullptr}}, nullptr});
        _drawing->draw(painter, report);
        painter.finish();
        return true;
    }

private:
    std::unique_ptr<SvgDrawing> _drawing;
};

/// An open picture file.
struct OpenPicture {
    std::unique_ptr<Input> input;
    std::unique_ptr<ImageReader> reader;
};

/// Null with a reason in `error` when the header cannot be read.
OpenPicture openPicture(std::unique_ptr<Input> input, std::string& error)
{
    try {
        auto reader = openImage(*input, input->start());
        return {std::move(input), std::move(reader)};
    } catch (const ImageError& problem) {
        error = input->failure().empty() ? problem.what() : input->failure();
        return {};
    }
}

/// A picture, of which little more than the header is in memory.
class PicturePage : public DocumentPage {
public:
    PicturePage(const Source& source, OpenPicture picture, const Options& options)
        : DocumentPage(nameOfInput(source),
                       source.kind == Source::Window ? picture.reader->header().title : titleOfFile(source),
                       sizeOfPicture(picture.reader->header(), options)),
          _inputName(source.name), _header(picture.reader->header())
    {
        // A document may have more pages than a process may have files.
        if (!picture.input->canBeReopened()) {
            _picture = std::move(picture);
        }
    }

    bool draw(const Sheet& sheet, Report&, const std::function<void(double)>& advance, std::string& error) override
    {
        OpenPicture picture = std::exchange(_picture, {});
        if (picture.reader == nullptr && !reopen(picture, error)) {
            return false;
        }
        placePixels(sheet);
        QsdPSDevice* const document = sheet.document;
        if (document != nullptr && isGreyOn(sheet)) {
            document->setColorModel(QsdPSGrey);
        }
        try {
            drawPicture(sheet.port, *picture.reader, sheet.paperColor, sheet.tools, [&](std::uint32_t rows) {
                advance(static_cast<double>(rows) / _header.height);
                return document == nullptr || !document->writeFailed();
            });
        } catch (const ImageError& problem) {
            error = picture.input->failure().empty() ? problem.what() : picture.input->failure();
        }
        if (document != nullptr) {
            document->setColorModel(sheet.options.color);
        }
        return error.empty();
    }

private:
    bool reopen(OpenPicture& picture, std::string& error) const
    {
        std::unique_ptr<Input> input = Input::open(_inputName, error);
        if (input == nullptr) {
            return false;
        }
        picture = openPicture(std::move(input), error);
        if (picture.reader == nullptr) {
            return false;
        }
        const ImageHeader& header = picture.reader->header();
        if (header.width != _header.width || header.height != _header.height) {
            error = "changed while it was being read";
            return false;
        }
        return true;
    }

    /// Gives the port the space of the picture's pixels.
    void placePixels(const Sheet& sheet) const
    {
        const Matrix m = placement(size().width, size().height, sheet.paper, sheet.options) *
                         pictureToDrawing(_header, sheet.options);
        sheet.port.setTransformer(QsdTransformer(m.a, m.c, m.b, m.d, m.e, m.f).compose(sheet.toPort));
    }

    /// Whether the picture takes a third of the samples and looks the same.
    [[nodiscard]] bool isGreyOn(const Sheet& sheet) const
    {
        const Rgb paper = sheet.paperColor;
        const bool paperIsGrey = paper.r == paper.g && paper.g == paper.b;
        return _header.kind == PixelKind::Grey && (!_header.hasAlpha || paperIsGrey);
    }

    std::string _inputName;
    ImageHeader _header;
    OpenPicture _picture; ///< of an input that can be read only once; else closed until it is drawn
};

/// Whether bytes may be those of an SVG file: text that begins with a tag, or is packed or in wide characters.
bool mayBeDrawing(std::string_view start)
{
    using namespace std::string_view_literals;
    if (start.starts_with("\xEF\xBB\xBF"sv)) {
        start.remove_prefix(3);
    }
    const std::size_t first = start.find_first_not_of(" \t\r\n\0"sv);
    const bool isText = first == std::string_view::npos || start[first] == '<';
    return isText || start.starts_with("\x1F\x8B"sv) || start.starts_with("\xFF\xFE"sv) ||
           start.starts_with("\xFE\xFF"sv);
}

} // namespace

std::string nameOfInput(const Source& input)
{
    if (input.kind == Source::Window) {
        return "window " + input.name;
    }
    return input.name == "-" ? "standard input" : input.name;
}

std::unique_ptr<DocumentPage> DocumentPage::open(const Source& input, const Options& options, std::string& error)
{
    const bool isWindow = input.kind == Source::Window;
    std::unique_ptr<Input> file =
        isWindow ? openWindow(input.name, options.quiet, error) : Input::open(input.name, error);
    if (file == nullptr) {
        return nullptr;
    }
    if (isImage(file->start())) {
        OpenPicture picture = openPicture(std::move(file), error);
        return picture.reader == nullptr ? nullptr : std::make_unique<PicturePage>(input, std::move(picture), options);
    }
    if (!mayBeDrawing(file->start())) {
        error = "not a PNG, JPEG, PNM or SVG file";
        return nullptr;
    }
    std::string bytes;
    if (!file->readAll(bytes, error)) {
        return nullptr;
    }
    SvgOptions svg;
    svg.fileName = nameOfInput(input);
    svg.baseFolder = folderOf(input.name);
    svg.dpi = options.dpi;
    std::unique_ptr<SvgDrawing> drawing = SvgDrawing::load(std::move(bytes), svg, error);
    return drawing == nullptr ? nullptr : std::make_unique<DrawingPage>(input, std::move(drawing));
}

} // namespace qsdps
