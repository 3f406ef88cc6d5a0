// What one run over a document needs besides the place it is at.
#pragma once

#include "drawing/report.h"
#include "svg/css/style.h"
#include "svg/css/styled_document.h"
#include "svg/walker/svg_options.h"
#include "values/length.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qsdps::svg {

/// How much work references may cause, over a drawing and the drawings embedded in it.
struct Budget {
    std::size_t references = 500'000;              ///< elements drawn through use, markers and nested tiles
    std::size_t measured = 2'000'000;              ///< elements gone through for bounding boxes
    std::size_t imageBytes = std::size_t{2} << 30; ///< of all images read, decoded from text
    std::size_t styleWork = 50'000'000;            ///< elements compared with selectors, values put together
    int embedded = 0;                              ///< how many drawings deep
    bool depthReported = false;
    bool measuringReported = false;
    bool styleWorkReported = false;
};

/// Elements nested deeper than this are not drawn; every level of the walk takes stack.
inline constexpr int MaxDepth = 250;

class Scene {
public:
    Scene(const StyledDocument& document, const SvgOptions& options, Report& report, Budget& budget, Size page);

    [[nodiscard]] const Document& document() const { return _document.elements(); }
    [[nodiscard]] const SvgOptions& options() const { return _options; }
    [[nodiscard]] Report& report() { return _report; }
    [[nodiscard]] Budget& budget() { return _budget; }
    [[nodiscard]] Size page() const { return _page; }

    /// The element below a parent style; faulty values are reported.
    [[nodiscard]] Element resolve(const pugi::xml_node& node, const Style& parent);
    /// The style of an element by its own place in the document, whoever refers to it.
    [[nodiscard]] const Style& styleOf(const pugi::xml_node& node);
    [[nodiscard]] LengthBase lengthBase(const Style& style, Size viewport) const;
    /// The stops of a gradient element, made by `make` when first asked for.
    template <typename Make>
    [[nodiscard]] const std::vector<GradientStop>& stops(const pugi::xml_node& gradient, Make make);

    /// Takes `cost` from what references may draw, or from what is gone through for bounding boxes; false, reported
    /// once, when it is used up.
    [[nodiscard]] bool spendReferences(std::size_t cost);
    [[nodiscard]] bool spendMeasuring(std::size_t cost);
    void reportDepth(const pugi::xml_node& node);
    void badInput(std::string_view what, const pugi::xml_node& node);
    void notDrawn(std::string_view kind, const pugi::xml_node& node, std::string_view name = {});

    /// Marks an element as being expanded while it lives; `cyclic` when it already was.
    class Expansion {
    public:
        Expansion(Scene& scene, const pugi::xml_node& node);
        ~Expansion();
        Expansion(const Expansion&) = delete;
        Expansion& operator=(const Expansion&) = delete;
        [[nodiscard]] bool cyclic() const { return _cyclic; }

    private:
        Scene& _scene;
        bool _cyclic = false;
    };
    /// How many tiles are being drawn inside each other.
    int tiles = 0;

private:
    const StyledDocument& _document;
    const SvgOptions& _options;
    Report& _report;
    Budget& _budget;
    Size _page;
    ValueTexts _texts;
    double _rootFontSize = 16;
    bool _budgetReported = false;
    std::vector<pugi::xml_node> _expanding;
    std::unordered_map<std::size_t, std::unique_ptr<Style>> _styles;
    std::unordered_map<std::size_t, std::vector<GradientStop>> _stops;
};

template <typename Make>
const std::vector<GradientStop>& Scene::stops(const pugi::xml_node& gradient, Make make)
{
    const std::size_t key = gradient.hash_value();
    const auto known = _stops.find(key);
    return known != _stops.end() ? known->second : _stops.emplace(key, make()).first->second;
}

} // namespace qsdps::svg
