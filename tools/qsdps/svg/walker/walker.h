// Goes through a document and draws what it meets on a canvas.
#pragma once

#include "drawing/canvas.h"
#include "svg/css/style.h"
#include "svg/walker/clip_memo.h"
#include "svg/walker/gradient.h"
#include "svg/walker/scene.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qsdps::svg {

/// The paints of a shape whose markers refer to them, with the space they are made for.
struct ContextPaint {
    Paint fill;
    Paint stroke;
    Matrix toPage;
};

/// What an element finds around it.
struct State {
    const Style* style = nullptr;
    Matrix toPage;
    Size viewport;
    double opacity = 1; ///< still to be applied, to the one thing that follows or to a group of them
    int depth = 0;
    bool referenced = false; ///< drawn by reference, so that it counts against the budget
    const ContextPaint* context = nullptr;
};

class Walker {
public:
    enum class Purpose : unsigned char { Draw, Measure };

    /// Measuring fills every shape whatever its paint, and leaves out effects and messages.
    Walker(Scene& scene, Canvas& canvas, Purpose purpose = Purpose::Draw);

    /// Draws the whole document; `toPage` maps its page to the canvas's.
    void drawRoot(const Matrix& toPage);

private:
    [[nodiscard]] bool measuring() const { return _purpose == Purpose::Measure; }
    [[nodiscard]] std::function<void(std::string_view)> faultsOf(const pugi::xml_node& node);
    [[nodiscard]] LengthBase baseOf(const State& state) const;

    // walker.cpp: structure
    void drawElement(const pugi::xml_node& node, const State& parent, const Element* use = nullptr);
    void drawContent(const Element& element, const State& state, const Element* use);
    void drawChildren(const pugi::xml_node& parent, const State& state);
    void drawGroup(const pugi::xml_node& parent, State state);
    void drawSwitch(const pugi::xml_node& node, const State& state);
    void drawUse(const Element& element, State state);
    void drawViewport(const Element& element, State state, const Element* use);
    [[nodiscard]] Matrix shiftOfUse(const Element& use, const State& state) const;
    [[nodiscard]] bool applyTransform(const Element& element, State& state);
    [[nodiscard]] bool beginGroup(State& state, bool needed);
    void endGroup(bool begun);
    void reportEffects(const Element& element);
    [[nodiscard]] bool spend(const pugi::xml_node& node, const State& state);
    [[nodiscard]] static std::size_t costOf(const pugi::xml_node& node);
    [[nodiscard]] std::optional<Box> boundsOf(const Element& element, const State& state, const Element* use);

    // walker_clip.cpp
    using Clip = ClipMemo::Clip;
    [[nodiscard]] Clip makeClip(std::string_view id, const State& state, const BoundsOf& bounds, ClipMemo& memo);
    [[nodiscard]] Clip makeClipAt(const ClipMemo::Place& place, const State& state, ClipMemo& memo);
    [[nodiscard]] bool fitsBox(pugi::xml_node clip);
    [[nodiscard]] Clip makeMaskClip(std::string_view id, const State& state, const BoundsOf& bounds);
    void addOutline(const Element& element, const State& state, ClipPath& clip, ClipMemo& memo);
    void addClipChild(const pugi::xml_node& child, const State& state, ClipPath& clip, ClipMemo& memo);
    [[nodiscard]] bool isPlainMask(const pugi::xml_node& mask, const Style& style);
    void pushBoxClip(const Box& box, const Matrix& toPage);

    // walker_shape.cpp
    void drawShape(const Element& element, State state);
    [[nodiscard]] StrokeStyle strokeStyle(const Style& style, const State& state) const;

    // walker_paint.cpp
    [[nodiscard]] Paint makePaint(const PaintSpec& wanted, double opacity, const State& state, const BoundsOf& bounds);
    [[nodiscard]] Paint makeReference(const PaintSpec& wanted, const State& state, const BoundsOf& bounds);
    [[nodiscard]] Paint makeTile(const pugi::xml_node& node, const State& state, const BoundsOf& bounds);
    void drawTile(const pugi::xml_node& content, const State& state, const Box& cell, const Matrix& patternToPage);

    // walker_marker.cpp
    void drawMarkers(const Element& element, const Path& path, const State& state, const ContextPaint& context);
    void drawMarker(const pugi::xml_node& marker, Point at, double angle, bool start, double strokeWidth, State state);

    // walker_text.cpp
    class TextPass;
    void drawText(const Element& element, State state);
    [[nodiscard]] std::vector<TextChunk> clipTexts(const Element& element, State state);
    void reportVertical(const Element& text);

    // walker_image.cpp
    void drawImage(const Element& element, State state);
    void drawEmbedded(std::string bytes, const Element& element, Box viewport, State state);
    void drawDocument(const StyledDocument& document, const Element& element, Box viewport, State state);

    Scene& _scene;
    Canvas& _canvas;
    Purpose _purpose;
};

} // namespace qsdps::svg
