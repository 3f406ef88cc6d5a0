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

    Status draw(const Sheet& sheet, Report& report, const std::function<void(double)>&) override
    {
        Painter painter(sheet.port, sheet.units, placement(size().width, size().height, sheet.paper, sheet.options),
                        sheet.paperColor, sheet.tools, report);
        // What sticks out of the drawing's own page is not part of it.
        painter.pushClip({{{outlineOf(size()), FillRule::NonZero, Matrix(), nullptr}}, nullptr});
        _drawing->draw(painter, report);
        painter.finish();
        return {};
    }

private:
    std::unique_ptr<SvgDrawing> _drawing;
};

/// An open picture file.
struct OpenPicture {
    std::unique_ptr<Input> input;
    std::unique_ptr<ImageReader> reader;
};

/// An error of an input: that of the system, where reading failed, or else of what was read.
Error errorOf(const Input& input, const Error& error)
{
    return input.failure().empty() ? error : Error{input.failure()};
}

Result<OpenPicture> openPicture(std::unique_ptr<Input> input)
{
    auto reader = openImage(*input, input->start());
    if (!reader) {
        return errorOf(*input, reader.error());
    }
    return OpenPicture{std::move(input), *std::move(reader)};
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

    Status draw(const Sheet& sheet, Report&, const std::function<void(double)>& advance) override
    {
        Result<OpenPicture> picture = _picture.reader != nullptr ? std::exchange(_picture, {}) : reopened();
        if (!picture) {
            return picture.error().in(name());
        }
        placePixels(sheet);
        QsdPSDevice* const document = sheet.document;
        if (document != nullptr && isGreyOn(sheet)) {
            document->setColorModel(QsdPSGrey);
        }
        const Status drawn =
            drawPicture(sheet.port, *picture->reader, sheet.paperColor, sheet.tools, [&](std::uint32_t rows) {
                advance(static_cast<double>(rows) / _header.height);
                return document == nullptr || !document->writeFailed();
            });
        if (document != nullptr) {
            document->setColorModel(sheet.options.color);
        }
        return drawn ? Status() : errorOf(*picture->input, drawn.error()).in(name());
    }

private:
    [[nodiscard]] Result<OpenPicture> reopened() const
    {
        auto input = Input::open(_inputName);
        if (!input) {
            return input.error();
        }
        auto picture = openPicture(*std::move(input));
        if (!picture) {
            return picture.error();
        }
        const ImageHeader& header = picture->reader->header();
        if (header.width != _header.width || header.height != _header.height) {
            return Error{"changed while it was being read"};
        }
        return picture;
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

Result<std::unique_ptr<DocumentPage>> DocumentPage::open(const Source& input, const Options& options)
{
    using Opened = Result<std::unique_ptr<DocumentPage>>;
    const std::string name = nameOfInput(input);
    auto file = input.kind == Source::Window ? openWindow(input.name, options.quiet) : Input::open(input.name);
    if (!file) {
        return file.error().in(name);
    }
    if (isImage((*file)->start())) {
        auto picture = openPicture(*std::move(file));
        return picture ? Opened(std::make_unique<PicturePage>(input, *std::move(picture), options))
                       : picture.error().in(name);
    }
    if (!mayBeDrawing((*file)->start())) {
        return Error{"not a PNG, JPEG, PNM or SVG file", name};
    }
    Result<std::string> bytes = (*file)->readAll();
    if (!bytes) {
        return bytes.error().in(name);
    }
    SvgOptions svg;
    svg.fileName = name;
    svg.baseFolder = folderOf(input.name);
    svg.dpi = options.dpi;
    auto drawing = SvgDrawing::load(*std::move(bytes), svg);
    return drawing ? Opened(std::make_unique<DrawingPage>(input, *std::move(drawing))) : drawing.error().in(name);
}

} // namespace qsdps
