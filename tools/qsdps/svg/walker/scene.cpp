#include "svg/walker/scene.h"

#include <algorithm>

namespace qsdps::svg {

Scene::Scene(const StyledDocument& document, const SvgOptions& options, Report& report, Budget& budget, Size page)
    : _document(document), _options(options), _report(report), _budget(budget), _page(page), _texts(budget.styleWork)
{
    // Large drawings have many elements to style.
    budget.styleWork += this->document().size();
    for (const SheetMessage& message : document.sheetMessages()) {
        report.badInput(message.what, message.line);
    }
    _rootFontSize = styleOf(this->document().root()).fontSize;
}

Element Scene::resolve(const pugi::xml_node& node, const Style& parent)
{
    const Element element =
        resolveElement(_document, node, {parent, _rootFontSize, _options.dpi}, {_budget.styleWork, _texts},
                       [&](const std::string& what) { badInput(what, node); });
    if (_budget.styleWork == 0 && !_budget.styleWorkReported) {
        badInput("style sheets ask for too much work, further rules not applied", node);
        _budget.styleWorkReported = true;
    }
    return element;
}

const Style& Scene::styleOf(const pugi::xml_node& node)
{
    const auto known = _styles.find(node.hash_value());
    if (known != _styles.end()) {
        return *known->second;
    }
    std::vector<pugi::xml_node> line;
    for (pugi::xml_node at = node; at.type() == pugi::node_element && line.size() < MaxDepth; at = at.parent()) {
        line.push_back(at);
    }
    Style style;
    for (auto at = line.rbegin(); at != line.rend(); ++at) {
        style = resolve(*at, style).style;
    }
    return *_styles.emplace(node.hash_value(), std::make_unique<Style>(style)).first->second;
}

LengthBase Scene::lengthBase(const Style& style, Size viewport) const
{
    return {viewport, style.fontSize, _rootFontSize, _options.dpi};
}

bool Scene::spendReferences(std::size_t cost)
{
    if (cost <= _budget.references) {
        _budget.references -= cost;
        return true;
    }
    _budget.references = 0;
    if (!_budgetReported) {
        _report.notDrawn("further reference (too many in all)");
    }
    _budgetReported = true;
    return false;
}

bool Scene::spendMeasuring(std::size_t cost)
{
    const bool enough = cost <= _budget.measured;
    _budget.measured -= std::min(cost, _budget.measured);
    if (!enough && !_budget.measuringReported) {
        _report.approximated("bounding box (too much in it)");
        _budget.measuringReported = true;
    }
    return enough;
}

void Scene::reportDepth(const pugi::xml_node& node)
{
    if (!_budget.depthReported) {
        badInput("elements left out: they are nested too deep", node);
    }
    _budget.depthReported = true;
}

void Scene::notDrawn(std::string_view kind, const pugi::xml_node& node, std::string_view name)
{
    _report.notDrawn(kind, document().line(node), name);
}

void Scene::badInput(std::string_view what, const pugi::xml_node& node)
{
    _report.badInput(what, document().line(node));
}

Scene::Expansion::Expansion(Scene& scene, const pugi::xml_node& node)
    : _scene(scene),
      _cyclic(std::find(scene._expanding.begin(), scene._expanding.end(), node) != scene._expanding.end())
{
    _scene._expanding.push_back(node);
}

Scene::Expansion::~Expansion()
{
    _scene._expanding.pop_back();
}

} // namespace qsdps::svg
