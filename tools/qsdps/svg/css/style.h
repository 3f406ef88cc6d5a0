// The resolved properties of an element.
#pragma once

#include "drawing/paint.h"
#include "drawing/text.h"
#include "svg/css/styled_document.h"
#include "svg/css/variables.h"
#include "values/color.h"
#include "values/length.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>

namespace qsdps::svg {

/// fill and stroke before references are followed.
struct PaintSpec {
    enum class Kind : unsigned char { None, Color, CurrentColor, Reference, ContextFill, ContextStroke };
    Kind kind = Kind::None;
    Kind fallback = Kind::None; ///< of a reference
    Color color;                ///< of Color, or of the fallback
    std::string_view reference; ///< id
};

enum class PaintStep : unsigned char { Fill, Stroke, Markers };

/// Where a line of text sits on its baseline, as far as it is told apart here.
enum class Baseline : unsigned char { Alphabetic, Middle, Central, Hanging, TextTop, TextBottom };

/// Properties that apply to the element alone.
struct OwnStyle {
    bool display = true;
    double opacity = 1;
    std::string_view clipPath; ///< id, empty for none
    std::string_view mask;     ///< id, empty for none
    bool filter = false;
    std::string_view filterId;
    bool blend = false;         ///< mixes with the ground other than by covering it
    bool overflowShown = false; ///< content outside of a viewport is drawn
    bool overflowSet = false;
    Color stopColor;
    bool stopCurrent = false; ///< stop-color is currentColor
    double stopOpacity = 1;
    bool nonScalingStroke = false;
    std::string_view baselineShift;
    std::string_view transform; ///< of a style sheet; empty for none
    bool alphaMask = false;
};

struct Style {
    // Inherited.
    Color color;
    PaintSpec fill{PaintSpec::Kind::Color, PaintSpec::Kind::None, {}, {}};
    double fillOpacity = 1;
    FillRule fillRule = FillRule::NonZero;
    FillRule clipRule = FillRule::NonZero;
    PaintSpec stroke;
    double strokeOpacity = 1;
    Length strokeWidth{1};
    LineCap cap = LineCap::Butt;
    LineJoin join = LineJoin::Miter;
    double miterLimit = 4;
    std::string_view dashArray;
    Length dashOffset;
    std::array<PaintStep, 3> paintOrder{PaintStep::Fill, PaintStep::Stroke, PaintStep::Markers};
    std::string_view markerStart; ///< id
    std::string_view markerMid;
    std::string_view markerEnd;
    bool visible = true;
    bool smoothImages = true;
    std::string_view fontFamily = "Times New Roman, serif"; ///< as browsers begin
    double fontSize = 16;
    int fontWeight = 400;
    bool italic = false;
    TextAnchor textAnchor = TextAnchor::Start;
    Length letterSpacing{0};
    Length wordSpacing{0};
    Baseline baseline = Baseline::Alphabetic;
    bool preserveSpace = false;
    bool vertical = false;
    bool rightToLeft = false;
    std::shared_ptr<const CustomProperties> variables; ///< null: none
    // Not inherited, but a decoration goes on through the text inside.
    bool underline = false;
    bool overline = false;
    bool lineThrough = false;

    OwnStyle own;
};

/// Properties that place a shape; attributes and style sheets both set them.
enum class Geometry : unsigned char { X, Y, Width, Height, Cx, Cy, R, Rx, Ry, Count };

/// An element with everything that style sheets say about it.
struct Element {
    pugi::xml_node node;
    Tag tag = Tag::Unknown;
    Style style;
    std::array<std::string_view, static_cast<std::size_t>(Geometry::Count)> geometry;

    [[nodiscard]] std::string_view get(Geometry g) const { return geometry[static_cast<std::size_t>(g)]; }
};

/// What the values of properties are relative to.
struct StyleBase {
    const Style& parent;
    double rootFontSize = 16;
    double dpi = 96;
};

/// What resolving elements costs, and the texts that come of it; styles point into them.
struct StyleTools {
    std::size_t& work; ///< what rules and variables may still cost; 0 when some were left out for it
    ValueTexts& texts;
};

/// Resolves one element below a parent whose properties are known. Faulty values are left out;
/// `fault` is called with a message for each.
[[nodiscard]] Element resolveElement(const StyledDocument& document, const pugi::xml_node& node, const StyleBase& base,
                                     const StyleTools& tools, const SheetFault& fault);
/// The id in "url(#id)"; empty for other files and other text.
[[nodiscard]] std::string_view parseUrl(std::string_view text);

} // namespace qsdps::svg
