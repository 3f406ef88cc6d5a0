// What the user of the viewer asked for.
#pragma once

#include "qsdview/window_geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace qsdview {

struct ViewOptions {
    std::vector<std::string> files;     ///< at least one
    std::optional<std::string> printTo; ///< a document to write instead of opening a window; "-" is standard output
    std::optional<std::string> display; ///< the X server; none: that of the environment
    WindowGeometry geometry;
};

/// Reads the command line. Returns nothing when the run is over already (help, version, or a mistake, which is told on
/// standard error); `exitCode` says how.
[[nodiscard]] std::optional<ViewOptions> parseViewOptions(int argc, const char* const* argv, int& exitCode);

} // namespace qsdview
