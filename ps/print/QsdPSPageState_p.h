// What the interpreter has in effect on the page under way.
#pragma once

#include "ps/print/QsdPSPageReach_p.h"
#include "toolkit/graphics/QsdColor.h"
#include "toolkit/graphics/QsdFont.h"
#include "toolkit/graphics/QsdLineStyle.h"

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

/// Mirrors the state of the interpreter, so that only what differs is written.
struct QsdPSPageState {
    /// A new page knows of nothing but of its clips and of the mode of line widths, which go on from page to page.
    void beginPage()
    {
        *this = QsdPSPageState{
            .outerClip = std::move(outerClip), .innerClip = std::move(innerClip), .linesZoom = linesZoom};
    }

    // What is absent is not known.
    QsdHandle<const QsdFont> font = {};
    std::optional<std::pair<unsigned, int>> fontAndSize = {}; ///< the number of the document's font, and units
    std::optional<std::array<std::uint16_t, 3>> color = {};   ///< as it is written: thousandths; a grey three times
    QsdHandle<const QsdColor> foreground = {};                ///< that the colour was taken from, and how
    bool foregroundInColor = false;
    QsdHandle<const QsdLineStyle> lineStyle = {};
    std::optional<unsigned long> lineWidth = {};
    QsdTransformer transformer = {};

    QsdPSPlacedClip outerClip = {}; ///< of the bounding box, or of initClip
    QsdPSPlacedClip innerClip = {}; ///< the one of clip and of the palettes
    bool linesZoom = true;          ///< whether the widths of lines grow with the drawing
};
