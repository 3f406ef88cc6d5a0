#include "svg/reader.h"

#include "svg/css/styled_document.h"
#include "svg/walker/root_size.h"
#include "svg/walker/scene.h"
#include "svg/walker/walker.h"
#include "values/scanner.h"

namespace qsdps {

namespace {

/// A text without white space at its ends, and with a blank for each run of it elsewhere.
std::string collapsed(std::string_view text)
{
    std::string result;
    for (const char c : trim(text)) {
        const bool blank = isSpace(c);
        if (!blank || result.back() != ' ') {
            result += blank ? ' ' : c;
        }
    }
    return result;
}

} // namespace

Result<std::unique_ptr<SvgDrawing>> SvgDrawing::load(std::string bytes, const SvgOptions& options)
{
    auto document = svg::StyledDocument::load(std::move(bytes), options.baseFolder);
    if (!document) {
        return document.error();
    }
    return std::unique_ptr<SvgDrawing>(new SvgDrawing(*std::move(document), options));
}

SvgDrawing::SvgDrawing(std::unique_ptr<svg::StyledDocument> document, const SvgOptions& options)
    : _document(std::move(document)), _options(options)
{
    svg::Budget budget;
    const Size size = svg::rootSize(*_document, _options, budget);
    _width = size.width;
    _height = size.height;
}

SvgDrawing::~SvgDrawing() = default;

std::string SvgDrawing::title() const
{
    const svg::Document& elements = _document->elements();
    for (const pugi::xml_node& child : elements.root().children()) {
        if (elements.tag(child) == svg::Tag::Title) {
            return collapsed(svg::textOf(child));
        }
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
