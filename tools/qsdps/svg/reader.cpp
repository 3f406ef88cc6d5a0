#include "svg/reader.h"

#include "svg/document.h"
#include "svg/root_size.h"
#include "svg/scanner.h"
#include "svg/scene.h"
#include "svg/walker.h"

namespace qsdps {

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
            return std::string(svg::trim(child.child_value()));
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
