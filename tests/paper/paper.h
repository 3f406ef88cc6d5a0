// Scenes on paper: documents of one scene a page, which the interpreter renders one pixel a unit.
#pragma once

#include "call.h"
#include "ps/QsdPSDevice.h"

#include <functional>
#include <string>
#include <vector>

/// How a document is made and rendered.
struct Printing {
    /// "classic", "print" or "screen": see makeDevice.
    std::string device;
    unsigned long level = 2;
    /// Whether the pages are half a unit to the right and further down, which brings the lines of points of whole
    /// numbers to the middles of pixels, where screens draw them.
    bool middles = false;
};

/// Draws one scene on the device's current page.
using SceneDrawing = std::function<void(QsdPSDevice&, const Scene&)>;

/// The pages of a document, or those before the one that the interpreter stopped at.
struct Pages {
    std::vector<Picture> pictures;
    std::string messages; ///< of the interpreter; empty when all went well
};

/// Draws every call with a palette of its own.
void drawScene(QsdPSDevice& device, const Scene& scene);

/// Prints each scene on a page of its own.
[[nodiscard]] Pages onPaper(const std::vector<Scene>& scenes, const Printing& printing,
                            const SceneDrawing& draw = drawScene);
