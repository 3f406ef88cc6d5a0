#include "svg/reader.h"

#include "svg/document.h"
#include "svg/root_size.h"
#include "svg/scanner.h"
#include "svg/scene.h"
#include "svg/walker.h"

namespace qsdps {

namespace {

/// A text without white space at its ends, and with a blank for each run of it elsewhere.
std::string collapsed(std::string_view text)
{
    std::string result;
    for (const char c : svg::trim(text)) {
        const bool isSpace = svg::isSpace(c);
        if (!isSpace || result.back() != ' ')
            result += isSpace ? ' ' : c;
    }
    return result;
}

} // namespace

std::unique_ptr<SvgDrawing> SvgDrawing::load(std::string bytes, const SvgOptions& options, std::string& error)
{
    auto document = svg::Document::load(std::move(bytes), options.baseFolder, error);
    if (!document)
        return nullptr;
    return std::unique_ptr<SvgDrawing>(new SvgDrawing(std::move(document), options));
}

SvgDrawing::SvgDrawing(std::unique_ptr<svg::Document> document, const SvgOptions& options)
    : _document(std::move(document)), _options(options)
{
    svg::Budget budget;
    const svg::Size size = svg::rootSize(*_document, _options, budget);
    _width = size.width;
    _height = size.height;
}

SvgDrawing::~SvgDrawing() = default;

std::string SvgDrawing::title() const
{
    for (const pugi::xml_node& child : _document->root().children()) {
        if (_document->tag(child) == svg::Tag::Title)
            return collapsed(svg::textOf(child));
    }
    return {};
}

void SvgDrawing::draw(Canvas& canvas, Report& report) const
{
    svg::Budget budget;
    svg::Scene scene(*_document, _options, report, budget, {_width, _height});
    svg::Walker(scene, canvas).drawRoot({});
}

} // namespace qsdps
